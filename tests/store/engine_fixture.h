#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QLocale>
#include <QTemporaryDir>

#include "base/Error.h"
#include "base/Regional.h"
#include "store/Connection.h"

// A fresh, empty database file in a temporary folder, opened through the engine with the
// program's connection string, under Dutch regional settings.
class EngineTest : public ::testing::Test {
public:
    static QString connectionString(const QString& file) {
        return QStringLiteral("Data Provider=Microsoft.Jet.OLEDB.4.0;Data Source=") + file +
               QStringLiteral(";Persist Security Info=False");
    }

    static QString odbcString(const QString& file) {
        return QStringLiteral("DRIVER={Microsoft Access Driver (*.mdb)};DBQ=") + file +
               QStringLiteral(";UID=sa;PWD=;");
    }

protected:
    void SetUp() override {
        Regional::setLocaleForTests(QLocale(QLocale::Dutch, QLocale::Netherlands));
        ASSERT_TRUE(dir.isValid());
        createEmptyFile(path);
        db.open(connectionString(path));
    }

    static void createEmptyFile(const QString& file) {
        sqlite3* handle = nullptr;
        sqlite3_open(file.toUtf8().constData(), &handle);
        sqlite3_exec(handle, "PRAGMA user_version=1", nullptr, nullptr, nullptr);
        sqlite3_close(handle);
    }

    QVariant scalar(const QString& sql) { return db.openReadSet(sql)->value(0); }

    // The error a statement raises, or 0 when it raises none.
    template <typename Action>
    static long errorOf(Action action) {
        try {
            action();
        } catch (const Error& error) {
            return error.number();
        }
        return 0;
    }

    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("db.daa"));
    Connection db;
};
