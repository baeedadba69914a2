#pragma once

#include <gtest/gtest.h>
#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>

#include "RecordingUiService.h"
#include "TestDatabase.h"

using Values = QList<QPair<QString, QVariant>>;

// A fresh db.daa in its own program folder, a folder to export to and import from, the
// recording UI service and Dutch regional settings.
class ExchangeTest : public ::testing::Test {
protected:
    ExchangeTest();
    ~ExchangeTest() override;

    // Adds a row through the program's own engine, so every value is stored as the
    // program stores it.
    void addRow(const QString& table, const Values& values);
    qint64 count(const QString& table) const;
    // The values of one column, in the order of the rows.
    QVariantList column(const QString& table, const QString& name) const;

    QString work(const QString& name) const { return work_.filePath(name); }
    QString workFolder() const { return work_.path(); }

    void addCustomers();
    void addArticles();
    void addInvoices();

    RecordingUiService ui;
    TestDatabase database;

private:
    QTemporaryDir work_;
};

QByteArray readBytes(const QString& path);
void writeBytes(const QString& path, const QByteArray& bytes);
QByteArray expectedFile(const QString& name);
