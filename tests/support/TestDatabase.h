#pragma once

#include <QString>
#include <QVariant>

#include "TempProgramFolder.h"

// A program folder holding a fresh db.daa, made from the shipped schema or from another
// script (an older layout, say). While it lives the program's shared connections work on
// it; they are closed when it goes, so the next test starts clean.
class TestDatabase {
public:
    TestDatabase();
    explicit TestDatabase(const QString& script);
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    QString folder() const { return folder_.path(); }
    QString path() const { return folder_.file("db.daa"); }
    QString file(const QString& name) const { return folder_.file(name); }

    // daa.mdb beside db.daa as a symbolic link to it, as an installation has it.
    void linkStockDatabase() const;

    // Straight to SQLite, past the program's engine: to set up rows (Nulls included) and
    // to look at what was stored. The database is db.daa unless another file is named.
    void exec(const QString& sql, const QString& database = QString()) const;
    QVariant scalar(const QString& sql, const QString& database = QString()) const;

    static QString schemaScript();
    static QString testData(const QString& name);
    static void createFromScript(const QString& databaseFile, const QString& scriptFile);

private:
    TempProgramFolder folder_;
};
