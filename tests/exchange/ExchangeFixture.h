#pragma once

#include <gtest/gtest.h>
#include <QDate>
#include <QFile>
#include <QTemporaryDir>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "base/Regional.h"
#include "store/Recordset.h"
#include "store/clsDatabase.h"

// Texts in failure messages as text.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline QByteArray readBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<ontbreekt>");
}

inline void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
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
        for (; !set->isEOF(); set->moveNext()) values.append(set->value(name));
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
