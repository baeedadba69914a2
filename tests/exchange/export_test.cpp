#include <QDir>
#include <QFile>

#include "ExchangeFixture.h"
#include "controllers/DataExchangeController.h"
#include "exchange/clsXport.h"

namespace {

const QString kFailure = QStringLiteral("Export naar csv-bestand mislukt!");

class ExportTest : public ExchangeTest {
protected:
    // Runs the menu's export entry for a tool with the work folder chosen.
    void exportTool(const QString& tool, const QString& folder = QString()) {
        ui.foldersToChoose.enqueue(folder.isEmpty() ? workFolder() : folder);
        DataExchangeController().exportRegister(tool, QStringLiteral("csv"));
    }
    QString successText(const QString& baseName) const {
        return QStringLiteral("Export van ") + baseName +
               QStringLiteral(" naar csv gelukt. Het bestand is opgeslagen\r\nals ") +
               workFolder() + QLatin1Char('/') + baseName + QStringLiteral(".csv");
    }
};

struct ExportCase {
    const char* tool;
    const char* baseName;
    const char* expected;
};

class ExportFormat : public ExportTest, public ::testing::WithParamInterface<ExportCase> {};

TEST_P(ExportFormat, WritesTheExactBytes) {
    addCustomers();
    addArticles();
    addInvoices();
    const ExportCase& c = GetParam();
    exportTool(QString::fromLatin1(c.tool));

    EXPECT_EQ(readBytes(work(QString::fromLatin1(c.baseName) + ".csv")),
              expectedFile(QString::fromLatin1(c.expected)));
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text, successText(QString::fromLatin1(c.baseName)));
    EXPECT_EQ(ui.lastMessage().caption, "Export gelukt");
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);
    EXPECT_EQ(ui.folderPrompts, QStringList{"Map voor export aanwijzen"});
}

INSTANTIATE_TEST_SUITE_P(Registers, ExportFormat,
                         ::testing::Values(ExportCase{"tlExpKlanten", "klant", "klant.csv"},
                                           ExportCase{"tlExpArtikelen", "artikel", "artikel.csv"},
                                           ExportCase{"tlExpArtikelfacturen", "FactArt",
                                                      "FactArt.csv"}));

TEST_F(ExportTest, AnEmptyInvoiceRegisterGivesTheHeaderAndTheEmptyLine) {
    exportTool("tlExpArtikelfacturen");
    EXPECT_EQ(readBytes(work("FactArt.csv")), expectedFile("FactArt-leeg.csv"));
    EXPECT_EQ(ui.lastMessage().caption, "Export gelukt");
}

// What cannot be exported says so, and leaves no file behind.
TEST_F(ExportTest, NothingToExportFailsWithoutAFile) {
    for (const char* tool : {"tlExpKlanten", "tlExpTarieven", "tlExpUurfacturen", "tlSchermen"}) {
        SCOPED_TRACE(tool);
        ui.messages.clear();
        exportTool(QString::fromLatin1(tool));
        ASSERT_EQ(ui.messages.size(), 1);
        EXPECT_EQ(ui.lastMessage().text, kFailure);
        EXPECT_EQ(ui.lastMessage().caption, "Export mislukt");
        EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);
    }
    EXPECT_TRUE(QDir(workFolder()).entryList(QDir::Files).isEmpty());
}

TEST_F(ExportTest, ACancelledFolderChoiceDoesNothing) {
    addCustomers();
    DataExchangeController().exportRegister("tlExpKlanten", "csv");
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(ExportTest, DecliningTheOverwriteQuestionKeepsTheOldFile) {
    addCustomers();
    writeBytes(work("klant.csv"), "oude export\r\n");
    ui.answers.enqueue(ui::Answer::No);
    exportTool("tlExpKlanten");

    EXPECT_EQ(readBytes(work("klant.csv")), QByteArray("oude export\r\n"));
    ASSERT_EQ(ui.messages.size(), 2);
    const ui::Message& question = ui.messages.first();
    EXPECT_EQ(question.text, "Het bestand " + workFolder() + "/klant.csv bestaat al. Verwijderen?");
    EXPECT_EQ(question.caption, "Bestand verwijderen");
    EXPECT_EQ(question.icon, ui::Icon::Question);
    EXPECT_EQ(question.buttons, ui::Buttons::YesNo);
    EXPECT_EQ(ui.lastMessage().text, kFailure);
}

TEST_F(ExportTest, AcceptingTheOverwriteQuestionReplacesTheFile) {
    addCustomers();
    writeBytes(work("klant.csv"), QByteArray(5000, 'x'));
    ui.answers.enqueue(ui::Answer::Yes);
    exportTool("tlExpKlanten");
    EXPECT_EQ(readBytes(work("klant.csv")), expectedFile("klant.csv"));
}

TEST_F(ExportTest, AFolderEndingInASeparatorGetsNoSecondOne) {
    addCustomers();
    QString folder = workFolder() + QLatin1Char('/');
    ASSERT_TRUE(clsXport().Xport("klant", "csv", folder, QString()));
    EXPECT_EQ(folder, workFolder() + QLatin1Char('/'));

    QString bare = workFolder();
    ASSERT_TRUE(clsXport().Xport("klant", "csv", bare, "andere-naam"));
    EXPECT_EQ(bare, workFolder() + QLatin1Char('/'));
    EXPECT_EQ(readBytes(work("andere-naam.csv")), expectedFile("klant.csv"));
}

TEST_F(ExportTest, TheZipExtensionWritesTheSameTextAndOthersNothing) {
    addCustomers();
    QString folder = workFolder();
    ASSERT_TRUE(clsXport().Xport("klant", "ZIP", folder, QString()));
    EXPECT_EQ(readBytes(work("klant.ZIP")), expectedFile("klant.csv"));
    EXPECT_FALSE(clsXport().Xport("klant", "txt", folder, QString()));
    EXPECT_FALSE(QFile::exists(work("klant.txt")));
}

}  // namespace
