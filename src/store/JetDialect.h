#pragma once

#include <QString>

// Translates the program's Jet SQL into SQLite's, touching only what SQLite does not
// understand: True/False, "..." string literals, + between texts, the Jet type names
// and ADD COLUMN / ALTER COLUMN forms of DDL. Raises Error when the text holds more
// than one statement.
namespace jet {

QString translate(const QString& sql);

}  // namespace jet
