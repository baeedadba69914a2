#pragma once

#include <QList>
#include <QString>

// Splits a statement of the program's SQL into tokens, so the dialect translation can
// change literals and operators without ever touching text inside quotes.
namespace sql {

struct Token {
    enum Kind {
        Blank,      // white space
        Comment,    // -- to the end of the line, or /* ... */
        Word,       // a name or keyword
        Name,       // a quoted name: [Name] or `Name`
        JetString,  // "text" (a string literal in Jet, a name in SQLite)
        SqlString,  // 'text'
        Number,     // 12, 1.5, 1e3
        Symbol,     // any other character: ( ) , ; + - = . * ...
    };
    Kind kind;
    QString text;

    bool isSymbol(QChar c) const { return kind == Symbol && text.size() == 1 && text[0] == c; }
    bool isWord(const char* word) const;
    bool isString() const { return kind == JetString || kind == SqlString; }
    // White space or a comment: what may stand between any two tokens.
    bool isSpacing() const { return kind == Blank || kind == Comment; }
};

QList<Token> tokenize(const QString& text);
QString join(const QList<Token>& tokens);

// The index of the next token after 'from' that is not spacing, or tokens.size().
qsizetype nextSolid(const QList<Token>& tokens, qsizetype from);
// The index of the last token before 'from' that is not spacing, or -1.
qsizetype previousSolid(const QList<Token>& tokens, qsizetype from);

// The contents of a quoted literal without its quotes, doubled quotes undone.
QString unquoted(const Token& token);
// A text as an SQLite string literal.
QString sqlLiteral(const QString& text);
// A table or column name quoted for SQLite.
QString quotedName(const QString& name);

}  // namespace sql
