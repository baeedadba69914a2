#include <QImage>

#include "PrintFixture.h"
#include "printing/FactuurSjabloon.h"
#include "printing/ReportPresenter.h"
#include "printing/ValueFormat.h"
#include "printing/clsObjSjabloon.h"
#include "printing/modInstellingen.h"
#include "printing/modOverzicht.h"
#include "printing/modPdf.h"

namespace {

using report::amountText;

// What every template shows of invoice 1001, and what each shows of its own.
const QStringList kEveryTemplate = {"Factuurnummer",
                                    "1001",
                                    "Factuurdatum",
                                    "07-03-2026",
                                    "J. van Dijk",
                                    "Van Dijk Installaties BV",
                                    "Kerkstraat 5",
                                    "1234 AB",
                                    "Amsterdam",
                                    "Roggebrood heel",
                                    "Bruiloftstaart op maat",
                                    "Krentenbollen",
                                    "€ 12,50",
                                    "€ 1.250,00",
                                    "€ 3,35",
                                    "€ 45,00",
                                    "10%",
                                    "21%",
                                    "9%",
                                    "Totaalprijs ex. BTW",
                                    "€ 1.305,10",
                                    "BTW bedrag",
                                    "€ 1.577,95",
                                    "Vermeld bij betaling altijd het factuurnummer.",
                                    "Factuur 1001"};

struct TemplateCase {
    qint16 sjabloon;
    int number;
    QStringList captions;
    bool paymentTerm;  // "Betaling binnen 14 dagen na factuurdatum." and the customer's VAT number
};

const TemplateCase kTemplates[] = {
    {0,
     4,
     {"FACTUUR VOOR:", "BEDRIJFSGEGEVENS:", "Tel:", "Fax:", "E-mail:", "Website:", "BTW Nr:",
      "KvK:", "Banknaam:", "Rabobank", "Bankrekening:", "NL91 RABO 0123 4567 89", "Omschrijving",
      "Aantal", "Prijs", "Kort.", "BTW", "Prijs ex. BTW", "FACTUURBEDRAG"},
     true},
    {1,
     1,
     {"Klantgegevens",
      "Bedrijfsgegevens",
      "Bestelgegevens",
      "Betaalgegevens",
      "Naam",
      "Bedrijfsnaam",
      "Adres",
      "Postcode",
      "Plaats",
      "Telefoon",
      "020-5551234",
      "Nederland",
      "BTW-Nummer",
      "Bakkerij Korvane",
      "Molenweg 12",
      "9711 AB",
      "Groningen",
      "050-1234567",
      "050-7654321",
      "BTW nummer",
      "NL001234567B01",
      "KvK nummer",
      "01234567",
      "E-mail",
      "info@korvane.nl",
      "www.korvane.nl",
      "Graag het bovenstaande bedrag overmaken naar de volgende bankgegevens:",
      "Banknaam",
      "Rabobank",
      "Rekeningnummer",
      "NL91 RABO 0123 4567 89",
      "Ten name van",
      "Artikel",
      "Aantal",
      "Prijs per stuk",
      "Korting",
      "BTW",
      "Prijs ex. BTW",
      "Totaalprijs"},
     true},
    {2,
     5,
     {"FACTUUR VOOR:", "Omschrijving", "Aantal", "Prijs", "Korting", "BTW", "Prijs ex. BTW",
      "FACTUURBEDRAG"},
     true},
    {3,
     6,
     {"* *  F A C T U U R * *", "Omschrijving", "Aantal", "Prijs", "Korting", "BTW",
      "Prijs ex. BTW", "FACTUURBEDRAG"},
     true},
    {4,
     2,
     {"FACTUUR", "Telefoon:", "Fax:", "E-mail:", "Website:", "BTW Nr:", "KvK-nummer:",
      "Bankrekening:", "NL91 RABO 0123 4567 89", "Nederland", "Omschrijving", "Aantal", "Prijs",
      "Korting", "BTW", "Prijs ex. BTW", "FACTUURBEDRAG"},
     true},
    {5,
     3,
     {"FACTUUR", "Telefoon:", "Fax:", "E-mail:", "Website:", "BTW Nr:", "KvK nummer:",
      "Bankrekening:", "Nederland", "Omschrijving", "Aantal", "Prijs", "Korting", "BTW",
      "Prijs ex. BTW", "FACTUURBEDRAG"},
     true},
    {6,
     7,
     {"FACTUUR VOOR",     "Naam",      "Bedrijfsnaam",  "Adres",
      "Postcode",         "Plaats",    "Telefoonnr",    "BTW-Nr",
      "Bedrijfsgegevens", "Nederland", "BTW nummer",    "KvK nummer",
      "E-mail",           "Artikel",   "Aantal",        "Prijs per stuk",
      "Korting",          "BTW",       "Prijs ex. BTW", "Totaalprijs incl. BTW"},
     false},
};

class TemplatePdfTest : public PrintTest, public ::testing::WithParamInterface<TemplateCase> {};

// Invoice 1001 in each template, printed to PDF and read back.
TEST_P(TemplatePdfTest, EveryCaptionAmountAndVatSumIsPrinted) {
    const TemplateCase& c = GetParam();
    database.exec(QString("UPDATE Instellingen SET Sjabloon = %1").arg(c.sjabloon));
    ASSERT_TRUE(FacturenAlsPdf({"1001"}, pdf("f.pdf")));
    const QStringList printed = pages(pdf("f.pdf"));
    ASSERT_EQ(printed.size(), 1);
    const QString& page = printed.first();
    // pdftotext spaces words by their positions: "F A C T U U R" reads as "FACTUUR".
    const auto letters = [](QString text) { return text.remove(QRegularExpression("\\s")); };
    for (const QString& text : kEveryTemplate + c.captions) {
        EXPECT_TRUE(letters(page).contains(letters(text))) << text.toStdString();
    }

    // The VAT per rate is the sum of the lines' amounts at that rate.
    const QString sums =
        QString("SELECT SUM(BTWBedragTarief%1) FROM ArtikelPerFactuur WHERE FactuurID = 1");
    const Currency first = Currency::fromRaw(database.scalar(sums.arg(1)).toLongLong());
    const Currency second = Currency::fromRaw(database.scalar(sums.arg(2)).toLongLong());
    EXPECT_EQ(amountText(first), "€ 271,95");
    EXPECT_TRUE(page.contains(
        QRegularExpression("BTW bedrag +21% +" + QRegularExpression::escape(amountText(first)))));
    EXPECT_TRUE(page.contains(
        QRegularExpression("BTW bedrag +9% +" + QRegularExpression::escape(amountText(second)))));

    EXPECT_EQ(page.contains("Betaling binnen 14 dagen na factuurdatum."), c.paymentTerm);
    EXPECT_EQ(page.contains("NL009988776B01"), c.paymentTerm);  // the customer's own VAT number
    EXPECT_EQ(c.number == 7, page.contains(QRegularExpression("BTW-Nr +NL001234567B01")));
    EXPECT_TRUE(ui.messages.size() == 1 && ui.lastMessage().text.startsWith("Opgeslagen als "));
}

INSTANTIATE_TEST_SUITE_P(Templates, TemplatePdfTest, ::testing::ValuesIn(kTemplates),
                         [](const auto& info) {
                             return "FactuurSjabloon" + std::to_string(info.param.number);
                         });

TEST_F(PrintTest, ThreeNumbersGiveThreeInvoicesEachOnItsOwnPages) {
    ASSERT_TRUE(FacturenAlsPdf({"1001", "1002", "1003"}, pdf("drie.pdf")));
    const QStringList printed = pages(pdf("drie.pdf"));
    ASSERT_EQ(printed.size(), 3);
    const QStringList totals = {"€ 1.577,95", "€ 25,00", "€ 41,72"};
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_TRUE(
            printed[i].contains(QRegularExpression(QString("Factuurnummer +100%1").arg(i + 1))));
        EXPECT_TRUE(printed[i].contains(
            QRegularExpression("FACTUURBEDRAG +" + QRegularExpression::escape(totals[i]))));
    }
    // The customer at 0 % VAT: no VAT on the line, and a negative line on the third.
    EXPECT_TRUE(printed[1].contains(QRegularExpression("BTW bedrag +21% +€ 0,00")));
    EXPECT_TRUE(printed[2].contains("-€ 3,35"));
    EXPECT_TRUE(printed[2].contains("-€ 0,30"));
}

TEST_F(PrintTest, AnInvoiceOf200LinesRunsOverPagesWithItsTotalsOnceAtTheEnd) {
    ASSERT_TRUE(FacturenAlsPdf({"1004"}, pdf("lang.pdf")));
    const QStringList printed = pages(pdf("lang.pdf"));
    ASSERT_GE(printed.size(), 4);
    int lines = 0;
    for (int i = 0; i < printed.size(); ++i) {
        SCOPED_TRACE(i + 1);
        const QString& page = printed[i];
        EXPECT_TRUE(
            page.contains(QRegularExpression(QString("Factuur 1004 +pagina %1").arg(i + 1))));
        // Captions above the lines of every page, lines on every page.
        EXPECT_TRUE(page.contains(QRegularExpression("Omschrijving +Aantal +Prijs")));
        EXPECT_TRUE(page.contains("Roggebrood heel"));
        EXPECT_EQ(page.contains("FACTUURBEDRAG"), i + 1 == printed.size());
        EXPECT_EQ(page.contains("Factuurdatum"), i == 0);
        lines += int(page.count("Roggebrood heel"));
    }
    EXPECT_EQ(lines, 200);
    EXPECT_TRUE(printed.last().contains(QRegularExpression("Totaalprijs ex. BTW +€ 2.500,00")));
    EXPECT_TRUE(printed.last().contains(QRegularExpression("BTW bedrag +21% +€ 525,00")));
    EXPECT_TRUE(printed.last().contains(QRegularExpression("FACTUURBEDRAG +€ 3.025,00")));
}

TEST_F(PrintTest, OverviewsListVisibleRowsUnderTheirCaptionsOnEveryPage) {
    ASSERT_TRUE(OverzichtAlsPdf(1, pdf("artikelen.pdf")));
    QStringList printed = pages(pdf("artikelen.pdf"));
    ASSERT_EQ(printed.size(), 1);
    QString page = printed.first();
    EXPECT_TRUE(
        page.contains(QRegularExpression("Overzicht Artikelen\\s+Nummer +Omschrijving +Eenheid "
                                         "+Prijs +Voorraad +Negatief toestaan")));
    // Ordered by number as text: 10 before 9; "Neen" as the query words it.
    EXPECT_TRUE(
        page.contains(QRegularExpression("10 +Bruiloftstaart op maat +stuk +€ 1.250,00 +2 "
                                         "+Ja\\s+11 +Krentenbollen +zak +€ 3,35 +120 "
                                         "+Neen\\s+9 +Roggebrood heel +stuk +€ 12,50 +40 +Neen")));
    EXPECT_FALSE(page.contains("Oud artikel"));
    EXPECT_FALSE(page.contains("Pagina"));

    ASSERT_TRUE(OverzichtAlsPdf(3, pdf("klanten.pdf")));
    printed = pages(pdf("klanten.pdf"));
    ASSERT_EQ(printed.size(), 1);
    page = printed.first();
    EXPECT_TRUE(page.contains(QRegularExpression(
        "Overzicht klanten\\s+Bedrijfsnaam +Postc +Adres +Plaats +Telefoon +Fax +Voorl. +Tussenv. "
        "+Achternaam +M/V +Email +BTW 0")));
    EXPECT_TRUE(
        page.contains(QRegularExpression("Aalders Advies .* Wit +V +m.dewit@aalders.nl +Nee\\s")));
    EXPECT_TRUE(page.contains(QRegularExpression("Smit & Zn .* Smit +V +a.smit@smit.nl +Ja\\s")));
    EXPECT_TRUE(page.contains(
        QRegularExpression("Van Dijk Installaties BV .* Dijk +M +jan@vandijk.nl +Nee\\s")));
    EXPECT_FALSE(page.contains("Verborgen"));
    EXPECT_TRUE(page.contains(QRegularExpression("Pagina +1")));
}

TEST_F(PrintTest, AnOverviewOfManyCustomersRepeatsItsCaptionsAndNumbersItsPages) {
    database.exec(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 120) "
        "INSERT INTO Klant (Bedrijfsnaam, Zichtbaar) SELECT 'Klant ' || (1000 + i), 1 FROM n");
    ASSERT_TRUE(OverzichtAlsPdf(3, pdf("veel.pdf")));
    const QStringList printed = pages(pdf("veel.pdf"));
    ASSERT_GE(printed.size(), 3);
    for (int i = 0; i < printed.size(); ++i) {
        EXPECT_TRUE(printed[i].contains(QRegularExpression("Bedrijfsnaam +Postc +Adres"))) << i;
        EXPECT_TRUE(printed[i].contains(QRegularExpression(QString("Pagina +%1\\s").arg(i + 1))))
            << i;
    }
    EXPECT_EQ(printed.join("").count(QRegularExpression("Klant 1\\d\\d\\d")), 120);
}

TEST_F(PrintTest, AnOverviewWithoutVisibleArticlesShowsItsCaptionsOnly) {
    database.exec("UPDATE Artikel SET Zichtbaar = 0");
    ASSERT_TRUE(OverzichtAlsPdf(1, pdf("leeg.pdf")));
    const QString page = pages(pdf("leeg.pdf")).value(0);
    EXPECT_TRUE(page.contains("Negatief toestaan"));
    EXPECT_FALSE(page.contains("€"));
}

// A presenter that keeps what it was given, as a preview window would show it.
class KeptReports : public report::Presenter {
public:
    struct Shown : report::ShownReport {
        bool hidden = false;
        void hide() override { hidden = true; }
    };
    KeptReports() { report::installPresenter(this); }
    ~KeptReports() override { report::installPresenter(nullptr); }
    std::shared_ptr<report::ShownReport> present(const report::Document& document) override {
        documents.append(document);
        shown.append(std::make_shared<Shown>());
        return shown.last();
    }
    QString text(int page = 0) const {
        QStringList all;
        for (const auto& item : documents.last().pages[page].items) {
            all.append(item.text);
        }
        return all.join(u'|');
    }
    QList<report::Document> documents;
    QList<std::shared_ptr<Shown>> shown;
};

class OpenSjabloonTest : public PrintTest {
protected:
    KeptReports previews;
};

TEST_F(OpenSjabloonTest, TheChosenTemplateShowsTheInvoicesAndAnUnknownOneSaysSo) {
    clsObjSjabloon().ToonFacturen("1,3", 3);
    ASSERT_EQ(previews.documents.size(), 1);
    EXPECT_EQ(previews.documents[0].pages.size(), 2);
    EXPECT_TRUE(previews.text().contains("* *  F A C T U U R * *"));
    EXPECT_EQ(previews.documents[0].title, "Facturen");
    EXPECT_TRUE(ui.messages.isEmpty());

    clsObjSjabloon().ToonFacturen("1", 7);
    EXPECT_EQ(previews.documents.size(), 1);
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text, "Factuur sjabloon niet gevonden.");
    EXPECT_EQ(ui.lastMessage().caption, "Factuur sjabloon openen");
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);
}

TEST_F(OpenSjabloonTest, ADeletedInvoiceGivesAnEmptyReport) {
    database.exec("DELETE FROM Factuur WHERE FactuurID = 2");
    FactuurSjabloon sjabloon(4, huidigeInstellingen());
    clsObjSjabloon().OpenSjabloon("2", sjabloon);
    ASSERT_EQ(previews.documents.size(), 1);
    ASSERT_EQ(previews.documents[0].pages.size(), 1);
    EXPECT_FALSE(previews.text().contains("Factuurnummer"));
    EXPECT_FALSE(previews.text().contains("€"));
}

TEST_F(OpenSjabloonTest, AnEngineErrorIsToldWithTheTranslatorsText) {
    FactuurSjabloon sjabloon(4, huidigeInstellingen());
    clsObjSjabloon().OpenSjabloon("1,,2", sjabloon);
    EXPECT_TRUE(previews.documents.isEmpty());
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessage().text.startsWith(
        "Er is een fout opgetreden bij de verwerking van uw opdracht.\r\nDetails: "));
    EXPECT_EQ(ui.lastMessage().caption, "KORVANE LINDEBRUG");
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Exclamation);
}

// A logo that cannot be loaded is told (FactuurSjabloon1 in its own words) and the invoice is
// shown without it; one that can is shown, zoomed when it is larger in its own unit.
TEST_F(OpenSjabloonTest, LogoMessagesAndZoom) {
    database.exec("UPDATE Instellingen SET Logo = '" + output.filePath("weg.png") + "'");
    for (const auto& [number, second] : {std::pair{1, "Stel aub een ander logo in."},
                                         std::pair{4, "Stel a.u.b. een ander logo in."}}) {
        FactuurSjabloon sjabloon(number, huidigeInstellingen());
        clsObjSjabloon().OpenSjabloon("1", sjabloon);
        EXPECT_EQ(ui.lastMessage().text,
                  QString("Fout tijdens het laden van het logo.\r\n") + second);
        EXPECT_EQ(ui.lastMessage().caption, "Logo weergeven");
        EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);
        EXPECT_TRUE(previews.text().contains("Factuurnummer"));
    }

    // At 2835 dots a metre a pixel is 0.3527 mm: 100 pixels are 3527 hundredths of a mm.
    // imgLogo of FactuurSjabloon4 is 70 x 28 mm, 3969 x 1587 twips.
    const std::tuple<int, int, bool> pictures[] = {
        {100, 40, false}, {120, 40, true}, {100, 50, true}};
    for (const auto& [width, height, zoom] : pictures) {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(Qt::darkBlue);
        picture.setDotsPerMeterX(2835);
        picture.setDotsPerMeterY(2835);
        ASSERT_TRUE(picture.save(output.filePath("logo.png")));
        database.exec("UPDATE Instellingen SET Logo = '" + output.filePath("logo.png") + "'");
        const qsizetype messages = ui.messages.size();
        FactuurSjabloon sjabloon(4, huidigeInstellingen());
        clsObjSjabloon().OpenSjabloon("1", sjabloon);
        EXPECT_EQ(ui.messages.size(), messages);
        const auto& items = previews.documents.last().pages[0].items;
        const auto logo = std::find_if(items.begin(), items.end(), [](const auto& item) {
            return item.kind == report::DrawItem::Kind::Image;
        });
        ASSERT_NE(logo, items.end());
        EXPECT_EQ(logo->zoom, zoom) << width << 'x' << height;
    }
}

TEST_F(OpenSjabloonTest, FontMarginsAndFreeTextComeFromTheSettings) {
    database.exec(
        "UPDATE Instellingen SET FontName = 'DejaVu Serif', FontSize = 12, "
        "MargeFactuurBoven = 20, MargeFactuurOnder = 30");
    FactuurSjabloon sjabloon(4, huidigeInstellingen());
    EXPECT_EQ(sjabloon.TopMargin(), 1000.0f);
    EXPECT_EQ(sjabloon.BottomMargin(), 1500.0f);
    clsObjSjabloon().OpenSjabloon("1", sjabloon);
    const report::Document& document = previews.documents.last();
    bool freeText = false;
    for (const auto& item : document.pages[0].items) {
        if (item.kind != report::DrawItem::Kind::Text) {
            continue;
        }
        EXPECT_EQ(item.font.family, "DejaVu Serif") << item.text.toStdString();
        if (item.text == "Roggebrood heel") {
            EXPECT_DOUBLE_EQ(item.font.size, 12);  // the body text in the chosen size
        }
        if (item.text == "FACTUUR") {
            EXPECT_GT(item.font.size, 24);  // a title stays larger in proportion
        }
        freeText |=
            item.text == "Vermeld bij betaling altijd het factuurnummer. Dank voor uw bestelling!";
    }
    EXPECT_TRUE(freeText);

    gVoorbeeldFont() = {"DejaVu Sans Mono", "8"};
    FactuurSjabloon example(1, huidigeInstellingen());
    gVoorbeeldFont() = {};
    clsObjSjabloon().OpenSjabloon("1", example);
    for (const auto& item : previews.documents.last().pages[0].items) {
        if (item.kind == report::DrawItem::Kind::Text) {
            EXPECT_EQ(item.font.family, "DejaVu Sans Mono");
        }
    }
}

TEST_F(OpenSjabloonTest, TheOverviewRoutineShowsHidesOrDoesNothingBySelector) {
    DataReport articles("repArtikelen");
    ToonOverzicht(articles, 1, false);
    ASSERT_EQ(previews.documents.size(), 1);
    EXPECT_TRUE(previews.text().contains("Krentenbollen"));
    EXPECT_FALSE(previews.shown.last()->hidden);
    EXPECT_TRUE(articles.Visible());

    DataReport customers("repKlanten");
    ToonOverzicht(customers, 3, true);
    ASSERT_EQ(previews.documents.size(), 2);
    EXPECT_TRUE(previews.text().contains("Aalders Advies"));
    EXPECT_TRUE(previews.shown.last()->hidden);
    EXPECT_FALSE(customers.Visible());
    EXPECT_FALSE(gVerbergOverzicht());

    for (qint16 other : {0, 2, 4, -1}) {
        ToonOverzicht(articles, other, false);
    }
    EXPECT_EQ(previews.documents.size(), 2);
}

}  // namespace
