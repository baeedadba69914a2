#pragma once

#include <QString>

// The routines behind the menu's data-exchange entries, shared by the program's window and
// by lindebrug-cli. Each asks the user through the UI service, shows its own messages and
// tells whether it did its work (false also when the user cancelled).
namespace exchange {

// The file's base name for an export tool of the menu ("tlExpKlanten" -> "klant"),
// "onbekend" for any other name.
QString exportBaseName(const QString& toolName);
// Asks for a folder and writes the register baseName there as baseName.extension.
bool exportRegister(const QString& baseName, const QString& extension);

// Asks for a file and appends its lines to table.
bool importTable(const QString& table);
// "Importeren vanuit bestand mislukt!", also what the help reports for a missing table.
void reportImportFailure();
// What the import help shows for table: the fields a file must hold, in order. Raises
// Error when the table does not exist.
QString importHelpText(const QString& table);

// Copies db.daa into a chosen folder as <ddmmyyyy>db.bu1.
bool backup();
// Puts a chosen backup file in the place of db.daa.
bool restore();

}  // namespace exchange
