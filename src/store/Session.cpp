#include "store/Session.h"

#include <sqlite3.h>

namespace engine {

Session::Session(sqlite3* db) : db_(db) {}

Session::~Session() {
    bySql_.clear();
    kept_.clear();
    sqlite3_close_v2(db_);
}

Session::Use::~Use() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

Session::Use Session::statement(const QString& sql) {
    const auto found = bySql_.find(sql);
    if (found != bySql_.end()) {
        kept_.splice(kept_.begin(), kept_, found->second);
        return Use(found->second->statement.get());
    }
    Statement prepared = prepareNative(db_, sql);
    if (kept_.size() >= kKept) {
        bySql_.erase(kept_.back().sql);
        kept_.pop_back();
    }
    kept_.push_front(Kept{sql, std::move(prepared)});
    bySql_.emplace(sql, kept_.begin());
    return Use(kept_.front().statement.get());
}

}  // namespace engine
