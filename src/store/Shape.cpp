#include "store/Shape.h"

#include <algorithm>

#include "store/Engine.h"

namespace shape {

namespace {

class Parser {
public:
    explicit Parser(const QString& text) : text_(text) {}

    Command parseAll() {
        Command command = parseShape();
        skipBlanks();
        if (pos_ < text_.size() && text_[pos_] == u';') {
            ++pos_;
            skipBlanks();
        }
        if (pos_ < text_.size()) {
            throw expected(QStringLiteral("het einde van de opdracht"));
        }
        return command;
    }

private:
    Command parseShape() {
        expectWord("SHAPE");
        Command command;
        command.sql = braced();
        skipAlias();
        if (acceptWord("APPEND")) {
            do {
                command.appends.push_back(parseAppend(command.appends.size() + 1));
            } while (accept(u','));
        }
        return command;
    }

    Append parseAppend(std::size_t number) {
        expect(u'(');
        Append append;
        append.command = parseChild();
        expectWord("RELATE");
        do {
            const QString parent = name();
            expectWord("TO");
            append.relations.append({parent, name()});
        } while (accept(u','));
        expect(u')');
        append.name = acceptWord("AS") ? name() : QStringLiteral("Chapter%1").arg(number);
        return append;
    }

    Command parseChild() {
        skipBlanks();
        Command command;
        if (accept(u'(')) {
            command = parseShape();
            expect(u')');
        } else {
            command.sql = braced();
        }
        skipAlias();
        return command;
    }

    void skipAlias() {
        if (acceptWord("AS")) {
            name();
        }
    }

    // The text between { and its }, braces inside quoted literals not counted.
    QString braced() {
        expect(u'{');
        const qsizetype begin = pos_;
        QChar quote;
        for (; pos_ < text_.size(); ++pos_) {
            const QChar c = text_[pos_];
            if (!quote.isNull()) {
                quote = c == quote ? QChar() : quote;
            } else if (c == u'\'' || c == u'"') {
                quote = c;
            } else if (c == u'}') {
                return text_.mid(begin, pos_++ - begin);
            }
        }
        throw expected(QStringLiteral("'}'"));
    }

    QString name() {
        skipBlanks();
        if (pos_ < text_.size() &&
            (text_[pos_] == u'\'' || text_[pos_] == u'"' || text_[pos_] == u'[')) {
            const QChar close = text_[pos_] == u'[' ? QChar(u']') : text_[pos_];
            const qsizetype end = text_.indexOf(close, pos_ + 1);
            if (end < 0) {
                throw expected(QString(close));
            }
            const QString result = text_.mid(pos_ + 1, end - pos_ - 1);
            pos_ = end + 1;
            return result;
        }
        const qsizetype begin = pos_;
        while (pos_ < text_.size() && (text_[pos_].isLetterOrNumber() || text_[pos_] == u'_')) {
            ++pos_;
        }
        if (pos_ == begin) {
            throw expected(QStringLiteral("een naam"));
        }
        return text_.mid(begin, pos_ - begin);
    }

    bool acceptWord(const char* word) {
        skipBlanks();
        const QLatin1String expectedWord(word);
        const qsizetype end = pos_ + expectedWord.size();
        if (text_.mid(pos_, expectedWord.size()).compare(expectedWord, Qt::CaseInsensitive) != 0 ||
            (end < text_.size() && (text_[end].isLetterOrNumber() || text_[end] == u'_'))) {
            return false;
        }
        pos_ = end;
        return true;
    }

    void expectWord(const char* word) {
        if (!acceptWord(word)) {
            throw expected(QString::fromLatin1(word));
        }
    }

    bool accept(QChar c) {
        skipBlanks();
        if (pos_ < text_.size() && text_[pos_] == c) {
            ++pos_;
            return true;
        }
        return false;
    }

    void expect(QChar c) {
        if (!accept(c)) {
            throw expected(u'\'' + QString(c) + u'\'');
        }
    }

    void skipBlanks() {
        while (pos_ < text_.size() && text_[pos_].isSpace()) {
            ++pos_;
        }
    }

    Error expected(const QString& what) const {
        return engine::error(Error::SyntaxInFromClause,
                             QStringLiteral("Fout in de SHAPE-opdracht: %1 verwacht op "
                                            "positie %2.")
                                 .arg(what)
                                 .arg(pos_ + 1));
    }

    const QString& text_;
    qsizetype pos_ = 0;
};

int columnOf(const Level& level, const QString& name) {
    const int index = level.columns.indexOf(name);
    if (index < 0) {
        throw engine::itemNotFound(name);
    }
    return index;
}

// Past this many parent rows a child is read whole: a list of keys that long costs SQLite
// more than the rows it leaves out cost us.
constexpr qsizetype kMostKeys = 10000;

// A child related on one whole-number column needs only the rows of the parent's keys: an
// invoice printed from years of invoices reads its own lines, not every line there is.
// None where the child must be read whole.
std::optional<Level::Keys> relatedKeys(const Level& parent, const Append& append,
                                       const QList<int>& parentColumns) {
    if (parentColumns.size() != 1 || parent.rows.size() > kMostKeys ||
        append.relations.first().second.contains(u'.')) {
        return std::nullopt;
    }
    const int column = parentColumns.first();
    const FieldType type = parent.columns.fields()[column].type;
    if (type != FieldType::Long && type != FieldType::Integer) {
        return std::nullopt;
    }
    Level::Keys keys{append.relations.first().second, {}};
    for (const Level::Row& row : parent.rows) {
        const QVariant& value = row.values[column];
        if (value.typeId() != QMetaType::Int && value.typeId() != QMetaType::LongLong) {
            if (value.isValid()) {
                return std::nullopt;  // a value the column's kind did not hold
            }
            continue;  // Null relates to nothing
        }
        keys.values.append(value.toLongLong());
    }
    std::sort(keys.values.begin(), keys.values.end());
    keys.values.erase(std::unique(keys.values.begin(), keys.values.end()), keys.values.end());
    return keys;
}

}  // namespace

bool isShape(const QString& text) {
    const QString start = text.trimmed().left(6);
    return start.startsWith(QLatin1String("SHAPE"), Qt::CaseInsensitive) &&
           (start.size() == 5 || !start[5].isLetterOrNumber());
}

Command parse(const QString& text) {
    return Parser(text).parseAll();
}

std::shared_ptr<Level> build(sqlite3* db, const Command& command,
                             const std::optional<Level::Keys>& only) {
    std::shared_ptr<Level> level = Level::load(db, command.sql, only);
    for (const Append& append : command.appends) {
        Level::Relation relation;
        relation.name = append.name;
        for (const auto& relate : append.relations) {
            relation.parentColumns.append(columnOf(*level, relate.first));
        }
        relation.child =
            build(db, append.command, relatedKeys(*level, append, relation.parentColumns));
        for (const auto& relate : append.relations) {
            relation.childColumns.append(columnOf(*relation.child, relate.second));
        }
        const QList<Level::Row>& rows = relation.child->rows;
        for (int row = 0; row < rows.size(); ++row) {
            const std::optional<QString> key =
                Level::relationKey(rows[row].values, relation.childColumns);
            if (key) {
                relation.groups[*key].append(row);
            }
        }
        level->relations.append(std::move(relation));
    }
    return level;
}

}  // namespace shape
