#include "TempProgramFolder.h"

#include "base/ProgramFolder.h"

TempProgramFolder::TempProgramFolder() {
    ProgramFolder::setForTests(dir_.path());
}

TempProgramFolder::~TempProgramFolder() {
    ProgramFolder::setForTests(QString());
}
