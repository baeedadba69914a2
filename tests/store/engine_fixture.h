#pragma once

#include <gtest/gtest.h>

#include <QLocale>
#include <QStringList>

#include "ErrorOf.h"
#include "TestDatabase.h"
#include "base/Regional.h"
#include "store/Connection.h"

// A fresh copy of the shipped database in a temporary program folder, opened through the
// engine with the program's connection string, under Dutch regional settings.
class EngineTest : public ::testing::Test {
public:
    static QString connectionString(const QString& file) {
        return "Data Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + file +
               ";Persist Security Info=False";
    }
    static QString odbcString(const QString& file) {
        return "DRIVER={Microsoft Access Driver (*.mdb)};DBQ=" + file + ";UID=sa;PWD=;";
    }

protected:
    void SetUp() override {
        Regional::setLocaleForTests(QLocale(QLocale::Dutch, QLocale::Netherlands));
        db.open(connectionString(path));
    }

    void run(std::initializer_list<const char*> statements) {
        for (const char* sql : statements) {
            db.execute(QString::fromUtf8(sql));
        }
    }

    QVariant scalar(const QString& sql) { return db.openReadSet(sql)->value(0); }

    // Every row of a query, its values joined by '|', Null as "<Null>".
    QStringList rows(const QString& sql) {
        QStringList result;
        for (auto set = db.openReadSet(sql); !set->isEOF(); set->moveNext()) {
            QStringList row;
            for (int i = 0; i < set->fieldCount(); ++i) {
                row.append(set->value(i).isValid() ? set->value(i).toString() : "<Null>");
            }
            result.append(row.join(u'|'));
        }
        return result;
    }

    TestDatabase data;
    QString path = data.path();
    Connection db;
};
