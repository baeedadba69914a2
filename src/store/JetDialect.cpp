#include "store/JetDialect.h"

#include <QRegularExpression>

#include "store/Engine.h"
#include "store/SqlLexer.h"

namespace jet {

namespace {

using sql::Token;
using Tokens = QList<Token>;

QString nameOf(const Token& token) {
    return token.kind == Token::Name ? sql::unquoted(token) : token.text;
}

bool isName(const Token& token) {
    return token.kind == Token::Word || token.kind == Token::Name;
}

Tokens trimmed(Tokens tokens) {
    while (!tokens.isEmpty() && tokens.first().isSpacing()) {
        tokens.removeFirst();
    }
    while (!tokens.isEmpty() && tokens.last().isSpacing()) {
        tokens.removeLast();
    }
    return tokens;
}

// The statement up to its first ";". Jet runs one statement per call, so anything other
// than blanks after it is refused before anything runs.
Tokens singleStatement(const Tokens& tokens) {
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].isSymbol(u';')) {
            continue;
        }
        for (qsizetype j = i + 1; j < tokens.size(); ++j) {
            if (tokens[j].kind != Token::Blank && !tokens[j].isSymbol(u';')) {
                throw engine::textAfterStatement();
            }
        }
        return tokens.mid(0, i);
    }
    return tokens;
}

qsizetype matchingParen(const Tokens& tokens, qsizetype open) {
    int depth = 0;
    for (qsizetype i = open; i < tokens.size(); ++i) {
        if (tokens[i].isSymbol(u'(')) {
            ++depth;
        } else if (tokens[i].isSymbol(u')') && --depth == 0) {
            return i;
        }
    }
    return -1;
}

// The elements of a comma-separated list in tokens [begin, end), commas inside
// parentheses not counted.
QList<Tokens> splitList(const Tokens& tokens, qsizetype begin, qsizetype end) {
    QList<Tokens> elements(1);
    int depth = 0;
    for (qsizetype i = begin; i < end; ++i) {
        const Token& token = tokens[i];
        if (token.isSymbol(u'(')) {
            ++depth;
        } else if (token.isSymbol(u')')) {
            --depth;
        } else if (token.isSymbol(u',') && depth == 0) {
            elements.append(Tokens());
            continue;
        }
        elements.last().append(token);
    }
    for (Tokens& element : elements) {
        element = trimmed(element);
    }
    return elements;
}

bool isTrueOrFalse(const Tokens& tokens, qsizetype i) {
    if (!tokens[i].isWord("true") && !tokens[i].isWord("false")) {
        return false;
    }
    const qsizetype before = sql::previousSolid(tokens, i);
    const qsizetype after = sql::nextSolid(tokens, i);
    return !(before >= 0 && tokens[before].isSymbol(u'.')) &&
           !(after < tokens.size() && tokens[after].isSymbol(u'('));
}

void translateLiterals(Tokens& tokens) {
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        Token& token = tokens[i];
        if (token.kind == Token::JetString) {
            token = Token{Token::SqlString, sql::sqlLiteral(sql::unquoted(token))};
        } else if (isTrueOrFalse(tokens, i)) {
            token = Token{Token::Number,
                          token.isWord("true") ? QStringLiteral("1") : QStringLiteral("0")};
        }
    }
}

// What stands beside a "+": it joins texts when one side is text and neither is a number.
enum class Operand { None, Text, Number, Other };

class PlusTranslator {
public:
    PlusTranslator(Tokens& tokens, const ColumnTypes& columns)
        : tokens_(tokens), columns_(columns) {}

    void run() {
        for (qsizetype i = 0; i < tokens_.size(); ++i) {
            if (tokens_[i].isSymbol(u'+') && joinsTexts(i)) {
                tokens_[i].text = QStringLiteral("||");
            }
        }
    }

private:
    bool joinsTexts(qsizetype plus) {
        const Operand left = leftOperand(plus);
        const Operand right = rightOperand(plus);
        if (left == Operand::None || right == Operand::None || left == Operand::Number ||
            right == Operand::Number) {
            return false;
        }
        return left == Operand::Text || right == Operand::Text;
    }

    Operand leftOperand(qsizetype plus) {
        const qsizetype i = sql::previousSolid(tokens_, plus);
        if (i < 0) {
            return Operand::None;
        }
        const Token& token = tokens_[i];
        if (isName(token)) {
            const qsizetype dot = sql::previousSolid(tokens_, i);
            if (dot >= 0 && tokens_[dot].isSymbol(u'.')) {
                const qsizetype qualifier = sql::previousSolid(tokens_, dot);
                return column(qualifier >= 0 ? nameOf(tokens_[qualifier]) : QString(),
                              nameOf(token));
            }
            return column(QString(), nameOf(token));
        }
        return token.isSymbol(u')') ? Operand::Other : literal(token);
    }

    Operand rightOperand(qsizetype plus) {
        const qsizetype i = sql::nextSolid(tokens_, plus);
        if (i >= tokens_.size()) {
            return Operand::None;
        }
        const Token& token = tokens_[i];
        if (token.isSymbol(u'-') || token.isSymbol(u'+')) {
            return Operand::Number;
        }
        if (!isName(token)) {
            return token.isSymbol(u'(') ? Operand::Other : literal(token);
        }
        const qsizetype next = sql::nextSolid(tokens_, i);
        if (next < tokens_.size() && tokens_[next].isSymbol(u'(')) {
            return Operand::Other;
        }
        if (next < tokens_.size() && tokens_[next].isSymbol(u'.')) {
            const qsizetype name = sql::nextSolid(tokens_, next);
            return name < tokens_.size() ? column(nameOf(token), nameOf(tokens_[name]))
                                         : Operand::Other;
        }
        return column(QString(), nameOf(token));
    }

    static Operand literal(const Token& token) {
        if (token.isString()) {
            return Operand::Text;
        }
        return token.kind == Token::Number ? Operand::Number : Operand::None;
    }

    Operand column(const QString& qualifier, const QString& name) {
        const QStringList tables = qualifier.isEmpty() ? words() : QStringList{qualifier};
        return columns_.isText(tables, name) ? Operand::Text : Operand::Other;
    }

    const QStringList& words() {
        if (words_.isEmpty()) {
            for (const Token& token : tokens_) {
                if (isName(token) && !words_.contains(nameOf(token), Qt::CaseInsensitive)) {
                    words_.append(nameOf(token));
                }
            }
        }
        return words_;
    }

    Tokens& tokens_;
    const ColumnTypes& columns_;
    QStringList words_;
};

// One column of CREATE TABLE or ADD COLUMN, its Jet type turned into the declared type the
// engine keeps (so the program still reads YESNO, CURRENCY, TEXT(50) back from the file).
struct ColumnDefinition {
    QString name;
    QString type;
    QString rest;
    bool isText = false;
    bool autoIncrement = false;
    int textLength = 0;

    QString sql() const {
        QString text = name;
        if (!type.isEmpty()) {
            text += u' ' + type;
        }
        if (isText && !rest.contains(QLatin1String("COLLATE"), Qt::CaseInsensitive)) {
            text += QStringLiteral(" COLLATE NOCASE");
        }
        if (!rest.isEmpty()) {
            text += u' ' + rest;
        }
        return text;
    }
};

void applyJetType(ColumnDefinition& column, const QString& word, const QString& arguments) {
    static const QStringList counters{"AUTOINCREMENT", "COUNTER"};
    static const QStringList texts{"TEXT",   "VARCHAR",      "CHAR",    "CHARACTER",
                                   "STRING", "ALPHANUMERIC", "NVARCHAR"};
    static const QStringList memos{"MEMO", "LONGTEXT", "LONGCHAR", "NOTE", "NTEXT"};
    static const QStringList doubles{"NUMBER", "FLOAT", "FLOAT8", "IEEEDOUBLE"};
    static const QStringList booleans{"YESNO", "BIT", "LOGICAL", "LOGICAL1", "BOOLEAN"};
    static const QRegularExpression primaryKey(QStringLiteral("\\bPRIMARY\\s+KEY\\b\\s*"),
                                               QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression digits(QStringLiteral("\\d+"));

    const QString upper = word.toUpper();
    if (counters.contains(upper)) {
        column.type = QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
        column.autoIncrement = true;
        column.rest.remove(primaryKey);
        column.rest = column.rest.trimmed();
    } else if (texts.contains(upper)) {
        column.type = word + arguments;
        column.isText = true;
        column.textLength = digits.match(arguments).captured().toInt();
    } else if (memos.contains(upper)) {
        // LONGTEXT is Jet's own name for a memo, and gives the column text affinity.
        column.type = QStringLiteral("LONGTEXT");
        column.isText = true;
    } else if (doubles.contains(upper)) {
        column.type = QStringLiteral("DOUBLE");
    } else if (booleans.contains(upper)) {
        column.type = QStringLiteral("YESNO");
    } else {
        column.type = word + arguments;
    }
}

ColumnDefinition columnDefinition(const Tokens& element) {
    ColumnDefinition column;
    if (element.isEmpty()) {
        return column;
    }
    column.name = element.first().text;
    qsizetype i = sql::nextSolid(element, 0);
    if (i >= element.size() || element[i].kind != Token::Word) {
        column.rest = sql::join(element.mid(i)).trimmed();
        return column;
    }
    const QString word = element[i].text;
    QString arguments;
    qsizetype next = sql::nextSolid(element, i);
    if (next < element.size() && element[next].isSymbol(u'(')) {
        const qsizetype close = matchingParen(element, next);
        if (close > 0) {
            arguments = sql::join(element.mid(next, close - next + 1));
            i = close;
        }
    }
    column.rest = sql::join(element.mid(i + 1)).trimmed();
    applyJetType(column, word, arguments);
    return column;
}

bool isTableConstraint(const Tokens& element) {
    return !element.isEmpty() &&
           (element.first().isWord("PRIMARY") || element.first().isWord("CONSTRAINT") ||
            element.first().isWord("UNIQUE") || element.first().isWord("FOREIGN") ||
            element.first().isWord("CHECK"));
}

// "PRIMARY KEY (x)" or "CONSTRAINT name PRIMARY KEY (x)" on the one column x.
bool isPrimaryKeyOn(const Tokens& element, const QString& column) {
    QStringList words;
    for (const Token& token : element) {
        if (isName(token)) {
            words.append(nameOf(token).toUpper());
        }
    }
    if (words.size() >= 2 && words.first() == QLatin1String("CONSTRAINT")) {
        words = words.mid(2);
    }
    return words.size() == 3 && words[0] == QLatin1String("PRIMARY") &&
           words[1] == QLatin1String("KEY") && words[2] == column.toUpper();
}

QString createTable(const Tokens& tokens) {
    qsizetype open = 0;
    while (open < tokens.size() && !tokens[open].isSymbol(u'(')) {
        ++open;
    }
    const qsizetype close = open < tokens.size() ? matchingParen(tokens, open) : -1;
    if (close < 0) {
        return sql::join(tokens);
    }
    const QList<Tokens> elements = splitList(tokens, open + 1, close);
    QString autoIncrementColumn;
    for (const Tokens& element : elements) {
        if (!isTableConstraint(element) && columnDefinition(element).autoIncrement) {
            autoIncrementColumn = nameOf(element.first());
        }
    }
    QStringList items;
    for (const Tokens& element : elements) {
        if (!isTableConstraint(element)) {
            items.append(columnDefinition(element).sql());
        } else if (autoIncrementColumn.isEmpty() || !isPrimaryKeyOn(element, autoIncrementColumn)) {
            items.append(sql::join(element));
        }
    }
    return sql::join(tokens.mid(0, open)) + u'(' + items.join(QStringLiteral(", ")) + u')' +
           sql::join(tokens.mid(close + 1));
}

// The tokens of a column after ADD/ALTER [COLUMN], in either "c TYPE" or "(c, TYPE)" form.
Tokens columnTokens(const Tokens& tokens, qsizetype afterVerb) {
    qsizetype i = sql::nextSolid(tokens, afterVerb);
    if (i < tokens.size() && tokens[i].isWord("COLUMN")) {
        i = sql::nextSolid(tokens, i);
    }
    if (i < tokens.size() && tokens[i].isSymbol(u'(')) {
        const qsizetype close = matchingParen(tokens, i);
        const QList<Tokens> parts = splitList(tokens, i + 1, close < 0 ? tokens.size() : close);
        if (close == sql::previousSolid(tokens, tokens.size()) && parts.size() == 2) {
            return parts[0] + Tokens{Token{Token::Blank, QStringLiteral(" ")}} + parts[1];
        }
    }
    return trimmed(tokens.mid(i));
}

Translation alterTable(const Tokens& tokens, qsizetype table) {
    Translation result;
    const qsizetype verb = sql::nextSolid(tokens, table);
    if (verb >= tokens.size()) {
        result.sql = sql::join(tokens);
        return result;
    }
    if (tokens[verb].isWord("ADD")) {
        const ColumnDefinition column = columnDefinition(columnTokens(tokens, verb));
        result.sql = sql::join(tokens.mid(0, verb)) + QStringLiteral("ADD COLUMN ") + column.sql();
    } else if (tokens[verb].isWord("ALTER")) {
        const Tokens columnPart = columnTokens(tokens, verb);
        const ColumnDefinition column = columnDefinition(columnPart);
        result.alterTable = nameOf(tokens[table]);
        result.alterColumn = columnPart.isEmpty() ? QString() : nameOf(columnPart.first());
        result.alterType = column.type;
        result.alterToText = column.isText;
        result.textLength = column.textLength;
    } else {
        result.sql = sql::join(tokens);
    }
    return result;
}

Translation translateDdl(const Tokens& tokens) {
    const qsizetype first = sql::nextSolid(tokens, -1);
    const qsizetype second = sql::nextSolid(tokens, first);
    const qsizetype third = sql::nextSolid(tokens, second);
    Translation result;
    if (third < tokens.size() && tokens[second].isWord("TABLE")) {
        if (tokens[first].isWord("CREATE")) {
            result.sql = createTable(tokens);
            return result;
        }
        if (tokens[first].isWord("ALTER")) {
            return alterTable(tokens, third);
        }
    }
    result.sql = sql::join(tokens);
    return result;
}

}  // namespace

Translation translateStatement(const QString& jetSql, const ColumnTypes& columns) {
    Tokens tokens = trimmed(singleStatement(sql::tokenize(jetSql)));
    translateLiterals(tokens);
    PlusTranslator(tokens, columns).run();
    return translateDdl(tokens);
}

QString withColumnType(const QString& createSql, const QString& column, const QString& type,
                       bool isText) {
    static const QRegularExpression collation(QStringLiteral("\\bCOLLATE\\s+\\w+\\s*"),
                                              QRegularExpression::CaseInsensitiveOption);
    const Tokens tokens = sql::tokenize(createSql);
    qsizetype open = 0;
    while (open < tokens.size() && !tokens[open].isSymbol(u'(')) {
        ++open;
    }
    const qsizetype close = open < tokens.size() ? matchingParen(tokens, open) : -1;
    if (close < 0) {
        return QString();
    }
    QStringList items;
    bool found = false;
    for (const Tokens& element : splitList(tokens, open + 1, close)) {
        if (!isTableConstraint(element) &&
            nameOf(element.first()).compare(column, Qt::CaseInsensitive) == 0) {
            ColumnDefinition definition = columnDefinition(element);
            definition.type = type;
            definition.isText = isText;
            definition.rest = definition.rest.remove(collation).trimmed();
            items.append(definition.sql());
            found = true;
        } else {
            items.append(sql::join(element));
        }
    }
    if (!found) {
        return QString();
    }
    return sql::join(tokens.mid(0, open)) + u'(' + items.join(QStringLiteral(", ")) + u')' +
           sql::join(tokens.mid(close + 1));
}

}  // namespace jet
