#include <gtest/gtest.h>

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "printing/AdresPrint.h"
#include "printing/ReportRenderer.h"
#include "records/clsObjInstellingen.h"
#include "records/clsObjKlant.h"

namespace {

constexpr double kPointsPerMm = 72 / 25.4;

clsObjKlant klant(const QString& bedrijf, const QString& voorletters, const QString& tussen,
                  const QString& achternaam, bool dhr = true, const QString& land = "Nederland") {
    clsObjKlant k;
    k.setBedrijfsnaam(bedrijf);
    k.setVoorletters(voorletters);
    k.setTussenvoegsel(tussen);
    k.setAchternaam(achternaam);
    k.setDhr(dhr);
    k.setAdres("Dorpsstraat 1");
    k.setPostcode("1234 AB");
    k.setPlaats("Lindebrug");
    k.setLand(land);
    return k;
}

struct Word {
    QString text;
    double x, y;  // points from the top left of its page
};
struct PdfPage {
    double width, height;  // points
    QList<Word> words;
    // The first word with this text; a failed expectation when there is none.
    Word find(const QString& text) const {
        for (const Word& w : words) {
            if (w.text == text) {
                return w;
            }
        }
        ADD_FAILURE() << "no word " << text.toStdString();
        return {};
    }
    QString text() const {
        QStringList all;
        for (const Word& w : words) {
            all << w.text;
        }
        return all.join(' ');
    }
};

// The document written as a PDF and read back, word by word with its place.
QList<PdfPage> printed(const report::Document& document) {
    QTemporaryDir folder;
    const QString pdf = folder.filePath("adres.pdf");
    EXPECT_TRUE(report::writePdf(document, pdf));
    QProcess pdftotext;
    pdftotext.start("pdftotext", {"-bbox", pdf, "-"});
    EXPECT_TRUE(pdftotext.waitForFinished(60000));
    const QString html = QString::fromUtf8(pdftotext.readAllStandardOutput());
    QList<PdfPage> pages;
    static const QRegularExpression page(R"re(<page width="([\d.]+)" height="([\d.]+)">)re");
    static const QRegularExpression word(
        R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="[\d.]+" yMax="[\d.]+">([^<]*)</word>)re");
    for (const QString& part : html.split("</page>")) {
        const auto p = page.match(part);
        if (!p.hasMatch()) {
            continue;
        }
        PdfPage read{p.captured(1).toDouble(), p.captured(2).toDouble(), {}};
        for (auto it = word.globalMatch(part); it.hasNext();) {
            const auto w = it.next();
            read.words.append({w.captured(3).replace("&amp;", "&"), w.captured(1).toDouble(),
                               w.captured(2).toDouble()});
        }
        pages.append(read);
    }
    return pages;
}

struct LinesCase {
    const char* what;
    clsObjKlant klant;
    QStringList lines;
};

class AddressLinesTest : public testing::TestWithParam<LinesCase> {};

TEST_P(AddressLinesTest, InTheirOrderWithoutEmptyLines) {
    EXPECT_EQ(adres::adresRegels(GetParam().klant), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Customers, AddressLinesTest,
    testing::Values(LinesCase{"full",
                              klant("Bakkerij Smit", "J.", "van", "Smit"),
                              {"Dhr. J. van Smit", "Bakkerij Smit", "Dorpsstraat 1",
                               "1234 AB  Lindebrug"}},
                    LinesCase{"no infix, Mevr.",
                              klant("", "A.", "", "Jansen", false),
                              {"Mevr. A. Jansen", "Dorpsstraat 1", "1234 AB  Lindebrug"}},
                    LinesCase{"no contact",
                              klant("De Linde BV", "", "", ""),
                              {"De Linde BV", "Dorpsstraat 1", "1234 AB  Lindebrug"}},
                    LinesCase{"abroad",
                              klant("Brouwerij", "K.", "", "Peeters", true, "België"),
                              {"Dhr. K. Peeters", "Brouwerij", "Dorpsstraat 1",
                               "1234 AB  Lindebrug", "BELGIË"}}),
    [](const testing::TestParamInfo<LinesCase>& info) {
        return QString(info.param.what).replace(QRegularExpression("[^A-Za-z]"), "_").toStdString();
    });

clsObjInstellingen bedrijf(qint16 links, qint16 boven) {
    clsObjInstellingen b;
    b.setBedrijfsnaam("Korvane");
    b.setAdres("Kade 7");
    b.setPostcode("9999 ZZ");
    b.setPlaats("Haven");
    b.setMargeLinks(links);
    b.setMargeBoven(boven);
    return b;
}

TEST(Envelopes, OnePerCustomerAddressAtTheMarginsReturnAddressTopLeft) {
    const QList<clsObjKlant> klanten = {klant("Bakkerij Smit", "J.", "van", "Smit"),
                                        klant("Molen", "P.", "", "Bos", true, "Duitsland")};
    const QList<PdfPage> dl =
        printed(adres::enveloppen(klanten, bedrijf(100, 50), adres::envelopFormaten()[0]));
    ASSERT_EQ(dl.size(), 2);
    EXPECT_NEAR(dl[0].width, 220 * kPointsPerMm, 1);
    EXPECT_NEAR(dl[0].height, 110 * kPointsPerMm, 1);
    EXPECT_EQ(dl[0].text(),
              "Korvane Kade 7 9999 ZZ Haven Dhr. J. van Smit Bakkerij Smit Dorpsstraat 1 1234 AB "
              "Lindebrug");
    EXPECT_TRUE(dl[1].text().endsWith("DUITSLAND"));
    const Word dhr = dl[0].find("Dhr.");
    EXPECT_NEAR(dhr.x, 100 * kPointsPerMm, 2);
    EXPECT_NEAR(dhr.y, 50 * kPointsPerMm, 4);
    const Word afzender = dl[0].find("Korvane");
    EXPECT_LT(afzender.x, 15 * kPointsPerMm);
    EXPECT_LT(afzender.y, 12 * kPointsPerMm);

    const QList<PdfPage> moved =
        printed(adres::enveloppen(klanten, bedrijf(80, 40), adres::envelopFormaten()[1]));
    EXPECT_NEAR(moved[0].width, 229 * kPointsPerMm, 1);
    EXPECT_NEAR(moved[0].find("Dhr.").x - dhr.x, -20 * kPointsPerMm, 0.5);
    EXPECT_NEAR(moved[0].find("Dhr.").y - dhr.y, -10 * kPointsPerMm, 0.5);
}

TEST(Labels, ThirtyCustomersFromPositionFiveFillTwoSheets) {
    QList<clsObjKlant> klanten;
    for (int i = 1; i <= 30; ++i) {
        klanten << klant(QString("Klant%1").arg(i, 2, 10, QChar('0')), "", "", "");
    }
    const adres::EtiketVel& vel = adres::etiketVellen()[0];
    ASSERT_EQ(vel.perVel(), 24);
    const QList<PdfPage> pages = printed(adres::etiketten(klanten, vel, 5));
    ASSERT_EQ(pages.size(), 2);
    EXPECT_NEAR(pages[0].width, 210 * kPointsPerMm, 1);

    // Position 5 is the middle label of the second row; labels run along the rows.
    const double links = (210 - 3 * 70) / 2.0, boven = (297 - 8 * 36) / 2.0;
    const auto expectAt = [&](const PdfPage& page, const QString& name, int kolom, int rij) {
        const Word w = page.find(name);
        EXPECT_NEAR(w.x, (links + kolom * 70 + 5) * kPointsPerMm, 2) << name.toStdString();
        EXPECT_NEAR(w.y, (boven + rij * 36 + 5) * kPointsPerMm, 4) << name.toStdString();
    };
    expectAt(pages[0], "Klant01", 1, 1);
    expectAt(pages[0], "Klant02", 2, 1);
    expectAt(pages[0], "Klant03", 0, 2);
    expectAt(pages[0], "Klant20", 2, 7);
    expectAt(pages[1], "Klant21", 0, 0);
    expectAt(pages[1], "Klant30", 0, 3);
    for (const Word& w : pages[0].words) {
        EXPECT_GT(w.y, (boven + 36) * kPointsPerMm) << "the first four positions stay empty";
    }
    EXPECT_EQ(pages[0].text().count("Klant"), 20);
    EXPECT_EQ(pages[1].text().count("Klant"), 10);
}

TEST(Labels, EverySheetKeepsItsLabelsOnThePaper) {
    QList<clsObjKlant> klanten;
    for (int i = 0; i < 30; ++i) {
        klanten << klant("Bakkerij Smit", "J.", "van", "Smit", true, "België");
    }
    for (const adres::EtiketVel& vel : adres::etiketVellen()) {
        const report::Document document = adres::etiketten(klanten, vel, 1);
        EXPECT_EQ(document.pages.size(), (30 + vel.perVel() - 1) / vel.perVel());
        const QRectF paper(QPointF(0, 0), document.paper);
        for (const report::Page& page : document.pages) {
            for (const report::DrawItem& item : page.items) {
                EXPECT_TRUE(paper.contains(item.rect)) << vel.naam.toStdString();
            }
        }
    }
}

}  // namespace
