#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "RecordingUiService.h"
#include "TestDatabase.h"

// A database of a company, its customers, articles and invoices (tests/data/printing), a
// folder for the PDF files, and the text pdftotext reads back from them.
class PrintTest : public ::testing::Test {
protected:
    PrintTest() { database.exec(readScript()); }

    static QString readScript() {
        QFile file(TestDatabase::testData("printing/facturen.sql"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }

    QString pdf(const QString& name) const { return output.filePath(name); }

    // The text of each page, as pdftotext lays it out.
    static QStringList pages(const QString& path) {
        QProcess pdftotext;
        pdftotext.start("pdftotext", {"-layout", path, "-"});
        EXPECT_TRUE(pdftotext.waitForFinished(60000));
        QStringList result = QString::fromUtf8(pdftotext.readAllStandardOutput()).split(u'\f');
        result.removeLast();  // after the last form feed
        return result;
    }

    TestDatabase database;
    RecordingUiService ui;
    QTemporaryDir output;
};
