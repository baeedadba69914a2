#pragma once

#include <QString>

// The folder the program lives in (the executable's folder); db.daa, daa.mdb and the
// help file are looked for there. Tests point it at a temporary folder.
namespace ProgramFolder {

QString path();
void setForTests(const QString& folder);  // an empty text restores the executable's folder

}  // namespace ProgramFolder
