#include "store/Engine.h"

#include <sqlite3.h>

#include "store/ColumnValues.h"

namespace engine {

namespace {

const QString kSource = QStringLiteral("Database-engine");

// Answers the dialect translation from the database's own column declarations.
class SchemaColumnTypes : public jet::ColumnTypes {
public:
    explicit SchemaColumnTypes(sqlite3* db) : db_(db) {}

    bool isText(const QStringList& tables, const QString& column) const override {
        const QByteArray columnName = column.toUtf8();
        for (const QString& table : tables) {
            const char* declared = nullptr;
            if (sqlite3_table_column_metadata(db_, nullptr, table.toUtf8().constData(),
                                              columnName.constData(), &declared, nullptr, nullptr,
                                              nullptr, nullptr) == SQLITE_OK &&
                columns::declaredType(declared, false).type == FieldType::Text) {
                return true;
            }
        }
        return false;
    }

private:
    sqlite3* db_;
};

}  // namespace

Error error(long number, const QString& description) {
    return Error(number, kSource, description);
}

void fail(sqlite3* db, int resultCode) {
    throw Error(resultCode & 0xff, QStringLiteral("SQLite"), QString::fromUtf8(sqlite3_errmsg(db)));
}

Error noCurrentRecord() {
    return error(Error::NoCurrentRecord, QStringLiteral("Er is geen huidig record."));
}

Error textAfterStatement() {
    return error(Error::CharactersAfterEnd,
                 QStringLiteral("Er zijn tekens gevonden na het einde van de "
                                "SQL-instructie."));
}

Error itemNotFound(const QString& name) {
    return error(Error::ItemNotFound,
                 QStringLiteral("Het item '%1' is niet gevonden in de verzameling die "
                                "overeenkomt met de gevraagde naam of het gevraagde "
                                "rangnummer.")
                     .arg(name));
}

Error notUpdatable() {
    return error(Error::NotUpdatable, QStringLiteral("Deze recordset kan niet worden bijgewerkt."));
}

Statement::~Statement() {
    sqlite3_finalize(statement_);
}

Statement& Statement::operator=(Statement&& other) noexcept {
    if (this != &other) {
        sqlite3_finalize(statement_);
        statement_ = std::exchange(other.statement_, nullptr);
    }
    return *this;
}

bool step(sqlite3_stmt* statement) {
    const int rc = sqlite3_step(statement);
    if (rc == SQLITE_ROW) {
        return true;
    }
    if (rc != SQLITE_DONE) {
        fail(sqlite3_db_handle(statement), rc);
    }
    return false;
}

void Statement::finalize() {
    sqlite3_finalize(statement_);
    statement_ = nullptr;
}

jet::Translation translate(sqlite3* db, const QString& jetSql) {
    return jet::translateStatement(jetSql, SchemaColumnTypes(db));
}

Statement prepare(sqlite3* db, const QString& jetSql) {
    const jet::Translation translation = translate(db, jetSql);
    if (translation.isAlterColumn()) {
        throw error(Error::InvalidOperation,
                    QStringLiteral("Ongeldige bewerking: deze opdracht geeft geen "
                                   "records terug."));
    }
    return prepareNative(db, translation.sql);
}

Statement prepareNative(sqlite3* db, const QString& sql) {
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    const int rc = sqlite3_prepare_v2(db, text.constData(), int(text.size()), &statement, &tail);
    Statement result(statement);
    if (rc != SQLITE_OK) {
        fail(db, rc);
    }
    if (!result) {
        throw error(Error::InvalidStatement,
                    QStringLiteral("Ongeldige SQL-instructie: de opdracht is leeg."));
    }
    if (!QByteArray(tail).trimmed().isEmpty()) {
        throw textAfterStatement();
    }
    return result;
}

void run(sqlite3* db, const QString& sql) {
    Statement statement = prepareNative(db, sql);
    while (statement.step()) {
    }
}

}  // namespace engine
