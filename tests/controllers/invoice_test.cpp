#include <gtest/gtest.h>

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include "ArticleScreens.h"
#include "CustomerScreens.h"
#include "FakeScreens.h"
#include "Files.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "base/Conversions.h"
#include "base/Regional.h"
#include "controllers/InvoiceViews.h"
#include "controllers/clsContrFactuurBewerken.h"
#include "controllers/clsControllerFacturen.h"
#include "controllers/clsControllerFactuur.h"

namespace {

// A screen with one grid, as the controller filled it: headers, then per row its cells,
// "|", its row datum; and the user's selection, lowest row first.
template <class View>
struct GridScreen : View {
    struct {
        QStringList headers, rows;
        QList<qint32> selection;
    } grid;
    bool visible = false;

    void beginFill(const QStringList& h) override {
        grid.headers = h;
        grid.rows.clear();
    }
    void addRow(const QString& cells, qint32 key) override {
        grid.rows << cells + "|" + QString::number(key);
    }
    void endFill() override {}
    QList<qint32> selectedIDs() const override { return grid.selection; }
    std::optional<qint32> currentID() const override {
        return grid.selection.isEmpty() ? std::nullopt : std::optional(grid.selection.first());
    }
    void show() override { visible = true; }
    void close() override { visible = false; }
};

struct FakeFacturen : GridScreen<IFacturenView> {
    void SetFacturenController(clsControllerFacturen*) override {}
};

struct FakeEditor : GridScreen<IFactuurBewerkenView> {
    clsContrFactuurBewerken* controller = nullptr;
    QString caption, nummer, datum;
    QStringList klant;
    QList<std::pair<QString, QString>> totals;

    void SetFactuurBewerkenController(clsContrFactuurBewerken* c) override { controller = c; }
    void setCaption(const QString& c) override { caption = c; }
    QString Nummer() const override { return nummer; }
    void setNummer(const QString& t) override { nummer = t; }
    QString Datum() const override { return datum; }
    void setDatum(const QString& t) override { datum = t; }
    void setKlant(const QStringList& lines) override { klant = lines; }
    void setTotalen(const QList<std::pair<QString, QString>>& t) override { totals = t; }
    // Typing a number reports it, as the real field does at each change.
    void typeNummer(const QString& text) {
        nummer = text;
        controller->ChangeFN(text.toInt());
    }
};

struct InvoiceScreens : InvoiceViewFactory {
    FakeFacturen* list = nullptr;
    FakeEditor* editor = nullptr;
    ScopedViews<InvoiceViewFactory> installed{this};

    std::unique_ptr<IFacturenView> createFacturen() override { return makeKept(list); }
    std::unique_ptr<IFactuurBewerkenView> createFactuurBewerken() override {
        return makeKept(editor);
    }
};

struct Article {
    QString nummer;
    qint64 prijsRaw;
    int voorraad;
    bool negatief = false;
    bool geenVoorraad = false;
    int tarief = 1;
};

class InvoiceTest : public testing::Test {
protected:
    InvoiceTest() { database.linkStockDatabase(); }

    qint32 addArticle(const Article& a) {
        database.exec(QString("INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad, "
                              "Prijs, NegVoorToestaan, BTWTarief, Zichtbaar, GeenVoorraad) "
                              "VALUES ('%1', 'Omschrijving %1', 'stuk', %2, %3, %4, %5, 1, %6)")
                          .arg(a.nummer)
                          .arg(a.voorraad)
                          .arg(a.prijsRaw)
                          .arg(a.negatief ? 1 : 0)
                          .arg(a.tarief)
                          .arg(a.geenVoorraad ? 1 : 0));
        return database.scalar("SELECT MAX(ArtikelID) FROM Artikel").toInt();
    }
    qint32 addCustomer(const QString& name, bool zeroVat = false) {
        database.exec(QString("INSERT INTO Klant (Bedrijfsnaam, Voorletters, Achternaam, Adres, "
                              "Postcode, Plaats, Land, Zichtbaar, BTW, Dhr) VALUES ('%1', 'J.', "
                              "'Jansen', 'Kerkstraat 1', '1234 AB', 'Utrecht', 'Nederland', 1, "
                              "%2, 1)")
                          .arg(name)
                          .arg(zeroVat ? 1 : 0));
        return database.scalar("SELECT MAX(KlantID) FROM Klant").toInt();
    }
    qint32 addInvoice(const QString& nummer, const QString& klantnaam = "Eerder BV") {
        database.exec(
            QString("INSERT INTO Factuur (Nummer, Datum, KlantId, Klantnaam, TotaalPrijs, "
                    "TotaalPrijsExBTW, BTWId) VALUES (%1, '2026-01-05', 0, '%2', 12345, "
                    "10000, 1)")
                .arg(nummer, klantnaam));
        return lastInvoice();
    }
    int stock(qint32 artikelID) const {
        return database
            .scalar(QString("SELECT Voorraad FROM Artikel WHERE ArtikelID=%1").arg(artikelID))
            .toInt();
    }
    qint64 stored(const QString& sql) const { return database.scalar(sql).toLongLong(); }

    // The editor of a new invoice, started from the list as the user does.
    clsContrFactuurBewerken& newInvoice() {
        list.StartFacturen();
        list.NieuwFactuur();
        return *list.editors().last();
    }
    clsContrFactuurBewerken& openInvoice(qint32 factuurId) {
        list.StartFacturen();
        screens.list->grid.selection = {factuurId};
        list.BewerkGeselecteerde();
        return *list.editors().last();
    }
    // Chooses the customer in the customer list and confirms with OK.
    void chooseCustomer(clsContrFactuurBewerken& editor, qint32 klantID) {
        editor.KlantSelecteren();
        customers.list->selectID(klantID);
        editor.klantController()->Bevestigen();
        settle();
    }
    // Picks the article in the article list with a quantity and discount as typed.
    void pick(clsContrFactuurBewerken& editor, qint32 artikelID, const QString& aantal,
              const QString& korting = "0") {
        editor.ArtikelToevoegen();
        articles.list->selection = {artikelID};
        articles.list->aantal = aantal;
        articles.list->korting = korting;
        editor.artikelController()->Selecteren();
        settle();
    }
    // An invoice for the customer with one line of the article, made and saved as the user
    // does; its key.
    qint32 saveInvoice(qint32 klantID, qint32 artikelID, const QString& aantal) {
        clsContrFactuurBewerken& editor = newInvoice();
        chooseCustomer(editor, klantID);
        pick(editor, artikelID, aantal);
        editor.Opslaan();
        settle();
        return lastInvoice();
    }
    qint32 lastInvoice() const {
        return database.scalar("SELECT MAX(FactuurID) FROM Factuur").toInt();
    }
    void changeLine(clsContrFactuurBewerken& editor, qint32 artikelID, const QString& aantal,
                    const QString& korting = "0") {
        articles.lineScript.aantal = aantal;
        articles.lineScript.korting = korting;
        screens.editor->grid.selection = {artikelID};
        editor.BewerkGeselecteerd();
        settle();
    }
    // The total the editor shows last below its grid: the amount including VAT.
    QString shownTotal() const { return screens.editor->totals.last().second; }

    TestDatabase database;
    RecordingUiService ui;
    InvoiceScreens screens;
    ArticleScreens articles;
    CustomerScreens customers;
    clsControllerFacturen list;
};

const QString kAlreadyThere =
    "Het artikel is reeds in de factuur aanwezig en kan niet nog een keer worden toegevoegd";
const QString kNoStock = "U kunt dit artikel niet leveren! U heeft niet voldoende voorraad!";

// One working day: the first invoice, every rule of its lines, saving, reopening and
// changing it again.
TEST_F(InvoiceTest, AUsersDayWithTheFirstInvoice) {
    const qint32 schroef = addArticle({"S1", 12500, 10});
    const qint32 moer = addArticle({"M1", 5000, 5});
    const qint32 bout = addArticle({"B1", 20000, 5, /*negatief*/ true});
    const qint32 uur = addArticle({"U1", 550000, 3, false, /*geenVoorraad*/ true, 2});
    const qint32 klant = addCustomer("Bakkerij De Linde");

    clsContrFactuurBewerken& editor = newInvoice();
    FakeEditor& screen = *screens.editor;
    EXPECT_EQ(screens.list->grid.rows, QStringList());
    EXPECT_EQ(screen.caption, "Nieuwe factuur");
    EXPECT_EQ(screen.nummer, "1");
    EXPECT_EQ(screen.datum, conv::toDateText(QDate::currentDate()));
    EXPECT_EQ(screen.klant, QStringList());

    // A customer list closed without a choice changes nothing.
    editor.KlantSelecteren();
    customers.list->selectID(klant);
    editor.klantController()->Annuleren(true);
    settle();
    EXPECT_EQ(screen.klant, QStringList());

    chooseCustomer(editor, klant);
    EXPECT_EQ(screen.klant, QStringList({"Bakkerij De Linde", "Dhr. J. Jansen", "Kerkstraat 1",
                                         "1234 AB Utrecht", "Nederland"}));

    // 2.5 of 10: 7.5 is written as 8 (halves to even).
    pick(editor, schroef, "2,5");
    EXPECT_EQ(stock(schroef), 8);
    EXPECT_EQ(screen.grid.headers,
              QStringList({"Artikelnummer", "Omschrijving", "Eenheid", "Prijs per stuk", "Aantal",
                           "BTW", "Korting", "Totaal prijs"}));
    EXPECT_EQ(screen.grid.rows, QStringList({"S1\tOmschrijving S1\tstuk\t€ 1,25\t2,5\t21%\t0%\t"
                                             "€ 3,13|" +
                                             QString::number(schroef)}));

    // Twice the same article: refused, nothing moves.
    pick(editor, schroef, "1");
    EXPECT_TRUE(ui.lastMessageIs(kAlreadyThere, "Artikel toevoegen", ui::Icon::Information));
    EXPECT_EQ(stock(schroef), 8);
    EXPECT_EQ(editor.Factuur().ArtikelenPerFactuur().size(), 1);

    // Stock 5, quantity 6: refused without negative stock, -1 with it.
    pick(editor, moer, "6");
    EXPECT_TRUE(ui.lastMessageIs(kNoStock, "Onvoldoende voorraad", ui::Icon::Critical));
    EXPECT_EQ(stock(moer), 5);
    pick(editor, bout, "6", "10");
    EXPECT_EQ(stock(bout), -1);

    // Hours keep no stock: adding takes none.
    pick(editor, uur, "4");
    EXPECT_EQ(stock(uur), 3);
    EXPECT_EQ(editor.Factuur().ArtikelenPerFactuur().size(), 3);

    // Raising a line takes the difference from stock without any check.
    changeLine(editor, schroef, "4");
    EXPECT_EQ(stock(schroef), 6);
    EXPECT_TRUE(screen.grid.rows.first().contains("\t4\t21%\t0%\t€ 5,00|"))
        << screen.grid.rows.first().toStdString();

    // Removing the hours gives their quantity back all the same.
    ui.answers.enqueue(ui::Answer::Yes);
    screen.grid.selection = {uur};
    editor.VerwijderGeselecteerd();
    EXPECT_TRUE(
        ui.lastMessageIs("Weet u zeker dat u het geselecteerde artikel/uur wilt verwijderen?",
                         "Verwijderen module(n)", ui::Icon::Question));
    EXPECT_EQ(ui.lastMessage().defaultButton, ui::Answer::No);
    EXPECT_EQ(stock(uur), 7);

    // 4 x 1.25 = 5 and 6 x 2 less 10 % = 10.80, both at 21 %: VAT 3.318, shown in cents.
    EXPECT_EQ(screen.totals, (QList<std::pair<QString, QString>>{{"Totaal excl. BTW", "€ 15,80"},
                                                                 {"BTW 21%", "€ 3,32"},
                                                                 {"Totaal incl. BTW", "€ 19,12"}}));
    const InvoiceTotals shown = editor.Totalen();
    editor.Opslaan();
    EXPECT_FALSE(screen.visible);
    settle();
    EXPECT_TRUE(list.editors().isEmpty());
    const qint32 id = lastInvoice();
    EXPECT_EQ(stored(QString("SELECT TotaalPrijs FROM Factuur WHERE FactuurID=%1").arg(id)),
              shown.inclusive.raw());
    EXPECT_EQ(stored(QString("SELECT TotaalPrijsExBTW FROM Factuur WHERE FactuurID=%1").arg(id)),
              shown.exclusive.raw());
    EXPECT_EQ(screens.list->grid.rows,
              QStringList(
                  {"1\tBakkerij De Linde\t" +
                   Regional::locale().toString(QDate::currentDate(), Regional::shortDateFormat()) +
                   "\t€ 19,12|" + QString::number(id)}));

    // Reopened: the stored lines; removing one returns its stock at once, and cancelling
    // after the question leaves that stock returned and the stored invoice as it was.
    clsContrFactuurBewerken& again = openInvoice(id);
    FakeEditor& reopened = *screens.editor;
    EXPECT_EQ(reopened.caption, "Bewerken factuur");
    EXPECT_EQ(reopened.grid.rows.size(), 2);
    ui.answers.enqueue(ui::Answer::Yes);
    again.ArtikelenVerwijderen({schroef});
    EXPECT_EQ(stock(schroef), 10);
    ui.answers.enqueue(ui::Answer::No);
    EXPECT_FALSE(again.Annuleren());
    EXPECT_EQ(ui.lastMessage().caption, "Factuur sluiten");
    EXPECT_TRUE(reopened.visible);
    ui.answers.enqueue(ui::Answer::Yes);
    EXPECT_TRUE(again.Annuleren());
    EXPECT_FALSE(reopened.visible);
    EXPECT_EQ(stock(schroef), 10);
    EXPECT_EQ(stored("SELECT COUNT(*) FROM ArtikelPerFactuur"), 2);
}

TEST_F(InvoiceTest, NumbersFollowTheHighestAndWarnAboveNineDigits) {
    addInvoice("7");
    addInvoice("12");
    addInvoice("9");
    newInvoice();
    EXPECT_EQ(screens.editor->nummer, "13");
    // Not saved: the next one is offered the same number.
    list.NieuwFactuur();
    EXPECT_EQ(screens.editor->nummer, "13");
    EXPECT_TRUE(ui.messages.isEmpty());

    addInvoice("999999999");
    list.NieuwFactuur();
    EXPECT_TRUE(
        ui.lastMessageIs("Het opvolgende factuurnummer is groter dan 999.999.999 waardoor\r\n"
                         "het nummer foutief zal worden weergegeven.",
                         "Factuurnummer", ui::Icon::Exclamation));
    EXPECT_EQ(screens.editor->nummer, "1000000000");
    EXPECT_TRUE(screens.editor->visible);
}

TEST_F(InvoiceTest, ANumberAnotherInvoiceHasIsRefusedOnlyWhenChanged) {
    const qint32 klant = addCustomer("Klant");
    addInvoice("5");
    const qint32 zes = addInvoice("6");
    database.exec(QString("UPDATE Factuur SET KlantId=%1 WHERE FactuurID=%2").arg(klant).arg(zes));

    clsContrFactuurBewerken& editor = openInvoice(zes);
    screens.editor->typeNummer("5");
    editor.Opslaan();
    EXPECT_TRUE(
        ui.lastMessageIs("Het factuurnummer bestaat al. De factuur kan niet worden opgeslagen.",
                         "Factuur opslaan", ui::Icon::Exclamation));
    EXPECT_TRUE(screens.editor->visible);
    EXPECT_EQ(stored("SELECT COUNT(*) FROM Factuur WHERE Nummer=6"), 1);

    // Back to its own number: not looked up, saved.
    const int messages = ui.messages.size();
    screens.editor->typeNummer("6");
    editor.Opslaan();
    EXPECT_EQ(ui.messages.size(), messages);
    EXPECT_FALSE(screens.editor->visible);
    EXPECT_EQ(stored(QString("SELECT TotaalPrijs FROM Factuur WHERE FactuurID=%1").arg(zes)), 0);
}

TEST_F(InvoiceTest, CancellingANewInvoiceLeavesTheStockTakenAndStoresNothing) {
    const qint32 artikel = addArticle({"A", 10000, 10});
    clsContrFactuurBewerken& editor = newInvoice();
    pick(editor, artikel, "3");
    ui.answers.enqueue(ui::Answer::Yes);
    EXPECT_TRUE(editor.Annuleren());
    settle();
    EXPECT_EQ(stock(artikel), 7);
    EXPECT_EQ(stored("SELECT COUNT(*) FROM Factuur"), 0);
    EXPECT_TRUE(list.editors().isEmpty());
}

// A message box or a modal dialog runs a loop of its own while the code that opened it is
// still on the stack. A picker or an editor that closed before must outlive that loop: the
// screen's handler and the field checks queued behind it still use them.
TEST_F(InvoiceTest, AClosedScreenGoesOnlyWhenItsOwnLoopHasControlAgain) {
    const qint32 artikel = addArticle({"A", 10000, 10});
    const qint32 klant = addCustomer("Klant");
    clsContrFactuurBewerken& editor = newInvoice();
    chooseCustomer(editor, klant);
    const auto messageBoxLoop = [] {
        QEventLoop box;
        QTimer::singleShot(0, &box, &QEventLoop::quit);
        box.exec();
    };
    bool pickerKept = false;
    bool editorKept = false;
    QEventLoop program;
    // Run from the program's loop, as a click on OK is.
    QTimer::singleShot(0, [&] {
        editor.ArtikelToevoegen();
        articles.list->selection = {artikel};
        editor.artikelController()->Selecteren();
        messageBoxLoop();
        pickerKept = editor.artikelController() != nullptr;
        editor.Opslaan();
        messageBoxLoop();
        editorKept = list.editors().size() == 1;
        program.quit();
    });
    program.exec();
    settle();
    EXPECT_TRUE(pickerKept);
    EXPECT_TRUE(editorKept);
    EXPECT_TRUE(list.editors().isEmpty());
    EXPECT_EQ(stored("SELECT Aantal FROM ArtikelPerFactuur"), 1);
}

TEST_F(InvoiceTest, SavingRefusesAnInvalidDateOrNoCustomerAndKeepsTheEditorOpen) {
    const qint32 klant = addCustomer("Klant");
    clsContrFactuurBewerken& editor = newInvoice();
    editor.Opslaan();
    EXPECT_TRUE(ui.lastMessageIs("Kies eerst de klant voor wie de factuur is.", "Factuur opslaan",
                                 ui::Icon::Exclamation));
    chooseCustomer(editor, klant);
    screens.editor->datum = "31-02-2026";
    editor.Opslaan();
    EXPECT_EQ(ui.lastMessage().caption, "Factuurdatum");
    EXPECT_EQ(stored("SELECT COUNT(*) FROM Factuur"), 0);
    screens.editor->datum = "28-02-2026";
    editor.Opslaan();
    EXPECT_EQ(database.scalar("SELECT Datum FROM Factuur").toString().left(10), "2026-02-28");
}

// Deleting asks once, in the number of the selection, and removes the invoice rows only;
// their lines go with them through the database's relation (no orphan lines), and the
// stock they gave out stays given out.
TEST_F(InvoiceTest, DeletingAsksOnceAndLeavesStockAlone) {
    const qint32 artikel = addArticle({"A", 10000, 10});
    const qint32 klant = addCustomer("Klant");
    const QList<qint32> ids{saveInvoice(klant, artikel, "1"), saveInvoice(klant, artikel, "2")};
    EXPECT_EQ(stock(artikel), 7);
    const qint32 keep = addInvoice("99");
    database.exec(QString("INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal) "
                          "VALUES (%1, %2, 1)")
                      .arg(keep)
                      .arg(artikel));

    list.StartFacturen();
    screens.list->grid.selection = {ids[0]};
    ui.answers.enqueue(ui::Answer::No);
    list.VerwijderGeselecteerde();
    EXPECT_TRUE(ui.lastMessageIs("Weet u zeker dat u de geselecteerde factuur wilt verwijderen?",
                                 "Verwijderen module(n)", ui::Icon::Question));
    EXPECT_EQ(stored("SELECT COUNT(*) FROM Factuur"), 3);

    const int before = ui.messages.size();
    screens.list->grid.selection = ids;
    ui.answers.enqueue(ui::Answer::Yes);
    list.VerwijderGeselecteerde();
    EXPECT_EQ(ui.messages.size(), before + 1);
    EXPECT_EQ(ui.lastMessage().text,
              "Weet u zeker dat u de geselecteerde facturen wilt verwijderen?");
    EXPECT_EQ(stored("SELECT COUNT(*) FROM Factuur"), 1);
    EXPECT_EQ(stock(artikel), 7);
    EXPECT_EQ(stored("SELECT COUNT(*) FROM ArtikelPerFactuur WHERE FactuurID <> " +
                     QString::number(keep)),
              0);
    EXPECT_EQ(stored("SELECT COUNT(*) FROM ArtikelPerFactuur"), 1);
    EXPECT_EQ(screens.list->grid.rows.size(), 1);
    EXPECT_TRUE(screens.list->grid.rows.first().endsWith("|" + QString::number(keep)));
}

struct EmptySelection {
    void (clsControllerFacturen::*button)();
    const char* text;
    const char* caption;
};

class InvoiceButtonTest : public InvoiceTest, public testing::WithParamInterface<EmptySelection> {};

TEST_P(InvoiceButtonTest, SaysSoWhenNothingIsSelected) {
    addInvoice("1");
    list.StartFacturen();
    (list.*GetParam().button)();
    EXPECT_TRUE(ui.lastMessageIs(GetParam().text, GetParam().caption, ui::Icon::Information));
    EXPECT_TRUE(list.editors().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, InvoiceButtonTest,
    testing::Values(EmptySelection{&clsControllerFacturen::BewerkGeselecteerde,
                                   "Er is geen factuur geselecteerd om te bewerken.",
                                   "Factuur bewerken"},
                    EmptySelection{&clsControllerFacturen::VerwijderGeselecteerde,
                                   "Er is geen factuur geselecteerd om te verwijderen.",
                                   "Factuur verwijderen"},
                    EmptySelection{&clsControllerFacturen::ToonGeselecteerde,
                                   "Er is geen factuur geselecteerd om te tonen.", "Factuur tonen"},
                    EmptySelection{&clsControllerFacturen::EFactuurGeselecteerde,
                                   "Er is geen factuur geselecteerd om als e-factuur op te slaan.",
                                   "E-factuur (UBL)"}));

// "E-factuur (UBL)" on the list: invoices saved through the editor, for a customer whose VAT
// number is its Peppol address.
class InvoiceEInvoiceTest : public InvoiceTest {
protected:
    InvoiceEInvoiceTest() {
        database.exec(
            "UPDATE Instellingen SET Bedrijfsnaam='De Linde B.V.', Adres='Kerkstraat 1', "
            "Postcode='3511 AB', Plaats='Utrecht', Land='Nederland', "
            "Banknummer='NL91 ABNA 0417 1643 00', BTWNummer='NL001234567B01', "
            "KVKNummer='12345678'");
        const qint32 klant = addCustomer("Bakkerij De Linde");
        database.exec(
            QString("UPDATE Klant SET Extra='NL009876543B01' WHERE KlantID=%1").arg(klant));
        const qint32 artikel = addArticle({"S1", 12500, 100});
        for (const char* aantal : {"1", "2", "3"}) {
            ids << saveInvoice(klant, artikel, aantal);
        }
        list.StartFacturen();
        ui.messages.clear();
    }
    QString numberOf(qint32 id) const {
        return database.scalar(QString("SELECT Nummer FROM Factuur WHERE FactuurID=%1").arg(id))
            .toString();
    }
    QStringList writtenFiles() const {
        return QDir(folder.path()).entryList(QDir::Files, QDir::Name);
    }

    QList<qint32> ids;
    QTemporaryDir folder;
};

TEST_F(InvoiceEInvoiceTest, WritesOneFilePerSelectedInvoiceIntoTheChosenFolder) {
    screens.list->grid.selection = {ids[1], ids[2]};
    ui.foldersToChoose.enqueue(folder.path());
    list.EFactuurGeselecteerde();
    EXPECT_EQ(ui.folderPrompts.size(), 1);
    EXPECT_EQ(writtenFiles(), QStringList({numberOf(ids[1]) + ".xml", numberOf(ids[2]) + ".xml"}));
    EXPECT_TRUE(ui.lastMessageIs(
        "2 e-facturen opgeslagen in de map " + QDir::toNativeSeparators(folder.path()) + ".",
        "E-factuur (UBL)", ui::Icon::Information));
    const QByteArray xml = readBytes(folder.filePath(numberOf(ids[2]) + ".xml"));
    const QByteArray id = "<cbc:ID>" + numberOf(ids[2]).toUtf8() + "</cbc:ID>";
    EXPECT_TRUE(xml.contains(id)) << xml.left(600).toStdString();
}

// Without the company's KvK number no invoice can become an e-invoice: the user hears which
// field is missing before a folder is asked, and nothing is written.
TEST_F(InvoiceEInvoiceTest, AMissingKvkNumberIsNamedAndNothingIsWritten) {
    database.exec("UPDATE Instellingen SET KVKNummer=''");
    screens.list->grid.selection = {ids[0]};
    ui.foldersToChoose.enqueue(folder.path());
    list.EFactuurGeselecteerde();
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessage().text.contains("KVK nummer"))
        << ui.lastMessage().text.toStdString();
    EXPECT_EQ(ui.lastMessage().caption, "E-factuur (UBL)");
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Exclamation);
    EXPECT_TRUE(ui.folderPrompts.isEmpty());
    EXPECT_TRUE(writtenFiles().isEmpty());
}

TEST_F(InvoiceTest, ATemplateNumberOfSevenOrMoreIsNotFound) {
    for (const int sjabloon : {7, 12}) {
        database.exec(QString("UPDATE Instellingen SET Sjabloon=%1").arg(sjabloon));
        ui.messages.clear();
        list.OpenSjabloon("1,2");
        ASSERT_EQ(ui.messages.size(), 1) << sjabloon;
        EXPECT_TRUE(ui.lastMessageIs("Factuur sjabloon niet gevonden.", "Factuur sjabloon openen",
                                     ui::Icon::Information));
    }
}

// What the editor shows below its grid is what the save stores, for customers with and
// without VAT, discounts, both rates and amounts that do not end in whole cents.
struct TotalsCase {
    const char* name;
    bool zeroVatCustomer;
    std::vector<std::tuple<qint64, const char*, const char*, int>> lines;  // price, qty, disc, rate
};

class InvoiceTotalsTest : public InvoiceTest, public testing::WithParamInterface<TotalsCase> {};

TEST_P(InvoiceTotalsTest, StoredAmountsEqualWhatTheEditorShowed) {
    const TotalsCase& c = GetParam();
    const qint32 klant = addCustomer("Klant", c.zeroVatCustomer);
    clsContrFactuurBewerken& editor = newInvoice();
    chooseCustomer(editor, klant);
    int n = 0;
    for (const auto& [price, aantal, korting, tarief] : c.lines) {
        const Article article{QString("A%1").arg(++n), price, 1000, false, false, tarief};
        pick(editor, addArticle(article), aantal, korting);
    }
    const InvoiceTotals shown = editor.Totalen();
    const QString shownText = shownTotal();
    editor.Opslaan();
    settle();
    const qint32 id = lastInvoice();
    EXPECT_EQ(stored("SELECT TotaalPrijs FROM Factuur"), shown.inclusive.raw());
    EXPECT_EQ(stored("SELECT TotaalPrijsExBTW FROM Factuur"), shown.exclusive.raw());
    EXPECT_EQ(stored("SELECT SUM(BTWBedragTarief1 + BTWBedragTarief2) FROM ArtikelPerFactuur"),
              (shown.inclusive - shown.exclusive).raw());
    EXPECT_TRUE(screens.list->grid.rows.last().contains(shownText));

    // Reopened after the rates changed: an edited line keeps its stored rate, and the
    // screen still shows what the save will store.
    database.exec("UPDATE BTW SET BTW1=25, BTW2=12");
    clsContrFactuurBewerken& again = openInvoice(id);
    changeLine(again, again.Factuur().ArtikelenPerFactuur().first().artikelID(), "7", "5");
    const InvoiceTotals reshown = again.Totalen();
    again.Opslaan();
    settle();
    EXPECT_EQ(stored("SELECT TotaalPrijs FROM Factuur"), reshown.inclusive.raw());
    EXPECT_EQ(stored("SELECT TotaalPrijsExBTW FROM Factuur"), reshown.exclusive.raw());
}

INSTANTIATE_TEST_SUITE_P(
    Invoices, InvoiceTotalsTest,
    testing::Values(
        TotalsCase{"BothRates", false, {{125000, "3", "0", 1}, {12345, "3", "10", 2}}},
        TotalsCase{"FractionsAndFullDiscount",
                   false,
                   {{12345, "3", "10", 1}, {9999, "0,333", "12,5", 1}, {50000, "2", "100", 2}}},
        TotalsCase{"ZeroVatCustomer", true, {{125000, "3", "0", 1}, {33333, "1,5", "0", 2}}},
        TotalsCase{"NoVatClass", false, {{10000, "1", "0", 0}, {20000, "2", "0", 1}}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(InvoiceTest, TheInvoiceMenuEntryOpensTheInvoiceList) {
    addInvoice("3", "Eerste klant");
    clsControllerFactuur application;
    application.StartFacturen();
    ASSERT_NE(application.openRegister(Register::Facturen), nullptr);
    EXPECT_TRUE(screens.list->visible);
    EXPECT_EQ(screens.list->grid.headers,
              QStringList({"Factuurnummer", "Klantnaam", "Datum", "Totaal prijs"}));
    EXPECT_EQ(screens.list->grid.rows.first().section('|', 0, 0),
              "3\tEerste klant\t05-01-2026\t€ 1,23");
    auto* facturen =
        static_cast<clsControllerFacturen*>(application.openRegister(Register::Facturen));
    facturen->Annuleren();
    EXPECT_FALSE(screens.list->visible);
    settle();
    EXPECT_EQ(application.openRegister(Register::Facturen), nullptr);
}

}  // namespace
