#pragma once

#include <QString>

// Bringing over a db.daa of an earlier version of the program (an Access file): the
// question at start-up and the command lindebrug-cli omzetten. Every question and
// message goes through the UI service.
namespace JetMigrationController {

// At start-up, before anything opens db.daa. When db.daa is an old Access file the user is
// asked whether to convert it; the conversion shows its progress and ends with a short
// report. False when the program must end (the user said No, or the conversion failed);
// a db.daa in the current format, or none, is left to the rest of the start-up.
bool bringOverOldDatabase();

// lindebrug-cli omzetten [--controle] OUD.daa: converts OUD.daa into the program folder's
// db.daa, or with checkOnly only checks it and reports. True when that succeeded.
bool convertCommand(const QString& oldFile, bool checkOnly);

}  // namespace JetMigrationController
