#pragma once

#include <QString>
#include <list>
#include <unordered_map>

#include "store/Engine.h"

struct sqlite3;
struct sqlite3_stmt;

namespace engine {

// One open database file: the SQLite handle and the statements the engine writes rows
// with, each prepared once and reused. An import writes the same INSERT a hundred thousand
// times; preparing it anew for every row cost more than storing the row.
// SQLite prepares a kept statement again by itself when the schema has changed since.
class Session {
public:
    // Takes the handle over; it is closed with the session, after its statements.
    explicit Session(sqlite3* db);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    sqlite3* db() const { return db_; }

    // A kept statement in use: its parameters are free to bind, and it is reset and its
    // bindings cleared when the use ends. One use of a text at a time.
    class Use {
    public:
        explicit Use(sqlite3_stmt* statement) : statement_(statement) {}
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

        sqlite3_stmt* get() const { return statement_; }
        bool step() { return engine::step(statement_); }

    private:
        sqlite3_stmt* statement_;
    };

    // SQLite's own SQL, exactly one statement, as prepared the first time it was asked for.
    Use statement(const QString& sql);

private:
    // Few texts recur (an INSERT per set of assigned fields, one DELETE per table):
    // the least recently used one goes when there are more.
    static constexpr std::size_t kKept = 32;

    struct Kept {
        QString sql;
        Statement statement;
    };

    sqlite3* db_;
    std::list<Kept> kept_;  // most recently used first
    std::unordered_map<QString, std::list<Kept>::iterator> bySql_;
};

}  // namespace engine
