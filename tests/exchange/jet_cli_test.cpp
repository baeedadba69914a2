#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "Programs.h"
#include "TestDatabase.h"
#include "store/jet/JetMigration.h"
#include "store/jet/JetReader.h"

namespace {

// lindebrug-cli omzetten as a user runs it, beside a db.daa that already holds an invoice.
class JetCliTest : public testing::Test {
protected:
    JetCliTest() {
        QFile::copy(LINDEBRUG_CLI, database.file("lindebrug-cli"));
        database.exec("INSERT INTO Factuur (Nummer) VALUES (1)");
        QFile::copy(TestDatabase::testData("jet/db-jet4-orphans.daa"), old());
    }

    QString old() const { return work.filePath("OUD.daa"); }

    // The exit code, then what the program printed.
    QString run(const QStringList& arguments) {
        return runProgram(database.file("lindebrug-cli"), arguments);
    }

    TestDatabase database;
    QTemporaryDir work;
};

TEST_F(JetCliTest, ChecksRefusesToOverwriteInvoicesUnlessTold) {
    const QString counts =
        "BTW: 3 rijen\nArtikel: 64 rijen\nKlant: 41 rijen\nFactuur: 123 rijen\n"
        "ArtikelPerFactuur: 836 rijen\nInstellingen: 1 rij\n\n2 factuurregels hoorden bij een "
        "factuur die niet meer bestaat; ";
    const std::pair<QStringList, QString> steps[] = {
        {{"omzetten", "--controle", old()},
         "0 " + old() + " is zonder verlies om te zetten.\n\n" + counts +
             "bij het omzetten komen ze in een apart bestand.\n\n"},
        {{"omzetten", old()},
         "1 " + database.path() +
             " bevat al 1 facturen. Wilt u die database vervangen door de "
             "gegevens uit " +
             old() +
             "? De huidige wordt bewaard als db.daa.vorige. Nee\n"
             "Er is niets veranderd.\n"},
        {{"omzetten", work.filePath("geen.daa")},
         "1 " + work.filePath("geen.daa") + " bestaat niet.\n"},
        {{"omzetten", "--controle", database.path()},
         "1 " + database.path() + " is geen database van een eerdere versie (Access-formaat).\n"},
        {{"omzetten"}, "2 "},
        {{"--yes", "omzetten", old()},
         "0 " + database.path() +
             " bevat al 1 facturen. Wilt u die database vervangen door de "
             "gegevens uit " +
             old() +
             "? De huidige wordt bewaard als db.daa.vorige. Ja\n"
             "De database is omgezet naar het nieuwe formaat.\n\n" +
             counts + "ze staan in " + work.filePath("OUD-regels-zonder-factuur.csv") +
             ".\n\nHet vorige db.daa is bewaard als " + database.path() +
             ".vorige.\nHet verslag staat in " + work.filePath("OUD-omzetverslag.txt") + ".\n"},
    };
    for (const auto& [arguments, output] : steps) {
        EXPECT_EQ(run(arguments).toStdString(), output.toStdString())
            << arguments.join(' ').toStdString();
        if (arguments.first() == "omzetten") {
            EXPECT_EQ(jet::invoiceCount(database.path()), 1) << "unchanged until --yes";
        }
    }
    EXPECT_EQ(jet::invoiceCount(database.path()), 123);
    EXPECT_EQ(jet::invoiceCount(database.path() + ".vorige"), 1);
    EXPECT_TRUE(jet::isJetFile(old())) << "the old file given is left as it is";

    // Other commands on an old db.daa say what to do instead of failing on the format.
    QFile::remove(database.path());
    QFile::copy(old(), database.path());
    EXPECT_EQ(run({"backup", work.path()}),
              "1 db.daa staat nog in het oude formaat (Access). Zet het eerst om met: "
              "lindebrug-cli omzetten " +
                  database.path() + "\n");
}

}  // namespace
