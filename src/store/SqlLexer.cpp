#include "store/SqlLexer.h"

namespace sql {

namespace {

bool isWordStart(QChar c) {
    return c.isLetter() || c == u'_';
}

bool isWordPart(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}

// The end of a comment that starts at 'begin', or -1 when no comment starts there.
qsizetype commentEnd(const QString& text, qsizetype begin) {
    const QStringView rest = QStringView(text).mid(begin);
    if (rest.startsWith(u"--")) {
        const qsizetype end = text.indexOf(u'\n', begin);
        return end < 0 ? text.size() : end;
    }
    if (rest.startsWith(u"/*")) {
        const qsizetype end = text.indexOf(QStringLiteral("*/"), begin + 2);
        return end < 0 ? text.size() : end + 2;
    }
    return -1;
}

// The end of a literal that starts at 'begin' with 'quote'; a doubled quote is part of it.
qsizetype quotedEnd(const QString& text, qsizetype begin, QChar quote) {
    qsizetype i = begin + 1;
    while (i < text.size()) {
        if (text[i] == quote) {
            if (i + 1 < text.size() && text[i + 1] == quote) {
                i += 2;
                continue;
            }
            return i + 1;
        }
        ++i;
    }
    return text.size();
}

qsizetype numberEnd(const QString& text, qsizetype i) {
    while (i < text.size() && (text[i].isDigit() || text[i] == u'.')) {
        ++i;
    }
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E')) {
        qsizetype j = i + 1;
        if (j < text.size() && (text[j] == u'+' || text[j] == u'-')) {
            ++j;
        }
        if (j < text.size() && text[j].isDigit()) {
            i = j;
            while (i < text.size() && text[i].isDigit()) {
                ++i;
            }
        }
    }
    return i;
}

}  // namespace

bool Token::isWord(const char* word) const {
    return kind == Word && text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
}

QList<Token> tokenize(const QString& text) {
    QList<Token> tokens;
    qsizetype i = 0;
    while (i < text.size()) {
        const QChar c = text[i];
        qsizetype end = i + 1;
        Token::Kind kind = Token::Symbol;
        if (const qsizetype comment = commentEnd(text, i); comment > 0) {
            kind = Token::Comment;
            end = comment;
        } else if (c.isSpace()) {
            kind = Token::Blank;
            while (end < text.size() && text[end].isSpace()) {
                ++end;
            }
        } else if (isWordStart(c)) {
            kind = Token::Word;
            while (end < text.size() && isWordPart(text[end])) {
                ++end;
            }
        } else if (c.isDigit() || (c == u'.' && i + 1 < text.size() && text[i + 1].isDigit())) {
            kind = Token::Number;
            end = numberEnd(text, i);
        } else if (c == u'"') {
            kind = Token::JetString;
            end = quotedEnd(text, i, c);
        } else if (c == u'\'') {
            kind = Token::SqlString;
            end = quotedEnd(text, i, c);
        } else if (c == u'[') {
            kind = Token::Name;
            end = text.indexOf(u']', i);
            end = end < 0 ? text.size() : end + 1;
        } else if (c == u'`') {
            kind = Token::Name;
            end = quotedEnd(text, i, c);
        }
        tokens.append(Token{kind, text.mid(i, end - i)});
        i = end;
    }
    return tokens;
}

QString join(const QList<Token>& tokens) {
    QString text;
    for (const Token& token : tokens) {
        text += token.text;
    }
    return text;
}

qsizetype nextSolid(const QList<Token>& tokens, qsizetype from) {
    qsizetype i = from + 1;
    while (i < tokens.size() && tokens[i].isSpacing()) {
        ++i;
    }
    return i;
}

qsizetype previousSolid(const QList<Token>& tokens, qsizetype from) {
    qsizetype i = from - 1;
    while (i >= 0 && tokens[i].isSpacing()) {
        --i;
    }
    return i;
}

QString unquoted(const Token& token) {
    if (token.text.size() < 2) {
        return token.text;
    }
    const QChar quote = token.text[0];
    QString inner = token.text.mid(1, token.text.size() - 2);
    if (quote == u'[') {
        return inner;
    }
    return inner.replace(QString(2, quote), QString(quote));
}

QString sqlLiteral(const QString& text) {
    QString escaped = text;
    escaped.replace(u'\'', QStringLiteral("''"));
    return u'\'' + escaped + u'\'';
}

QString quotedName(const QString& name) {
    QString escaped = name;
    escaped.replace(u'"', QStringLiteral("\"\""));
    return u'"' + escaped + u'"';
}

}  // namespace sql
