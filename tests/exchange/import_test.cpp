#include <QFile>

#include "ExchangeFixture.h"
#include "base/Currency.h"
#include "controllers/ImportController.h"
#include "controllers/ImportViews.h"
#include "controllers/ShellViews.h"
#include "controllers/ViewFactory.h"
#include "exchange/ExchangeRoutines.h"
#include "exchange/clsXport.h"

namespace {

const QString kFailure = QStringLiteral("Importeren vanuit bestand mislukt!");

class ImportTest : public ExchangeTest {
protected:
    // Runs the import routine on a file holding text in Windows-1252.
    bool importText(const QString& table, const QByteArray& bytes) {
        writeBytes(work("import.txt"), bytes);
        ui.filesToOpen.enqueue(work("import.txt"));
        return exchange::importTable(table);
    }
    void expectFailureMessage() {
        ASSERT_FALSE(ui.messages.isEmpty());
        EXPECT_EQ(ui.lastMessage().text, kFailure);
        EXPECT_EQ(ui.lastMessage().caption, "Importeren mislukt");
        EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);
    }
};

TEST_F(ImportTest, SkipsEmptyLinesAndLinesWithoutASeparator) {
    ASSERT_TRUE(importText("Klant", "1001\r\n\r\n1001;\r\n;Tweede BV;\r\n\r\n"));
    EXPECT_EQ(column("Klant", "DebiteurNummer"), (QVariantList{1001, QVariant()}));
    EXPECT_EQ(column("Klant", "Bedrijfsnaam"), (QVariantList{QVariant(), "Tweede BV"}));
    EXPECT_EQ(column("Klant", "Fax"), (QVariantList{QVariant(), QVariant()}));

    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text, "Importeren van Klant  gelukt");
    EXPECT_EQ(ui.lastMessage().caption, "Importeren gelukt");
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::None);
    ASSERT_EQ(ui.fileRequests.size(), 1);
    EXPECT_EQ(ui.fileRequests[0].title, "Kies te importeren bestand");
    EXPECT_EQ(ui.fileRequests[0].filter, "tekstbestanden|*.txt|csv-bestanden|*.csv");
    EXPECT_EQ(ui.fileRequests[0].startFolder, database.folder());
}

TEST_F(ImportTest, WindowsTextWithDecimalCommasAndEveryLineEnd) {
    writeBytes(work("import.txt"), expectedFile("artikelen-import.txt"));
    ASSERT_TRUE(clsXport().Mport("Artikel", work("import.txt")));

    EXPECT_EQ(column("Artikel", "Nummer"), (QVariantList{"A-10", "A-11", "A-12"}));
    EXPECT_EQ(column("Artikel", "Omschrijving"),
              (QVariantList{QStringLiteral("Crème fraîche"), QStringLiteral("Bonbon “luxe”"),
                            "Schoonmaak"}));
    EXPECT_EQ(column("Artikel", "Voorraad"), (QVariantList{12, -2, QVariant()}));
    QList<qint64> prices;
    for (const QVariant& price : column("Artikel", "Prijs"))
        prices.append(price.value<Currency>().raw());
    EXPECT_EQ(prices, (QList<qint64>{27500, 12345000, 450000}));
    EXPECT_EQ(column("Artikel", "NegVoorToestaan"), (QVariantList{true, false, QVariant()}));
    // The trailing ";" of A-11 is an empty eleventh field: it sets nothing.
    EXPECT_EQ(column("Artikel", "GeenVoorraad"), (QVariantList{false, QVariant(), QVariant()}));
}

// A refused line stops the import there: what came before stays, nothing after is stored.
struct RefusedLine {
    std::string name;
    std::string line;
};

class RefusedImport : public ImportTest, public ::testing::WithParamInterface<RefusedLine> {};

TEST_P(RefusedImport, KeepsTheEarlierLinesOnly) {
    QByteArray text;
    for (int i = 1; i <= 2500; ++i)
        text += "A-" + QByteArray::number(i) + ";Artikel;stuk;1;1,5\r\n";
    text += QByteArray::fromStdString(GetParam().line);
    text += "\r\nA-na;Daarna;stuk;1;1\r\n";

    EXPECT_FALSE(importText("Artikel", text));
    expectFailureMessage();
    EXPECT_EQ(count("Artikel"), 2500);
    EXPECT_EQ(
        database.scalar("SELECT COUNT(*) FROM Artikel WHERE Nummer IN ('A-fout', 'A-na')").toInt(),
        0);
}

INSTANTIATE_TEST_SUITE_P(
    Faults, RefusedImport,
    ::testing::Values(RefusedLine{"TooManyFields", "A-fout;a;b;1;2;True;1;True;False;extra"},
                      RefusedLine{"NotANumber", "A-fout;Artikel;stuk;veel;1"},
                      RefusedLine{"NotAnAmount", "A-fout;Artikel;stuk;1;gratis"},
                      RefusedLine{"TextTooLong", "A-fout;" + std::string(300, 'x') + ";stuk;1;1"}),
    [](const auto& info) { return info.param.name; });

TEST_F(ImportTest, ImportingTwiceAddsEveryRowTwice) {
    const QByteArray text = "1;Eerste BV\r\n2;Tweede BV\r\n";
    ASSERT_TRUE(importText("Klant", text));
    ASSERT_TRUE(importText("Klant", text));
    EXPECT_EQ(column("Klant", "Bedrijfsnaam"),
              (QVariantList{"Eerste BV", "Tweede BV", "Eerste BV", "Tweede BV"}));
}

TEST_F(ImportTest, AnExportWithoutItsHeaderAndKeysImportsBack) {
    for (int i = 0; i < 3000; ++i)
        addRow("Klant", {{"DebiteurNummer", i},
                         {"Bedrijfsnaam", QStringLiteral("Firma %1 é").arg(i)},
                         {"Zichtbaar", i % 2 == 0}});
    QString folder = workFolder();
    ASSERT_TRUE(clsXport().Xport("klant", "csv", folder, QString()));
    QByteArray rows;
    const QList<QByteArray> lines = readBytes(work("klant.csv")).split('\n');
    ASSERT_EQ(lines.size(), 3002);  // header, rows, nothing after the last CR LF
    for (qsizetype i = 1; i + 1 < lines.size(); ++i)
        rows += lines[i].mid(lines[i].indexOf(';') + 1) + '\n';

    ASSERT_TRUE(importText("Klant", rows));
    EXPECT_EQ(count("Klant"), 6000);
    const QVariantList names = column("Klant", "Bedrijfsnaam");
    EXPECT_EQ(names[3000 + 2999], QStringLiteral("Firma 2999 é"));
    EXPECT_EQ(column("Klant", "Zichtbaar")[3001], false);
}

TEST_F(ImportTest, FailsForAMissingFileTableOrName) {
    EXPECT_FALSE(importText("Tarief", "a;b\r\n"));
    expectFailureMessage();
    EXPECT_FALSE(clsXport().Mport("Klant", work("bestaat-niet.txt")));
    EXPECT_FALSE(clsXport().Mport(QString(), work("import.txt")));
    EXPECT_EQ(count("Klant"), 0);
}

TEST_F(ImportTest, ACancelledFileChoiceDoesNothing) {
    EXPECT_FALSE(exchange::importTable("Klant"));
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(ImportTest, TheHelpForCustomersListsTheFieldsWithoutKeyAndExtra) {
    database.exec("ALTER TABLE Klant ADD COLUMN NogEenEXTRAveld TEXT(10)");
    EXPECT_EQ(exchange::importHelpText("klant"),
              "Voor de gekozen tabel moet het te importeren bestand de volgende velden bevatten. "
              "Elk veld moet worden afgesloten met een puntkomma, maar kan eventueel leeg zijn, "
              "dus ';;;'\r\nDebiteurNummer;\r\nBedrijfsnaam;\r\nFax;\r\nEmail;\r\nVoorletters;\r\n"
              "Tussenvoegsel;\r\nAchternaam;\r\nAdres;\r\nPostcode;\r\nPlaats;\r\nLand;\r\n"
              "Telefoon;\r\nZichtbaar;\r\nBTW;\r\nDhr;\r\n");
}

// The import screen as its controller drives it, with stand-in screens.
class FakeHelpView : public IHelpImportView {
public:
    explicit FakeHelpView(QStringList& shown) : shown_(shown) {}
    QString LabelTekst() const override { return text_; }
    void setLabelTekst(const QString& text) override { text_ = text; }
    void showModal() override { shown_.append(text_); }

private:
    QStringList& shown_;
    QString text_;
};

class FakeImportView : public IImportView {
public:
    void setEvents(IImportEvents* events) override { events_ = events; }
    void show() override { ++shown; }
    void close() override { ++closed; }
    IImportEvents* events_ = nullptr;
    int shown = 0;
    int closed = 0;
};

class FakeFactory : public ViewFactory {
public:
    std::unique_ptr<ISplashView> createSplash() override { return nullptr; }
    std::unique_ptr<IAboutView> createAbout() override { return nullptr; }
    std::unique_ptr<IImportView> createImport() override {
        auto view = std::make_unique<FakeImportView>();
        importView = view.get();
        return view;
    }
    std::unique_ptr<IHelpImportView> createHelpImport() override {
        return std::make_unique<FakeHelpView>(helpShown);
    }
    FakeImportView* importView = nullptr;
    QStringList helpShown;
};

TEST_F(ImportTest, TheScreenImportsShowsHelpAndCloses) {
    FakeFactory factory;
    installViewFactory(&factory);
    ImportController controller;
    controller.show();
    controller.show();
    ASSERT_NE(factory.importView, nullptr);
    EXPECT_EQ(factory.importView->shown, 2);

    writeBytes(work("klanten.txt"), "1;Eerste BV\r\n");
    ui.filesToOpen.enqueue(work("klanten.txt"));
    factory.importView->events_->importeer("Klant");
    EXPECT_EQ(count("Klant"), 1);

    factory.importView->events_->toonVelden(1);
    ASSERT_EQ(factory.helpShown.size(), 1);
    EXPECT_EQ(factory.helpShown[0], exchange::importHelpText("artikel"));
    EXPECT_TRUE(factory.helpShown[0].endsWith("GeenVoorraad;\r\n"));

    ui.messages.clear();
    factory.importView->events_->toonVelden(2);  // there is no table of rates
    EXPECT_EQ(factory.helpShown.size(), 1);
    expectFailureMessage();

    factory.importView->events_->sluiten();
    EXPECT_EQ(factory.importView->closed, 1);
    installViewFactory(nullptr);
}

}  // namespace
