// E-invoices as a user makes them: the invoices of a small business checked by the official
// rules, the refusals with what to fill in, the files, the questions and lindebrug-cli.
#include <gmock/gmock.h>

#include <QDirIterator>
#include <QProcess>
#include <QStandardPaths>

#include "Programs.h"
#include "UblFixture.h"
#include "exchange/ubl/UblExport.h"

using namespace exchange::ubl;
using ::testing::HasSubstr;

namespace {

const QString kCaption = "E-factuur (UBL)";

Currency money(const char* amount) {
    return Currency::fromRaw(QString(amount).remove('.').toLongLong());
}

// A business with customers of every kind, articles with units, both rates and none, and
// invoices with discounts, half cents, returns, a negative price, a negative total and 200
// lines.
class UblInvoices : public UblDatabaseTest {
protected:
    UblInvoices() {
        const qint32 gewoon = addCustomer({"Bakkerij De Korf", "Nederland", "NL009876543B01"});
        const qint32 verlegd =
            addCustomer({"Bouwbedrijf Verlegd", "Nederland", "NL 0011.22.334 B01", true});
        const qint32 eu = addCustomer({"Brasserie Bruxelles", "België", "BE0123456789", true,
                                       "Grote Markt 1", "1000", "Brussel"});
        const qint32 export_ = addCustomer({"London Tea Ltd", "Verenigd Koninkrijk", "GB123456789",
                                            true, "1 Tea Street", "", "London"});
        const qint32 persoon = addCustomer({"", "", "NL112233445B01"});
        particulier = addCustomer({"Particulier Zonder Nummer", "Nederland", "", true});
        const qint32 belg = addCustomer(
            {"Particulier België", "België", "", true, "Rue Haute 3", "1000", "Brussel"});

        addArticle(1, "Brood volkoren", "stuk", money("0.1250"), 1);
        addArticle(2, "Advies", "uur", money("82.5000"), 1);
        addArticle(3, "Kookboek", "stuk", money("19.9500"), 2);
        addArticle(4, "Koffiebonen", "kg", money("12.3450"), 2);
        addArticle(5, "Statiegeld krat", "stuk", money("-3.9000"), 1);
        addArticle(6, "Diversen & zo <klein>", "doos", money("1.2345"), 1);
        addArticle(7, "Cursusgeld", "", money("50.0000"), 0);
        QList<Row> lang;
        QString articles = "BEGIN;";
        for (int a = 100; a < 300; ++a) {
            const Currency prijs = Currency::fromRaw(a * 1237 % 99991 + 50);
            articles += articleInsert(a, QString("Onderdeel %1").arg(a), a % 2 ? "stuk" : "kg",
                                      prijs, a % 3 ? 1 : 2);
            lang.append({a, prijs, (a % 7) * 0.5 + 0.25, a % 5 ? 0.0 : 12.5, a % 3 ? 21.0 : 9.0});
        }
        database.exec(articles + "COMMIT;");

        addInvoice("1001", gewoon,
                   {{2, 1.5, 10}, {3, 3}, {4, 0.333, 12.5}, {1, 1}, {6, 3, 33.333}});
        addInvoice("1002", verlegd, {{2, 8}, {6, 3, 10}});
        addInvoice("1003", eu, {{4, 10}, {3, 2, 5}});
        addInvoice("1004", export_, {{2, 2}, {1, 3}});
        addInvoice("1005", gewoon, {{3, -2}, {2, 1}, {5, 4}, {1, -1}});
        database.exec("BEGIN;" + invoiceRows(6, "1006", gewoon, false, lang) + "COMMIT;");
        addInvoice("1007", persoon, {{7, 1}, {2, 0.25}, {1, 3}});
        addInvoice("1008", particulier, {{2, 1}, {3, 1}});
        addInvoice("1009", belg, {{4, 2.5}, {1, 7}});
        addInvoice("1010", gewoon, {{3, -2}, {6, -1, 10}});  // all returned: a negative total
    }

    static QList<qint32> ids(int from, int to) {
        QList<qint32> list;
        for (int id = from; id <= to; ++id) {
            list.append(id);
        }
        return list;
    }

    // Exports through the routine the invoice list calls, into a folder of its own.
    QString exportTo(const QString& name, const QList<qint32>& factuurIds, Profile profile) {
        const QString folder = work(name);
        QDir().mkpath(folder);
        ui.foldersToChoose.enqueue(folder);
        EXPECT_TRUE(exportInvoices(factuurIds, profile)) << ui.lastMessage().text.toStdString();
        return folder;
    }

    qint32 particulier = 0;
};

QString validator() {
    return QStringLiteral(LINDEBRUG_EINVOICE_VALIDATE);
}

// Every invoice in both profiles, in one run of the official rules: no fatal finding.
TEST_F(UblInvoices, TheOfficialRulesFindNothingFatalInEitherProfile) {
    QStringList files;
    for (const auto& [name, profile, invoices] :
         {std::tuple{"peppol", Profile::Peppol, ids(1, 7) << 10},
          std::tuple{"nlcius", Profile::NlCius, QList<qint32>{3, 4, 9}}}) {
        const QString folder = exportTo(name, invoices, profile);
        QDirIterator it(folder, {"*.xml"});
        while (it.hasNext()) {
            files.append(it.next());
        }
    }
    ASSERT_EQ(files.size(), 11);
    if (!QFileInfo(validator()).isExecutable()) {
        GTEST_SKIP() << "de validator ontbreekt: " << validator().toStdString();
    }
    if (QStandardPaths::findExecutable("java").isEmpty()) {
        GTEST_SKIP() << "Java ontbreekt (tools/setup installeert default-jre-headless)";
    }
    QProcess validate;
    validate.start(validator(), QStringList{"-q", "--no-warnings"} + files);
    ASSERT_TRUE(validate.waitForFinished(600000));
    const QString findings =
        QString::fromUtf8(validate.readAllStandardOutput() + validate.readAllStandardError());
    if (validate.exitCode() == 3) {
        GTEST_SKIP() << "de validator mist een pakket: " << findings.toStdString();
    }
    EXPECT_EQ(validate.exitCode(), 0) << findings.toStdString();
    EXPECT_THAT(findings.toStdString(), ::testing::Not(HasSubstr("fatal")));
}

// What a bookkeeper reads in the file: the parties, the dates, the payment, the VAT
// category each kind of customer gets, and the printed total as the amount to pay.
TEST_F(UblInvoices, EachKindOfCustomerGetsItsVatCategoryAndThePrintedTotal) {
    const QString peppol = exportTo("peppol", ids(1, 7), Profile::Peppol);
    const QString nlcius = exportTo("nlcius", {9}, Profile::NlCius);
    struct Expected {
        const char* nummer;
        QStringList categories;  // of the subtotals
        const char* reason;      // of the first subtotal
        const char* endpoint;    // scheme:id of the customer
    };
    const Expected expected[] = {
        {"1001", {"S", "S"}, "<ontbreekt>", "9944:NL009876543B01"},
        {"1002", {"AE"}, "Btw verlegd", "9944:NL001122334B01"},
        {"1003", {"K"}, "Intracommunautaire levering", "9925:BE0123456789"},
        {"1004", {"G"}, "Uitvoer buiten de EU", "9932:GB123456789"},
        {"1005", {"S", "S"}, "<ontbreekt>", "9944:NL009876543B01"},
        {"1007", {"Z", "S"}, "<ontbreekt>", "9944:NL112233445B01"},
        {"1009", {"Z"}, "<ontbreekt>", "<ontbreekt>:<ontbreekt>"},
    };
    for (const Expected& e : expected) {
        SCOPED_TRACE(e.nummer);
        const QString folder = QString(e.nummer) == "1009" ? nlcius : peppol;
        const XmlValues xml = readXmlValues(readBytes(folder + "/" + e.nummer + ".xml"));
        EXPECT_EQ(xmlValuesOf(xml, "Invoice/TaxTotal/TaxSubtotal/TaxCategory/ID"), e.categories);
        EXPECT_EQ(xmlValue(xml, "Invoice/TaxTotal/TaxSubtotal/TaxCategory/TaxExemptionReason"),
                  e.reason);
        const QString customer = "Invoice/AccountingCustomerParty/Party/";
        EXPECT_EQ(xmlValue(xml, customer + "EndpointID@schemeID") + ":" +
                      xmlValue(xml, customer + "EndpointID"),
                  e.endpoint);
        clsObjFactuur factuur = clsObjFactuur().Lijst(QString("Nummer=") + e.nummer).first();
        EXPECT_EQ(
            xmlValue(xml, "Invoice/LegalMonetaryTotal/PayableAmount"),
            QString::number(std::llround(factuur.TotaalPrijs().raw() / 100.0) / 100.0, 'f', 2));
        EXPECT_EQ(xmlValue(xml, "Invoice/ID"), e.nummer);
        EXPECT_EQ(xmlValue(xml, "Invoice/BuyerReference"), e.nummer);
        EXPECT_EQ(xmlValue(xml, "Invoice/IssueDate"), "2026-03-14");
        EXPECT_EQ(xmlValue(xml, "Invoice/DueDate"), "2026-04-13");
        EXPECT_EQ(xmlValue(xml, "Invoice/PaymentMeans/PayeeFinancialAccount/ID"),
                  "NL91ABNA0417164300");
        EXPECT_EQ(xmlValue(xml, "Invoice/PaymentMeans/PaymentID"), e.nummer);
        EXPECT_EQ(xmlValue(xml, "Invoice/PaymentTerms/Note"),
                  "Betaling binnen 30 dagen na factuurdatum.");
        EXPECT_EQ(xmlValue(xml, "Invoice/AccountingSupplierParty/Party/PartyLegalEntity/CompanyID"),
                  "12345678");
    }

    const XmlValues first = readXmlValues(readBytes(peppol + "/1001.xml"));
    EXPECT_EQ(xmlValuesOf(first, "Invoice/InvoiceLine/InvoicedQuantity"),
              (QStringList{"1.5", "3", "0.333", "1", "3"}));
    EXPECT_EQ(xmlValuesOf(first, "Invoice/InvoiceLine/Item/ClassifiedTaxCategory/Percent"),
              (QStringList{"21", "9", "9", "21", "21"}));
    // 1.5 x 82.50 = 123.75 less 10 %: 111.375 -> 111.38, so the discount is 12.37.
    EXPECT_EQ(xmlValuesOf(first, "Invoice/InvoiceLine/AllowanceCharge/BaseAmount").first(),
              "123.75");
    EXPECT_EQ(xmlValuesOf(first, "Invoice/InvoiceLine/AllowanceCharge/Amount").first(), "12.37");
    // 3 x 1.2345 = 3.7035 less 33.333 %: 2.4690 (1.2345 the allowance, both to the cent).
    EXPECT_EQ(xmlValuesOf(first, "Invoice/InvoiceLine/AllowanceCharge/BaseAmount").last(), "3.70");
    EXPECT_EQ(xmlValuesOf(first, "Invoice/InvoiceLine/AllowanceCharge/Amount").last(), "1.23");
    EXPECT_EQ(xmlValuesOf(first, "Invoice/InvoiceLine/LineExtensionAmount").last(), "2.47");
    EXPECT_EQ(xmlValuesOf(first, "Invoice/InvoiceLine/Item/Name").last(), "Diversen & zo <klein>");

    // The returned crate: a negative price is a negative quantity at the positive price.
    const QList<XmlValues> returns = readInvoiceLines(readBytes(peppol + "/1005.xml"));
    ASSERT_EQ(returns.size(), 4);
    EXPECT_EQ(xmlValue(returns[2], "InvoicedQuantity"), "-4");
    EXPECT_EQ(xmlValue(returns[2], "Price/PriceAmount"), "3.90");
    EXPECT_EQ(xmlValue(returns[2], "LineExtensionAmount"), "-15.60");
    EXPECT_EQ(xmlValue(returns[0], "InvoicedQuantity"), "-2");

    // Without a company name the contact person is the customer.
    const XmlValues persoon = readXmlValues(readBytes(peppol + "/1007.xml"));
    EXPECT_EQ(xmlValue(persoon,
                       "Invoice/AccountingCustomerParty/Party/PartyLegalEntity/RegistrationName"),
              "J. de Vries");
    EXPECT_EQ(readInvoiceLines(readBytes(peppol + "/1006.xml")).size(), 200);
}

// What cannot become a valid e-invoice is refused before a folder is asked for, with what
// to fill in and where, and no file is written.
TEST_F(UblInvoices, WhatCannotBecomeAValidEInvoiceIsRefusedByName) {
    const QString start = "Er kan geen e-factuur worden gemaakt. ";
    const QString fill = start + "Vul in de instellingen (tabblad Bedrijf) eerst in: ";
    struct Case {
        QString column, value;  // of Instellingen or, with "Klant.", of the 0 % customer
        QList<qint32> invoices;
        Profile profile;
        QString message;
    };
    const Case cases[] = {
        {"KVKNummer", "", {1}, Profile::Peppol, fill + "KVK nummer."},
        {"BTWNummer", " ", {1}, Profile::NlCius, fill + "BTW nummer."},
        {"Banknummer", "", {1}, Profile::Peppol, fill + "Banknummer."},
        {"Adres", "", {1}, Profile::Peppol, fill + "Adres."},
        {"Banknummer",
         "41.71.64.300",
         {1},
         Profile::Peppol,
         start + "Het banknummer in de instellingen (41.71.64.300) is geen geldig IBAN. Een "
                 "e-factuur vraagt om betaling per SEPA-overboeking naar een IBAN."},
        {"Land",
         "Gondor",
         {1},
         Profile::Peppol,
         start + "Het land in de instellingen (Gondor) is onbekend: vul de naam van het land in, "
                 "bijvoorbeeld Nederland."},
        {"Klant.Adres",
         "",
         {1, 8},
         Profile::Peppol,
         "Er zijn geen e-facturen gemaakt.\r\nFactuur 1008: vul bij klant Particulier Zonder "
         "Nummer eerst in: Adres."},
        {"Klant.Postcode",
         "",
         {8},
         Profile::Peppol,
         "Er zijn geen e-facturen gemaakt.\r\nFactuur 1008: vul bij klant Particulier Zonder "
         "Nummer eerst in: Postcode."},
        {"Klant.Land",
         "Atlantis",
         {8},
         Profile::Peppol,
         "Er zijn geen e-facturen gemaakt.\r\nFactuur 1008: het land van klant Particulier "
         "Zonder Nummer (Atlantis) is onbekend. Vul bij de klant de naam van het land in, "
         "bijvoorbeeld België."},
        {"",
         "",
         {3, 1},
         Profile::NlCius,
         "Er zijn geen e-facturen gemaakt.\r\nFactuur 1001: SI-UBL (NLCIUS) vraagt het "
         "KvK-nummer van een Nederlandse klant, en dat houdt Lindebrug niet bij. Maak de "
         "e-factuur voor klant Bakkerij De Korf als Peppol e-factuur."},
        {"",
         "",
         {1, 8, 2},
         Profile::Peppol,
         "Er zijn geen e-facturen gemaakt.\r\nFactuur 1008: klant Particulier Zonder Nummer "
         "heeft geen btw-nummer. Een Peppol e-factuur heeft het btw-nummer als elektronisch "
         "adres van de klant nodig: vul het BTW-nummer van de klant in."},
        {"Klant.Extra",
         "SE556677889901",
         {8},
         Profile::Peppol,
         "Er zijn geen e-facturen gemaakt.\r\nFactuur 1008: het btw-nummer SE556677889901 van "
         "klant Particulier Zonder Nummer is geen Peppol-adres. Maak de e-factuur als SI-UBL "
         "(NLCIUS)."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message.toStdString());
        const bool klant = c.column.startsWith("Klant.");
        const QString table = klant ? "Klant" : "Instellingen";
        const QString column = klant ? c.column.mid(6) : c.column;
        const QString where = klant ? QString(" WHERE KlantID=%1").arg(particulier) : QString();
        const auto set = [&](const QString& value) {
            if (!column.isEmpty()) {
                database.exec("UPDATE " + table + " SET " + column + "='" + value + "'" + where);
            }
        };
        const QString before =
            column.isEmpty()
                ? QString()
                : database.scalar("SELECT " + column + " FROM " + table + where).toString();
        set(c.value);
        ui.messages.clear();
        ui.foldersToChoose.enqueue(work("nooit"));
        EXPECT_FALSE(exportInvoices(c.invoices, c.profile));
        ASSERT_EQ(ui.messages.size(), 1);
        EXPECT_TRUE(ui.lastMessageIs(c.message, kCaption, ui::Icon::Exclamation));
        EXPECT_TRUE(ui.folderPrompts.isEmpty());
        ui.foldersToChoose.clear();
        set(before);
    }

    // An invoice without lines, one whose saved total no longer matches its lines, one that
    // is gone and two of one number.
    database.exec("DELETE FROM ArtikelPerFactuur WHERE FactuurID=4");
    database.exec("UPDATE Factuur SET TotaalPrijs=TotaalPrijs+1 WHERE FactuurID=2");
    database.exec("UPDATE Factuur SET Nummer=1001 WHERE FactuurID=3");
    EXPECT_FALSE(exportInvoices({4, 2, 99, 1, 3}));
    EXPECT_EQ(ui.lastMessage().text,
              "Er zijn geen e-facturen gemaakt.\r\n"
              "Factuur 1004: de factuur heeft geen regels.\r\n"
              "Factuur 1002: het totaal van de factuur (663.3333) is niet de som van de regels "
              "(663.3332). Open de factuur en sla haar opnieuw op.\r\n"
              "De factuur met sleutel 99 bestaat niet meer.\r\n"
              "Er zijn twee facturen met nummer 1001. Geef een van beide een ander nummer.");
    EXPECT_FALSE(QFileInfo::exists(work("nooit")));

    // Many at once: the first ten reasons and how many more.
    EXPECT_FALSE(exportInvoices(ids(101, 112)));
    const QStringList lines = ui.lastMessage().text.split("\r\n");
    ASSERT_EQ(lines.size(), 12);
    EXPECT_EQ(lines[10], "De factuur met sleutel 110 bestaat niet meer.");
    EXPECT_EQ(lines[11], "En nog 2 facturen.");
}

// The folder is asked once; a file that exists is replaced only when the user says so, and
// the closing message names the folder and what was kept.
TEST_F(UblInvoices, FilesAreWrittenIntoTheChosenFolderAskingBeforeReplacingOne) {
    EXPECT_FALSE(exportInvoices({}));
    EXPECT_EQ(ui.lastMessage().text, "Er is geen factuur geselecteerd.");
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);

    EXPECT_FALSE(exportInvoices({1, 2}));  // the folder dialog cancelled
    EXPECT_EQ(ui.folderPrompts, QStringList{"Kies de map voor de e-facturen"});
    EXPECT_EQ(ui.progressTitles, QStringList{"E-facturen maken"});
    EXPECT_EQ(ui.messages.size(), 1);

    const QString folder = exportTo("uit", {1, 2}, Profile::Peppol);
    EXPECT_TRUE(ui.lastMessageIs("2 e-facturen opgeslagen in de map " + folder + ".", kCaption,
                                 ui::Icon::Information));
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), (QStringList{"1001.xml", "1002.xml"}));
    const QByteArray written = readBytes(folder + "/1002.xml");
    EXPECT_TRUE(written.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));

    QFile kept(folder + "/1001.xml");
    ASSERT_TRUE(kept.open(QIODevice::WriteOnly | QIODevice::Truncate));
    kept.write("van de gebruiker");
    kept.close();
    QFile::remove(folder + "/1002.xml");
    ui.answers.enqueue(ui::Answer::No);
    ui.foldersToChoose.enqueue(folder);
    EXPECT_FALSE(exportInvoices({1, 2, 3}));
    const ui::Message question = ui.messages.at(ui.messages.size() - 2);
    EXPECT_EQ(question.text, "Bestand " + folder + "/1001.xml bestaat! Overschrijven?");
    EXPECT_EQ(question.caption, "KORVANE LINDEBRUG");
    EXPECT_EQ(question.buttons, ui::Buttons::YesNo);
    EXPECT_EQ(ui.lastMessage().text, "2 e-facturen opgeslagen in de map " + folder +
                                         ".\r\n1 bestaand bestand is niet overschreven.");
    EXPECT_EQ(readBytes(folder + "/1001.xml"), "van de gebruiker");
    EXPECT_EQ(readBytes(folder + "/1002.xml"), written);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files),
              (QStringList{"1001.xml", "1002.xml", "1003.xml"}));

    ui.answers.enqueue(ui::Answer::Yes);
    ui.foldersToChoose.enqueue(folder);
    EXPECT_TRUE(exportInvoices({1}));
    EXPECT_TRUE(readBytes(folder + "/1001.xml").startsWith("<?xml"));
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden).size(), 3);  // no temporary left

    ui.foldersToChoose.enqueue(work("bestaat-niet"));
    EXPECT_FALSE(exportInvoices({1}));
    EXPECT_EQ(ui.lastMessage().text, "De map " + work("bestaat-niet") + " bestaat niet.");
}

// lindebrug-cli ubl, as a script runs it on the database beside it.
TEST_F(UblInvoices, TheCommandLineWritesTheInvoicesItIsGiven) {
    QFile::copy(LINDEBRUG_CLI, database.file("lindebrug-cli"));
    const QString folder = work("cli");
    QDir().mkpath(folder);
    const auto run = [&](const QStringList& arguments) -> QString {
        closeSharedConnections();
        return runProgram(database.file("lindebrug-cli"), arguments);
    };
    const std::pair<QStringList, QString> steps[] = {
        {{"ubl", "1001", "1002", folder}, "0 2 e-facturen opgeslagen in de map " + folder + ".\n"},
        {{"ubl", "--profiel", "nlcius", "1003", folder},
         "0 1 e-factuur opgeslagen in de map " + folder + ".\n"},
        {{"ubl", "1001", folder},
         "1 Bestand " + folder +
             "/1001.xml bestaat! Overschrijven? Nee\n0 e-facturen "
             "opgeslagen in de map " +
             folder + ".\n1 bestaand bestand is niet overschreven.\n"},
        {{"--yes", "ubl", "1001", folder},
         "0 Bestand " + folder +
             "/1001.xml bestaat! Overschrijven? Ja\n1 e-factuur "
             "opgeslagen in de map " +
             folder + ".\n"},
        {{"ubl", "1001", "4711", folder}, "1 Factuur 4711 bestaat niet.\n"},
        {{"ubl", "1008", folder},
         "1 Er zijn geen e-facturen gemaakt.\nFactuur 1008: klant Particulier Zonder Nummer "
         "heeft geen btw-nummer. Een Peppol e-factuur heeft het btw-nummer als elektronisch "
         "adres van de klant nodig: vul het BTW-nummer van de klant in.\n"},
        {{"ubl", "--profiel", "xrechnung", "1001", folder}, "2 "},
        {{"ubl", "factuur", folder}, "2 "},
        {{"ubl", folder}, "2 "},
    };
    for (const auto& [arguments, result] : steps) {
        EXPECT_EQ(run(arguments), result) << arguments.join(' ').toStdString();
    }
    EXPECT_EQ(QDir(folder).entryList(QDir::Files),
              (QStringList{"1001.xml", "1002.xml", "1003.xml"}));
    EXPECT_THAT(readBytes(folder + "/1003.xml").toStdString(), HasSubstr("nlcius"));
    EXPECT_THAT(readBytes(folder + "/1002.xml").toStdString(), HasSubstr("peppol"));

    // A database that cannot be read is reported, and the command fails.
    closeSharedConnections();
    QFile damaged(database.path());
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write(QByteArray(4096, 'x'));
    damaged.close();
    EXPECT_THAT(run({"ubl", "1001", folder}).toStdString(),
                ::testing::AllOf(::testing::StartsWith("1 Error 26"),
                                 HasSubstr("Er is een fout opgetreden")));
}

}  // namespace
