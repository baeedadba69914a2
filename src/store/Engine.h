#pragma once

#include <QString>
#include <utility>

#include "base/Error.h"
#include "store/JetDialect.h"

struct sqlite3;
struct sqlite3_stmt;

// The few things every part of the engine does with SQLite: raise its errors as the
// program's Error, own a prepared statement, and prepare the program's SQL.
namespace engine {

// Errors of the engine's own rules (no current row, field too small, ...).
Error error(long number, const QString& description);
// SQLite's failure as an Error carrying its result code and message.
[[noreturn]] void fail(sqlite3* db, int resultCode);

Error noCurrentRecord();
Error textAfterStatement();
Error itemNotFound(const QString& name);
Error notUpdatable();

// Runs a prepared statement one step: true when a row is ready, false when it has run to
// its end; SQLite's failure raised as an Error.
bool step(sqlite3_stmt* statement);

class Statement {
public:
    Statement() = default;
    explicit Statement(sqlite3_stmt* statement) : statement_(statement) {}
    ~Statement();
    Statement(Statement&& other) noexcept : statement_(std::exchange(other.statement_, nullptr)) {}
    Statement& operator=(Statement&& other) noexcept;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    sqlite3_stmt* get() const { return statement_; }
    explicit operator bool() const { return statement_ != nullptr; }

    bool step() { return engine::step(statement_); }
    void finalize();

private:
    sqlite3_stmt* statement_ = nullptr;
};

// The program's SQL as SQLite reads it, with the database's column types at hand.
jet::Translation translate(sqlite3* db, const QString& jetSql);

// Prepares one statement of the program's SQL. ALTER COLUMN is not a query: it is refused
// here and carried out by the connection.
Statement prepare(sqlite3* db, const QString& jetSql);
// Prepares SQLite's own SQL, exactly one statement.
Statement prepareNative(sqlite3* db, const QString& sql);
// Runs SQLite's own SQL to its end.
void run(sqlite3* db, const QString& sql);

}  // namespace engine
