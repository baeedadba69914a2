#pragma once

#include <QString>

// Translates the program's Jet SQL into SQLite's, touching only what SQLite does not
// understand: True/False, "..." string literals, + between texts, the Jet type names
// and ADD COLUMN / ALTER COLUMN forms of DDL. Raises Error when the text holds more
// than one statement. SQLite has no statement for ALTER COLUMN: its text comes back
// unchanged, and Connection::execute carries it out.
namespace jet {

QString translate(const QString& sql);

}  // namespace jet
