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
void reportImportFailure(const QString& reason = QString());
// What the import help shows for table: the fields a file must hold, in order. Raises
// Error when the table does not exist.
QString importHelpText(const QString& table);

// Copies db.daa into a chosen folder as <ddmmyyyy>db.bu1: always a whole, checked
// database, which replaces an earlier backup of the day only once it is complete.
bool backup();

enum class RestoreCheck {
    None,                 // the menu: any file replaces db.daa, as it always has
    ProgramDatabaseOnly,  // refuse, with a message, a file that is no database of ours
};
// Puts a chosen backup file in the place of db.daa; the replaced database stays beside it
// as db.daa.vorige. With a check, a refused or failed restore says why.
bool restore(RestoreCheck check = RestoreCheck::None);

// Removes what interrupted work (a killed backup, restore or export) left in the program
// folder. Run once at the start of either program.
void removeLeftovers();

}  // namespace exchange
