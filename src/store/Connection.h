#pragma once

#include <QString>
#include <memory>

#include "store/Recordset.h"

struct sqlite3;
namespace engine {
class Session;
}

// A connection to one database file, speaking the program's Jet dialect of SQL on
// SQLite. Opened from either connection string the program uses:
//   "Data Provider=...;Data Source=<path>;Persist Security Info=False"
//   "DRIVER={...};DBQ=<path>;UID=sa;PWD=;"
// A missing file is never created: opening it fails. One statement per call; text
// after the first statement is refused, never run.
class Connection {
public:
    enum State { Closed = 0, Open = 1 };

    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void setProvider(const QString& provider) { provider_ = provider; }
    const QString& provider() const { return provider_; }

    void open(const QString& connectionString, const QString& user = QString(),
              const QString& password = QString());
    void close();
    State state() const;
    QString filePath() const;

    // Runs a statement that returns no rows; the number of rows it changed.
    qint64 execute(const QString& sql);
    // The read set of a SELECT or SHAPE text.
    std::unique_ptr<Recordset> openReadSet(const QString& sql);
    // The updatable client-side set of a SELECT (or SHAPE) text.
    std::unique_ptr<Recordset> openUpdatableSet(const QString& sql);

    void beginTrans();
    void commitTrans();
    void rollbackTrans();
    bool inTransaction() const;

    // The key the engine gave the last inserted row.
    qint64 lastInsertId() const;

    sqlite3* handle() const;

private:
    sqlite3* requireOpen() const;

    QString provider_;
    // Shared with the updatable sets, which write through it while the connection is open
    // and refuse to once it is closed.
    std::shared_ptr<engine::Session> session_;
    int transactionDepth_ = 0;
};

// Parses the path out of either connection string; empty when it names none.
QString databasePathFromConnectionString(const QString& connectionString);
