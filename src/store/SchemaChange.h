#pragma once

#include "store/JetDialect.h"

struct sqlite3;

namespace schema {

// ALTER TABLE t ALTER COLUMN c <type>: SQLite has no such statement, so the column's
// declared type is rewritten in the table's definition, keeping every row. A text
// length that existing values exceed is refused with error 3163 and changes nothing.
void alterColumn(sqlite3* db, const jet::Translation& change);

}  // namespace schema
