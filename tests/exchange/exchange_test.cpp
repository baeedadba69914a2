// Export, import, backup and restore as the main window's menu and the import screen run them.
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "ExchangeFixture.h"
#include "base/Error.h"
#include "controllers/ImportController.h"
#include "exchange/ExchangeRoutines.h"
#include "views/QtViews.h"
#include "views/frmHelpImport.h"
#include "views/frmImport.h"

namespace {

class MenuTest : public ExchangeTest {
protected:
    void exportTool(const QString& tool, const QString& folder) {
        ui.foldersToChoose.enqueue(folder);
        exchange::exportRegister(exchange::exportBaseName(tool), "csv");
    }
    bool importText(const QString& table, const QByteArray& bytes) {
        writeBytes(work("import.txt"), bytes);
        ui.filesToOpen.enqueue(work("import.txt"));
        return exchange::importTable(table);
    }
    void backupTo(const QString& folder) {
        ui.foldersToChoose.enqueue(folder);
        exchange::backup();
    }
    void restoreFrom(const QString& file) {
        ui.filesToOpen.enqueue(file);
        exchange::restore();
    }
};

// A folder that ends in a separator gets no second one.
TEST_F(MenuTest, EveryRegisterIsExportedByteForByte) {
    addRegisters();
    const std::pair<const char*, QString> registers[] = {{"tlExpKlanten", "klant"},
                                                         {"tlExpArtikelen", "artikel"},
                                                         {"tlExpArtikelfacturen", "FactArt"}};
    for (const auto& [tool, name] : registers) {
        SCOPED_TRACE(tool);
        ui.messages.clear();
        exportTool(tool, workFolder() + "/");
        EXPECT_EQ(readBytes(work(name + ".csv")), testFile(name + ".csv"));
        EXPECT_EQ(ui.messages.size(), 1);
        EXPECT_TRUE(ui.lastMessageIs("Export van " + name +
                                         " naar csv gelukt. Het bestand is opgeslagen\r\nals " +
                                         workFolder() + "/" + name + ".csv",
                                     "Export gelukt", ui::Icon::Information));
    }
    EXPECT_EQ(ui.folderPrompts, QStringList(3, "Map voor export aanwijzen"));
}

// With every dialog cancelled nothing happens; what cannot be exported says so. Neither
// leaves a file behind, but the overview of no invoices is its header and an empty line.
TEST_F(MenuTest, CancelledDialogsAndNothingToExportLeaveNoFile) {
    const QByteArray before = readBytes(database.path());
    exchange::backup();
    exchange::restore();
    exchange::exportRegister("klant", "csv");
    EXPECT_FALSE(exchange::importTable("Klant"));
    EXPECT_TRUE(ui.messages.isEmpty());
    EXPECT_EQ(readBytes(database.path()), before);

    for (const char* tool : {"tlExpKlanten", "tlExpTarieven", "tlExpUurfacturen", "tlSchermen"}) {
        SCOPED_TRACE(tool);
        ui.messages.clear();
        exportTool(tool, workFolder());
        EXPECT_EQ(ui.messages.size(), 1);
        EXPECT_TRUE(ui.lastMessageIs("Export naar csv-bestand mislukt!", "Export mislukt",
                                     ui::Icon::Information));
    }
    EXPECT_TRUE(QDir(workFolder()).entryList(QDir::Files).isEmpty());
    exportTool("tlExpArtikelfacturen", workFolder());
    EXPECT_EQ(readBytes(work("FactArt.csv")), testFile("FactArt-leeg.csv"));
}

TEST_F(MenuTest, AnExistingExportIsReplacedOnlyWhenTheUserSaysYes) {
    addRegisters();
    writeBytes(work("klant.csv"), "oude export\r\n");
    ui.answers.enqueue(ui::Answer::No);
    exportTool("tlExpKlanten", workFolder());
    EXPECT_EQ(readBytes(work("klant.csv")), "oude export\r\n");
    ASSERT_EQ(ui.messages.size(), 2);
    const ui::Message& question = ui.messages.first();
    EXPECT_EQ(question.text, "Het bestand " + workFolder() + "/klant.csv bestaat al. Verwijderen?");
    EXPECT_EQ(question.caption, "Bestand verwijderen");
    EXPECT_EQ(question.icon, ui::Icon::Question);
    EXPECT_EQ(question.buttons, ui::Buttons::YesNo);
    EXPECT_EQ(ui.lastMessage().text, "Export naar csv-bestand mislukt!");

    ui.answers.enqueue(ui::Answer::Yes);
    exportTool("tlExpKlanten", workFolder());
    EXPECT_EQ(readBytes(work("klant.csv")), testFile("klant.csv"));
}

// The file ends its lines in CR LF, CR and LF. An empty line and lines without ";" are skipped;
// "A-13;" fills the first column only, and the trailing ";" of A-11 is an empty eleventh
// field that sets nothing. Importing twice adds every row twice.
TEST_F(MenuTest, ImportReadsWindowsTextWithDecimalCommas) {
    ASSERT_TRUE(importText("Artikel", testFile("artikelen-import.txt")));
    EXPECT_EQ(column("Artikel", "Nummer"), (QVariantList{"A-10", "A-11", "A-12", "A-13"}));
    EXPECT_EQ(column("Artikel", "Omschrijving"),
              (QVariantList{"Crème fraîche", "Bonbon “luxe”", "Schoonmaak", QVariant()}));
    EXPECT_EQ(column("Artikel", "Voorraad"), (QVariantList{12, -2, QVariant(), QVariant()}));
    const auto price = [](qint64 raw) { return QVariant::fromValue(Currency::fromRaw(raw)); };
    EXPECT_EQ(column("Artikel", "Prijs"),
              (QVariantList{price(27500), price(12345000), price(450000), QVariant()}));
    EXPECT_EQ(column("Artikel", "NegVoorToestaan"),
              (QVariantList{true, false, QVariant(), QVariant()}));
    EXPECT_EQ(column("Artikel", "GeenVoorraad"),
              (QVariantList{false, QVariant(), QVariant(), QVariant()}));
    EXPECT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(
        ui.lastMessageIs("Importeren van Artikel  gelukt", "Importeren gelukt", ui::Icon::None));
    ASSERT_EQ(ui.fileRequests.size(), 1);
    EXPECT_EQ(ui.fileRequests[0].title, "Kies te importeren bestand");
    EXPECT_EQ(ui.fileRequests[0].filter, "tekstbestanden|*.txt|csv-bestanden|*.csv");
    EXPECT_EQ(ui.fileRequests[0].startFolder, database.folder());

    ASSERT_TRUE(importText("Artikel", testFile("artikelen-import.txt")));
    EXPECT_EQ(column("Artikel", "Nummer"),
              (QVariantList{"A-10", "A-11", "A-12", "A-13", "A-10", "A-11", "A-12", "A-13"}));
}

// A refused line stops the import there: what came before stays, nothing after is stored.
TEST_F(MenuTest, ARefusedImportLineKeepsTheEarlierLinesOnly) {
    QByteArray rows;
    for (int i = 1; i <= 2500; ++i) {
        rows += "A-" + QByteArray::number(i) + ";Artikel;stuk;1;1,5\r\n";
    }
    for (const QByteArray& refused : QList<QByteArray>{
             "A-fout;a;b;1;2;True;1;True;False;extra", "A-fout;Artikel;stuk;veel;1",
             "A-fout;Artikel;stuk;1;gratis", "A-fout;" + QByteArray(300, 'x') + ";stuk;1;1"}) {
        SCOPED_TRACE(refused.left(40).toStdString());
        database.exec("DELETE FROM Artikel");
        ui.messages.clear();
        EXPECT_FALSE(importText("Artikel", rows + refused + "\r\nA-na;Daarna;stuk;1;1\r\n"));
        EXPECT_EQ(ui.messages.size(), 1);
        EXPECT_TRUE(ui.lastMessageIs("Importeren vanuit bestand mislukt!", "Importeren mislukt",
                                     ui::Icon::Information));
        EXPECT_EQ(column("Artikel", "Nummer").mid(2498), (QVariantList{"A-2499", "A-2500"}));
    }
}

TEST_F(MenuTest, TheImportHelpForCustomersListsTheFieldsWithoutKeyAndExtra) {
    database.exec("ALTER TABLE Klant ADD COLUMN NogEenEXTRAveld TEXT(10)");
    EXPECT_EQ(exchange::importHelpText("klant"),
              "Voor de gekozen tabel moet het te importeren bestand de volgende velden bevatten. "
              "Elk veld moet worden afgesloten met een puntkomma, maar kan eventueel leeg zijn, "
              "dus ';;;'\r\nDebiteurNummer;\r\nBedrijfsnaam;\r\nFax;\r\nEmail;\r\nVoorletters;\r\n"
              "Tussenvoegsel;\r\nAchternaam;\r\nAdres;\r\nPostcode;\r\nPlaats;\r\nLand;\r\n"
              "Telefoon;\r\nZichtbaar;\r\nBTW;\r\nDhr;\r\n");
}

// Clicks a help button of the control array cmdHelpKlanten (one name, the index as a
// property) and hands back what the help screen showed, closing it as the user would.
QString helpShown(const frmImport& screen, int index) {
    QString shown;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, [&] {
        if (auto* help = qobject_cast<frmHelpImport*>(QApplication::activeModalWidget())) {
            shown = help->findChild<QLabel*>("lblTekst")->text();
            help->findChild<QPushButton*>("cmdClose")->click();
        }
    });
    closer.start(0);
    for (QPushButton* button : screen.findChildren<QPushButton*>("cmdHelpKlanten")) {
        if (button->property("index") == index) {
            button->click();
        }
    }
    return shown;
}

TEST_F(MenuTest, TheImportScreenImportsShowsTheFieldsOfATableAndCloses) {
    installQtViews();
    ImportController controller;
    controller.show();
    controller.show();
    QList<frmImport*> shown;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* screen = qobject_cast<frmImport*>(widget); screen && screen->isVisible()) {
            shown.append(screen);
        }
    }
    ASSERT_EQ(shown.size(), 1);
    frmImport& screen = *shown.first();

    writeBytes(work("regels.txt"), "1;Eerste\r\n");
    for (const char* button : {"cmdKlanten", "cmdArtikelen", "cmdTarieven"}) {
        ui.filesToOpen.enqueue(work("regels.txt"));
        screen.findChild<QPushButton*>(button)->click();
    }
    EXPECT_EQ(column("Klant", "Bedrijfsnaam"), QVariantList{"Eerste"});
    EXPECT_EQ(column("Artikel", "Omschrijving"), QVariantList{"Eerste"});
    EXPECT_EQ(ui.messages.size(), 3) << "the third: there is no table of rates";
    EXPECT_TRUE(ui.lastMessageIs("Importeren vanuit bestand mislukt!", "Importeren mislukt",
                                 ui::Icon::Information));

    EXPECT_EQ(helpShown(screen, 0), exchange::importHelpText("klant").remove('\r'));
    EXPECT_EQ(helpShown(screen, 1), exchange::importHelpText("artikel").remove('\r'));
    EXPECT_EQ(helpShown(screen, 2), "");
    EXPECT_EQ(ui.messages.size(), 4) << "no help for rates, but the import's failure message";

    screen.findChild<QPushButton*>("cmdOK")->click();
    EXPECT_FALSE(screen.isVisible());
}

// A second backup on the same day asks first; No keeps the first backup.
TEST_F(MenuTest, BackupCopiesTheDatabaseUnderTodaysNameAndAsksBeforeReplacingIt) {
    backupTo(work("bestaat-niet"));
    EXPECT_TRUE(
        ui.lastMessageIs("Backup niet gelukt!", "KORVANE LINDEBRUG", ui::Icon::Information));

    addRegisters();
    backupTo(workFolder() + "/");
    EXPECT_EQ(ui.folderPrompts, QStringList(2, "Kies map voor de backup"));
    EXPECT_EQ(QDir(workFolder()).entryList(QDir::Files),
              QStringList{todaysBackup().section('/', -1)});
    const QString first = dump(todaysBackup());
    EXPECT_EQ(first, dump(database.path()));
    EXPECT_TRUE(first.contains("Bakkerij Dé Korf"));
    EXPECT_TRUE(ui.lastMessageIs("Backup gelukt!", "KORVANE LINDEBRUG", ui::Icon::Information));

    addCustomer("Na de backup");
    ui.messages.clear();
    ui.answers.enqueue(ui::Answer::No);
    backupTo(workFolder());
    EXPECT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(
        ui.lastMessageIs("Bestand bestaat! Overschrijven?", "KORVANE LINDEBRUG", ui::Icon::None));
    EXPECT_EQ(ui.lastMessage().buttons, ui::Buttons::YesNo);
    EXPECT_EQ(dump(todaysBackup()), first);

    ui.answers.enqueue(ui::Answer::Yes);
    backupTo(workFolder());
    EXPECT_EQ(dump(todaysBackup()), dump(database.path()));
    EXPECT_TRUE(dump(todaysBackup()).contains("Na de backup"));
    EXPECT_EQ(QDir(workFolder()).entryList(QDir::Files),
              QStringList{todaysBackup().section('/', -1)});
}

// Through the program's own connection, without a restart. A file that cannot be copied
// leaves the database as it was; one that is no database replaces it all the same, and the
// connection says so at once.
TEST_F(MenuTest, RestoreBringsBackTheRowsAtOnce) {
    addRegisters();
    backupTo(workFolder());
    addCustomer("Na de backup");
    const QByteArray before = readBytes(database.path());
    restoreFrom(work("bestaat-niet.bu1"));
    EXPECT_EQ(readBytes(database.path()), before);
    EXPECT_TRUE(QDir(database.folder()).entryList({"*.tmp"}, QDir::Files).isEmpty());

    ui.messages.clear();
    restoreFrom(todaysBackup());
    EXPECT_EQ(ui.fileRequests.size(), 2);
    EXPECT_EQ(ui.fileRequests[1].title, "Kies backup bestand");
    EXPECT_EQ(ui.fileRequests[1].filter, "bu1-bestanden|*.bu1");
    EXPECT_TRUE(ui.messages.isEmpty());
    EXPECT_EQ(column("Klant", "Bedrijfsnaam"), (QVariantList{"Bakkerij Dé Korf", "Jansen"}));
    EXPECT_EQ(database.scalar("SELECT count(*) FROM Klant WHERE Bedrijfsnaam='Na de backup'",
                              database.file("db.daa.vorige")),
              1)
        << "the replaced database is kept beside the restored one";
    addCustomer("Na het terugzetten");
    EXPECT_EQ(column("Klant", "Bedrijfsnaam").size(), 3);

    writeBytes(work("kapot.bu1"), "Dit is geen database.\n");
    restoreFrom(work("kapot.bu1"));
    EXPECT_EQ(readBytes(database.path()), "Dit is geen database.\n");
    ASSERT_EQ(ui.messages.size(), 1) << "reported at once by the connection";
    EXPECT_EQ(ui.lastMessage().text,
              "Error 26 (Het bestand '" + database.path() +
                  "' kan niet als database worden geopend: file is not a database) in procedure "
                  "MaakConnectie of Class Module clsDatabase");
    EXPECT_THROW(clsDatabase().ExecuteQuery("SELECT * FROM Klant"), Error);
}

}  // namespace
