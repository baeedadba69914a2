#pragma once

#include <QString>
#include <QTemporaryDir>

// A fresh, empty program folder for one test; the program looks for its files there
// until the object goes.
class TempProgramFolder {
public:
    TempProgramFolder();
    ~TempProgramFolder();

    QString path() const { return dir_.path(); }
    QString file(const QString& name) const { return dir_.filePath(name); }

private:
    QTemporaryDir dir_;
};
