#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <QDate>
#include <QFile>
#include <QTemporaryDir>

#include "Files.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "base/Regional.h"
#include "store/Recordset.h"
#include "store/clsDatabase.h"

// Every row of every table of a database file, as text: two files with the same dump
// hold the same data, whatever their bytes. "<geen database>" when it cannot be read.
inline QString dump(const QString& path) {
    sqlite3* db = nullptr;
    QString text;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) ==
        SQLITE_OK) {
        sqlite3_stmt* tables = nullptr;
        sqlite3_prepare_v2(db, "SELECT name FROM sqlite_master WHERE type='table' ORDER BY name",
                           -1, &tables, nullptr);
        while (sqlite3_step(tables) == SQLITE_ROW) {
            const QString table =
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(tables, 0)));
            text += table + ":\n";
            sqlite3_stmt* rows = nullptr;
            sqlite3_prepare_v2(db, ("SELECT * FROM \"" + table + "\"").toUtf8().constData(), -1,
                               &rows, nullptr);
            while (sqlite3_step(rows) == SQLITE_ROW) {
                for (int i = 0; i < sqlite3_column_count(rows); ++i) {
                    text += QString::fromUtf8(
                                reinterpret_cast<const char*>(sqlite3_column_text(rows, i))) +
                            ';';
                }
                text += '\n';
            }
            if (sqlite3_finalize(rows) != SQLITE_OK) {
                text += "<fout>";
            }
        }
        if (sqlite3_finalize(tables) != SQLITE_OK || text.isEmpty()) {
            text = "<geen database>";
        }
    } else {
        text = "<geen database>";
    }
    sqlite3_close(db);
    return text;
}

// PRAGMA integrity_check of a database file: "ok" when it is whole.
inline QString integrity(const QString& path) {
    sqlite3* db = nullptr;
    QString result;
    sqlite3_stmt* check = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READWRITE, nullptr) ==
            SQLITE_OK &&
        sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &check, nullptr) == SQLITE_OK) {
        while (sqlite3_step(check) == SQLITE_ROW) {
            result +=
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(check, 0)));
        }
    }
    if (result.isEmpty()) {
        result = QString::fromUtf8(sqlite3_errmsg(db));
    }
    sqlite3_finalize(check);
    sqlite3_close(db);
    return result;
}

inline QByteArray testFile(const QString& name) {
    return readBytes(TestDatabase::testData("exchange/" + name));
}

// A fresh db.daa in its own program folder, a folder to export to and import from, the
// recording UI service and Dutch regional settings.
class ExchangeTest : public ::testing::Test {
protected:
    ExchangeTest() { Regional::setLocaleForTests(QLocale(QLocale::Dutch, QLocale::Netherlands)); }

    // Adds a customer through the program's own connection.
    void addCustomer(const QString& name) {
        auto set = clsDatabase().ExecuteQuery("SELECT * FROM Klant WHERE 1=2");
        set->addNew();
        set->setValue("Bedrijfsnaam", name);
        set->update();
    }

    // The values of one column, in the order of the rows.
    QVariantList column(const QString& table, const QString& name) const {
        QVariantList values;
        auto set = clsDatabase().ExecuteQuery("SELECT * FROM " + table);
        for (; !set->isEOF(); set->moveNext()) {
            values.append(set->value(name));
        }
        return values;
    }

    QString work(const QString& name) const { return work_.filePath(name); }
    QString workFolder() const { return work_.path(); }
    QString todaysBackup() const {
        return work(QDate::currentDate().toString("ddMMyyyy") + "db.bu1");
    }

    // The rows behind the expected export files.
    void addRegisters() { database.exec(QString::fromUtf8(testFile("registers.sql"))); }

    RecordingUiService ui;
    TestDatabase database;

private:
    QTemporaryDir work_;
};
