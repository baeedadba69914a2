#include "store/jet/JetConversion.h"

#include <sqlite3.h>

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <cfloat>
#include <limits>
#include <optional>

#include "base/Error.h"
#include "store/jet/JetReader.h"
#include "store/jet/JetText.h"

static void initialiseSchemaResource() {
    Q_INIT_RESOURCE(jet);
}

namespace jet {
namespace {

constexpr qint64 kProgressStep = 1024;

Error writeError(sqlite3* db, const QString& what) {
    return Error(sqlite3_extended_errcode(db), QStringLiteral("SQLite"),
                 QStringLiteral("Het nieuwe databasebestand kon niet worden geschreven (%1): %2")
                     .arg(what, QString::fromUtf8(sqlite3_errmsg(db))));
}

// The new database while it is being written; closed (and checked) by finish().
class NewDatabase {
public:
    explicit NewDatabase(const QString& path) {
        const int rc = sqlite3_open_v2(
            QFile::encodeName(path).constData(), &db_,
            SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
        if (rc != SQLITE_OK) {
            throw writeError(db_, QStringLiteral("openen"));
        }
    }
    ~NewDatabase() {
        if (db_) {
            sqlite3_close_v2(db_);
        }
    }
    NewDatabase(const NewDatabase&) = delete;
    NewDatabase& operator=(const NewDatabase&) = delete;

    sqlite3* db() const { return db_; }

    void exec(const QString& sql) {
        if (sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            throw writeError(db_, sql.left(40));
        }
    }

    // The first column of the first row, as a whole number (0 for Null or no row).
    qint64 scalar(const QString& sql) {
        sqlite3_stmt* statement = prepare(sql);
        const int rc = sqlite3_step(statement);
        const qint64 value = rc == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : 0;
        sqlite3_finalize(statement);
        if (rc != SQLITE_ROW && rc != SQLITE_DONE) {
            throw writeError(db_, sql.left(40));
        }
        return value;
    }

    sqlite3_stmt* prepare(const QString& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &statement, nullptr) !=
            SQLITE_OK) {
            throw writeError(db_, sql.left(40));
        }
        return statement;
    }

    void finish() {
        if (sqlite3_close(db_) != SQLITE_OK) {
            throw writeError(db_, QStringLiteral("sluiten"));
        }
        db_ = nullptr;
    }

private:
    sqlite3* db_ = nullptr;
};

struct Statement {
    sqlite3_stmt* handle;
    ~Statement() { sqlite3_finalize(handle); }
};

// A column of the new schema and the Jet column its values come from.
struct Target {
    enum Kind { Whole, Money, Real, YesNo, Date, Text } kind = Whole;
    QString name;
    qint64 min = 0, max = 0;  // of a whole number
    bool single = false;      // a real that must fit a Single
    int maxChars = 0;         // of a text
    int source = -1;          // Jet column; -1 when the old file lacks it (Null in every row)
};

Target targetOf(const QString& name, const QString& declared, bool key) {
    static const QRegularExpression text(QStringLiteral("^TEXT(?:\\s*\\((\\d+)\\))?"),
                                         QRegularExpression::CaseInsensitiveOption);
    Target target;
    target.name = name;
    const QString type = declared.trimmed().toUpper();
    const auto whole = [&](qint64 min, qint64 max) {
        target.kind = Target::Whole;
        target.min = min;
        target.max = max;
    };
    if (key || type == QLatin1String("LONG")) {
        whole(std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
    } else if (type == QLatin1String("INTEGER")) {
        whole(std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max());
    } else if (type == QLatin1String("BYTE")) {
        whole(0, 255);
    } else if (type == QLatin1String("CURRENCY")) {
        target.kind = Target::Money;
    } else if (type == QLatin1String("DOUBLE") || type == QLatin1String("SINGLE")) {
        target.kind = Target::Real;
        target.single = type == QLatin1String("SINGLE");
    } else if (type == QLatin1String("YESNO")) {
        target.kind = Target::YesNo;
    } else if (type == QLatin1String("DATETIME")) {
        target.kind = Target::Date;
    } else if (const auto match = text.match(type); match.hasMatch()) {
        target.kind = Target::Text;
        target.maxChars = match.captured(1).isEmpty() ? 255 : match.captured(1).toInt();
    } else {
        throw Error(Error::TypeMismatch, QStringLiteral("Jet"),
                    QStringLiteral("Onbekend kolomtype %1 voor %2 in het nieuwe schema.")
                        .arg(declared, name));
    }
    return target;
}

bool isWholeKind(ColumnKind kind) {
    return kind == ColumnKind::Byte || kind == ColumnKind::Integer || kind == ColumnKind::Long;
}

// Why a value cannot go into its column; nothing when it can. Binds it when it can.
std::optional<std::pair<long, QString>> bind(sqlite3_stmt* statement, int parameter,
                                             const Target& target, const Column& column,
                                             const Value& value) {
    if (value.isNull) {
        sqlite3_bind_null(statement, parameter);
        return std::nullopt;
    }
    const auto mismatch = std::make_pair(
        long(Error::TypeMismatch),
        QStringLiteral("de kolom houdt in het oude bestand een ander soort gegevens"));
    switch (target.kind) {
        case Target::Whole:
            if (!isWholeKind(column.kind)) {
                return mismatch;
            }
            if (value.whole < target.min || value.whole > target.max) {
                return std::make_pair(long(Error::Overflow),
                                      QStringLiteral("het getal %1 past niet in de kolom "
                                                     "(die houdt %2 tot en met %3)")
                                          .arg(value.whole)
                                          .arg(target.min)
                                          .arg(target.max));
            }
            sqlite3_bind_int64(statement, parameter, value.whole);
            return std::nullopt;
        case Target::Money:
            if (column.kind == ColumnKind::Money) {
                sqlite3_bind_int64(statement, parameter, value.whole);
            } else if (isWholeKind(column.kind)) {
                sqlite3_bind_int64(statement, parameter, value.whole * 10000);
            } else {
                return mismatch;
            }
            return std::nullopt;
        case Target::Real: {
            double real = value.real;
            if (isWholeKind(column.kind)) {
                real = double(value.whole);
            } else if (column.kind != ColumnKind::Double && column.kind != ColumnKind::Single) {
                return mismatch;
            }
            if (target.single && std::abs(real) > FLT_MAX) {
                return std::make_pair(
                    long(Error::Overflow),
                    QStringLiteral("het getal %1 is te groot voor de kolom").arg(real));
            }
            sqlite3_bind_double(statement, parameter, real);
            return std::nullopt;
        }
        case Target::YesNo:
            if (column.kind != ColumnKind::Boolean) {
                return mismatch;
            }
            sqlite3_bind_int(statement, parameter, value.whole ? 1 : 0);
            return std::nullopt;
        case Target::Date:
            if (column.kind != ColumnKind::DateTime) {
                return mismatch;
            }
            sqlite3_bind_text(statement, parameter, value.text.toUtf8().constData(), -1,
                              SQLITE_TRANSIENT);
            return std::nullopt;
        case Target::Text:
            if (column.kind != ColumnKind::Text) {
                return mismatch;
            }
            if (value.text.size() > target.maxChars) {
                return std::make_pair(long(Error::FieldTooSmall),
                                      QStringLiteral("de tekst is %1 tekens lang; de kolom "
                                                     "neemt er hoogstens %2")
                                          .arg(value.text.size())
                                          .arg(target.maxChars));
            }
            sqlite3_bind_text16(statement, parameter, value.text.utf16(),
                                int(value.text.size() * sizeof(char16_t)), SQLITE_STATIC);
            return std::nullopt;
    }
    return mismatch;
}

// One table of the conversion: the new schema's columns matched with the old file's.
class TableCopy {
public:
    TableCopy(NewDatabase& target, Table& source) : source_(source) {
        Statement info{target.prepare(QStringLiteral("PRAGMA table_info(%1)").arg(source.name()))};
        while (sqlite3_step(info.handle) == SQLITE_ROW) {
            const QString name = QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(info.handle, 1)));
            const QString type = QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(info.handle, 2)));
            const bool key = sqlite3_column_int(info.handle, 5) != 0;
            Target column = targetOf(name, type, key);
            column.source = source.indexOf(name);
            if (key) {
                keyIndex_ = int(targets_.size());
            }
            targets_.push_back(column);
        }
        if (keyIndex_ < 0 || targets_[keyIndex_].source < 0) {
            throw Error(Error::ItemNotFound, QStringLiteral("Jet"),
                        QStringLiteral("De tabel %1 van het oude bestand mist haar sleutel.")
                            .arg(source.name()));
        }
        for (size_t i = 0; i < source.columns().size(); ++i) {
            const bool known = std::any_of(targets_.begin(), targets_.end(),
                                           [&](const Target& t) { return t.source == int(i); });
            if (!known) {
                unknownSources_.push_back(int(i));
            }
        }
        QStringList names, parameters;
        for (const Target& column : targets_) {
            names << column.name;
            parameters << QStringLiteral("?");
        }
        insert_.handle =
            target.prepare(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                               .arg(source.name(), names.join(','), parameters.join(',')));
    }

    int sourceOf(const QString& column) const {
        for (const Target& target : targets_) {
            if (target.name.compare(column, Qt::CaseInsensitive) == 0) {
                return target.source;
            }
        }
        return -1;
    }

    // Writes the current row of the source; an Error names the row and column that the new
    // schema cannot hold.
    void writeCurrentRow(sqlite3* db) {
        if (source_.value(targets_[keyIndex_].source).isNull) {
            throw refusal(Error::TypeMismatch, targets_[keyIndex_].name,
                          QStringLiteral("de sleutel ontbreekt"));
        }
        for (int i : unknownSources_) {
            if (!source_.value(i).isNull) {
                throw refusal(Error::ItemNotFound, source_.columns()[i].name,
                              QStringLiteral("deze kolom bestaat niet in het nieuwe formaat"));
            }
        }
        for (size_t i = 0; i < targets_.size(); ++i) {
            const Target& target = targets_[i];
            const int parameter = int(i) + 1;
            if (target.source < 0) {
                sqlite3_bind_null(insert_.handle, parameter);
                continue;
            }
            if (auto problem =
                    bind(insert_.handle, parameter, target, source_.columns()[target.source],
                         source_.value(target.source))) {
                throw refusal(problem->first, target.name, problem->second);
            }
        }
        const int rc = sqlite3_step(insert_.handle);
        sqlite3_reset(insert_.handle);
        if (rc != SQLITE_DONE) {
            throw writeError(db, source_.name());
        }
    }

private:
    Error refusal(long number, const QString& column, const QString& problem) const {
        const Target& key = targets_[keyIndex_];
        const Value& keyValue = source_.value(key.source);
        const QString keyText =
            keyValue.isNull ? QStringLiteral("(leeg)") : QString::number(keyValue.whole);
        return Error(number, QStringLiteral("Jet"),
                     QStringLiteral("Tabel %1, %2 %3, kolom %4: %5.")
                         .arg(source_.name(), key.name, keyText, column, problem));
    }

    Table& source_;
    std::vector<Target> targets_;
    std::vector<int> unknownSources_;
    int keyIndex_ = -1;
    Statement insert_{nullptr};
};

// What one table adds up to, as read from the old file and kept in the new one.
struct Tally {
    qint64 read = 0;
    qint64 written = 0;
    qint64 totalWritten = 0;  // sum of TotaalPrijs over the written rows
};

class Conversion {
public:
    Conversion(const QString& source, const QString& target, const ProgressCallback& progress,
               const QString& schema)
        : jet_(source), target_(target), progress_(progress) {
        target_.exec(schema);
        // The schema's sample rows make way for the old file's own.
        target_.exec(
            QStringLiteral("DELETE FROM BTW; DELETE FROM Instellingen; "
                           "DELETE FROM sqlite_sequence; PRAGMA foreign_keys = ON; "
                           "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF"));
    }

    ConversionResult run() {
        // libmdb reads its catalogue again for every table it opens, which ends the
        // previous table's definition: one table at a time.
        for (const QString& name : convertedTables()) {
            if (!jet_.hasTable(name)) {
                throw Error(Error::ItemNotFound, QStringLiteral("Jet"),
                            QStringLiteral("Het oude bestand mist de tabel %1.").arg(name));
            }
            total_ += jet_.open(name)->announcedRows();
        }
        target_.exec(QStringLiteral("BEGIN"));
        for (const QString& name : convertedTables()) {
            copy(*jet_.open(name));
        }
        target_.exec(QStringLiteral("COMMIT"));
        check();
        target_.finish();
        return std::move(result_);
    }

private:
    void copy(Table& table) {
        TableCopy copy(target_, table);
        const bool lines = table.name() == QLatin1String("ArtikelPerFactuur");
        const int invoice = lines ? copy.sourceOf(QStringLiteral("FactuurID")) : -1;
        const int total = copy.sourceOf(QStringLiteral("TotaalPrijs"));
        const int key =
            copy.sourceOf(table.name() == QLatin1String("Artikel") ? QStringLiteral("ArtikelID")
                                                                   : QStringLiteral("FactuurID"));
        const int stock = copy.sourceOf(QStringLiteral("Voorraad"));
        Tally& tally = tallies_[table.name()];
        if (lines) {
            for (const Column& column : table.columns()) {
                result_.orphanHeader << column.name;
            }
        }
        while (table.next()) {
            ++tally.read;
            if (lines && isOrphan(table, invoice)) {
                result_.orphans << rowText(table);
            } else {
                copy.writeCurrentRow(target_.db());
                ++tally.written;
                if (total >= 0 && !table.value(total).isNull) {
                    tally.totalWritten += table.value(total).whole;
                }
                remember(table, key, stock);
            }
            if (++done_ % kProgressStep == 0) {
                report();
            }
        }
        if (tally.read != table.announcedRows()) {
            throw Error(kDamaged, QStringLiteral("Jet"),
                        QStringLiteral("Het oude bestand is beschadigd of onvolledig: van de "
                                       "tabel %1 zijn %2 van de %3 rijen te lezen.")
                            .arg(table.name())
                            .arg(tally.read)
                            .arg(table.announcedRows()));
        }
        result_.tables << TableCount{table.name(), tally.written};
        report();
    }

    bool isOrphan(const Table& table, int invoice) const {
        return invoice < 0 || table.value(invoice).isNull ||
               !invoices_.contains(table.value(invoice).whole);
    }

    void remember(const Table& table, int key, int stock) {
        if (table.name() == QLatin1String("Factuur") && key >= 0) {
            invoices_.insert(table.value(key).whole);
        }
        if (table.name() == QLatin1String("Artikel") && key >= 0 && stock >= 0 &&
            !table.value(stock).isNull) {
            result_.stock.insert(table.value(key).whole, table.value(stock).whole);
        }
    }

    static QStringList rowText(const Table& table) {
        QStringList row;
        for (size_t i = 0; i < table.columns().size(); ++i) {
            row << valueText(table.columns()[i], table.value(int(i)));
        }
        return row;
    }

    void report() {
        if (progress_ && !progress_(done_, total_)) {
            throw Error(Error::DialogCancelled, QStringLiteral("Jet"),
                        QStringLiteral("Het omzetten is afgebroken."));
        }
    }

    // The new file read back: what went in must be there, to the last row and cent.
    void check() {
        for (const TableCount& table : std::as_const(result_.tables)) {
            const Tally& tally = tallies_[table.table];
            const qint64 rows =
                target_.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table.table));
            if (rows != tally.written) {
                throw checkFailed(QStringLiteral("de tabel %1 heeft %2 rijen in plaats van %3")
                                      .arg(table.table)
                                      .arg(rows)
                                      .arg(tally.written));
            }
        }
        for (const QString& table :
             {QStringLiteral("Factuur"), QStringLiteral("ArtikelPerFactuur")}) {
            const qint64 sum =
                target_.scalar(QStringLiteral("SELECT SUM(TotaalPrijs) FROM %1").arg(table));
            if (sum != tallies_[table].totalWritten) {
                throw checkFailed(
                    QStringLiteral("de som van %1.TotaalPrijs is %2 in plaats van %3")
                        .arg(table, moneyText(sum), moneyText(tallies_[table].totalWritten)));
            }
        }
        if (target_.scalar(QStringLiteral("SELECT COUNT(*) FROM pragma_foreign_key_check")) != 0) {
            throw checkFailed(QStringLiteral("er zijn factuurregels zonder factuur"));
        }
    }

    static Error checkFailed(const QString& what) {
        return Error(
            kDamaged, QStringLiteral("Jet"),
            QStringLiteral("De controle van het nieuwe bestand klopt niet: %1.").arg(what));
    }

    static constexpr long kDamaged = 3343;

    Database jet_;
    NewDatabase target_;
    const ProgressCallback& progress_;
    ConversionResult result_;
    QHash<QString, Tally> tallies_;
    QSet<qint64> invoices_;
    qint64 done_ = 0;
    qint64 total_ = 0;
};

}  // namespace

QString programSchema() {
    initialiseSchemaResource();
    QFile file(QStringLiteral(":/jet/schema.sql"));
    if (!file.open(QIODevice::ReadOnly)) {
        throw Error(Error::FileNotFound, QStringLiteral("Jet"),
                    QStringLiteral("Het schema van het programma ontbreekt."));
    }
    return QString::fromUtf8(file.readAll());
}

const QStringList& convertedTables() {
    static const QStringList tables{QStringLiteral("BTW"),
                                    QStringLiteral("Artikel"),
                                    QStringLiteral("Klant"),
                                    QStringLiteral("Factuur"),
                                    QStringLiteral("ArtikelPerFactuur"),
                                    QStringLiteral("Instellingen")};
    return tables;
}

ConversionResult convert(const QString& source, const QString& target,
                         const ProgressCallback& progress, const QString& schema) {
    return Conversion(source, target, progress, schema).run();
}

QHash<qint64, qint64> stockOf(const QString& jetFile) {
    const Database database(jetFile);
    const std::unique_ptr<Table> table = database.open(QStringLiteral("Artikel"));
    const int key = table->indexOf(QStringLiteral("ArtikelID"));
    const int stock = table->indexOf(QStringLiteral("Voorraad"));
    QHash<qint64, qint64> result;
    if (key < 0 || stock < 0) {
        return result;
    }
    while (table->next()) {
        if (!table->value(stock).isNull) {
            result.insert(table->value(key).whole, table->value(stock).whole);
        }
    }
    return result;
}

}  // namespace jet
