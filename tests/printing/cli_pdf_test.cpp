#include "PrintFixture.h"

namespace {

// lindebrug-cli works on the database beside it, so the test copies it into its program folder.
class CliPdfTest : public PrintTest {
protected:
    CliPdfTest() { QFile::copy(LINDEBRUG_CLI, database.file("lindebrug-cli")); }

    QString run(const QStringList& arguments) {
        QProcess process;
        process.start(database.file("lindebrug-cli"), arguments);
        EXPECT_TRUE(process.waitForFinished(60000));
        return QString::number(process.exitCode()) + ' ' + process.readAllStandardOutput();
    }
};

TEST_F(CliPdfTest, InvoicesAndOverviewsToPdfWithTheProgramsMessages) {
    const std::pair<QStringList, QString> steps[] = {
        {{"factuur", "1001", "1003", pdf("twee.pdf")},
         "0 Opgeslagen als " + pdf("twee.pdf") + ".\n"},
        {{"overzicht", "artikelen", pdf("artikelen.pdf")},
         "0 Opgeslagen als " + pdf("artikelen.pdf") + ".\n"},
        {{"overzicht", "klanten", pdf("klanten.pdf")},
         "0 Opgeslagen als " + pdf("klanten.pdf") + ".\n"},
        {{"factuur", "1001", "9999", pdf("fout.pdf")}, "1 Factuur 9999 bestaat niet.\n"},
        {{"factuur", "twaalf", pdf("fout.pdf")}, "2 "},
        {{"factuur", "1001", output.filePath("geen/map/f.pdf")},
         "1 Het bestand " + output.filePath("geen/map/f.pdf") + " kon niet worden opgeslagen.\n"},
        {{"factuur", pdf("fout.pdf")}, "2 "},
        {{"overzicht", "facturen", pdf("fout.pdf")}, "2 "},
        {{"overzicht", "klanten"}, "2 "},
    };
    for (const auto& [arguments, result] : steps) {
        EXPECT_EQ(run(arguments), result) << arguments.join(' ').toStdString();
    }
    EXPECT_EQ(pages(pdf("twee.pdf")).size(), 2);
    EXPECT_TRUE(pages(pdf("artikelen.pdf")).value(0).contains("Overzicht Artikelen"));
    EXPECT_TRUE(pages(pdf("klanten.pdf")).value(0).contains("Overzicht klanten"));
    EXPECT_FALSE(QFile::exists(pdf("fout.pdf")));

    database.exec("UPDATE Instellingen SET Sjabloon = 7");
    EXPECT_EQ(run({"factuur", "1001", pdf("fout.pdf")}), "1 Factuur sjabloon niet gevonden.\n");
}

}  // namespace
