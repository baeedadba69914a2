#pragma once

#include <QString>

// The folder the program lives in (the executable's folder); db.daa, daa.mdb and the
// help file are looked for there. Tests point it at a temporary folder.
namespace ProgramFolder {

QString path();
void setForTests(const QString& folder);  // an empty text restores the executable's folder

// The folder followed by the separator when it does not already end in one.
QString withSeparator(const QString& folder);

}  // namespace ProgramFolder
