#include <gtest/gtest.h>

#include "base/Regional.h"
#include "printing/FactuurSjabloon.h"
#include "printing/clsPrinter.h"

namespace {

TEST(SjabloonRulesTest, TheSettingChoosesTemplatesInItsFixedOrder) {
    const std::pair<qint16, std::optional<int>> cases[] = {
        {0, 4},
        {1, 1},
        {2, 5},
        {3, 6},
        {4, 2},
        {5, 3},
        {6, 7},
        {7, std::nullopt},
        {8, std::nullopt},
        {-1, std::nullopt},
        {32767, std::nullopt},
    };
    for (const auto& [sjabloon, template_] : cases) {
        EXPECT_EQ(sjabloonNummer(sjabloon), template_) << sjabloon;
    }
}

TEST(SjabloonRulesTest, MarginsAreHalfTheSettingTimesAHundred) {
    const std::pair<qint16, float> cases[] = {
        {10, 500.0f}, {20, 1000.0f}, {0, 0.0f},           {11, 550.0f},
        {1, 50.0f},   {-3, -150.0f}, {32767, 1638350.0f},
    };
    for (const auto& [marge, twips] : cases) {
        EXPECT_EQ(margeInTwips(marge), twips) << marge;
    }
}

// Hundredths of a millimetre against twips, as they stand: a picture of 5000 x 2000
// (50 x 20 mm) in a control of 4000 x 3000 twips (70 x 53 mm) is zoomed, though it fits.
TEST(SjabloonRulesTest, ALogoIsZoomedWhenOneSideIsLargerInItsOwnUnit) {
    struct Case {
        QSizeF picture, control;
        bool zoom;
    };
    const Case cases[] = {
        {{5000, 2000}, {4000, 3000}, true},   // wider only
        {{3000, 3500}, {4000, 3000}, true},   // taller only
        {{3999, 2999}, {4000, 3000}, false},  // smaller both ways
        {{4000, 3000}, {4000, 3000}, false},  // equal is not larger
        {{4001, 3001}, {4000, 3000}, true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(logoInZoom(c.picture, c.control), c.zoom)
            << c.picture.width() << 'x' << c.picture.height();
    }
}

TEST(SjabloonRulesTest, APageExactlyAsWideAsTheReportIsTooNarrow) {
    EXPECT_TRUE(papierBreedGenoeg(11906, 9638));
    EXPECT_TRUE(papierBreedGenoeg(9639, 9638));
    EXPECT_FALSE(papierBreedGenoeg(9638, 9638));
    EXPECT_FALSE(papierBreedGenoeg(5000, 9638));
}

TEST(SjabloonRulesTest, TheFontComesFromTheSettingsOrTheExampleFont) {
    Regional::setLocaleForTests(QLocale(QLocale::Dutch, QLocale::Netherlands));
    struct Case {
        QString name;
        float size;
        VoorbeeldFont example;
        std::optional<QString> font;
        std::optional<int> points;
    };
    const Case cases[] = {
        {"Arial", 10, {}, "Arial", 10},
        {"Arial", 10.5f, {}, "Arial", 10},  // rounded, halves to even
        {"Arial", 11.5f, {}, "Arial", 12},
        {"Arial", 0, {}, "Arial", std::nullopt},   // no size to print in: as designed
        {"", 10, {}, std::nullopt, std::nullopt},  // no name: every designed font stays
        {"0", 0, {}, "0", std::nullopt},           // a settings row without a font
        {"Arial", 10, {"Georgia", "14"}, "Georgia", 14},
        {"", 10, {"Georgia", "14"}, "Georgia", 14},
        {"Arial", 10, {"", "14"}, "Arial", 10},  // a cleared example name: the settings again
        {"Arial", 10, {"Georgia", "groot"}, "Georgia", std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name.toStdString() + " / " + c.example.naam.toStdString());
        const auto font = sjabloonFont(c.name, c.size, c.example);
        ASSERT_EQ(font.has_value(), c.font.has_value());
        if (font) {
            EXPECT_EQ(font->naam, *c.font);
            EXPECT_EQ(font->grootte, c.points);
        }
    }
    Regional::setLocaleForTests(QLocale::c());
}

// A redirected printer (remote desktop) loses its bracketed suffix before it is compared
// with the chosen name, upper case; only names that say they are redirected do.
TEST(PrinterNameTest, RedirectedPrintersMatchWithoutTheirSuffix) {
    const std::pair<const char*, const char*> names[] = {
        {"HP LaserJet (omgeleid 2)", "HP LaserJet"},
        {"HP LaserJet (redirected 3)", "HP LaserJet"},
        {"HP LaserJet (Redirected 3)", "HP LaserJet (Redirected 3)"},    // exact case only
        {"Kantoor (boven)", "Kantoor (boven)"},                          // not redirected
        {"Kantoor (boven) (omgeleid 4)", "Kantoor (boven)"},             // the second pair goes
        {"Kantoor (boven (omgeleid 4)", "Kantoor (boven (omgeleid 4)"},  // two "(", one ")"
        {"omgeleid) naar (X", "omgeleid) naar (X"},                      // ")" before "("
        {"omgeleid", "omgeleid"},
        {"  Zolder (omgeleid 1)  ", "Zolder"},
        {"A (omgeleid) B", "A  B"},
    };
    for (const auto& [name, compared] : names) {
        EXPECT_EQ(clsPrinter::comparedName(name), QString(compared)) << name;
    }

    const QStringList installed = {"Kantoor", "HP LaserJet (omgeleid 2)", "hp laserjet"};
    EXPECT_EQ(clsPrinter::matchPrinter("HP LASERJET", installed), "HP LaserJet (omgeleid 2)");
    EXPECT_EQ(clsPrinter::matchPrinter("kantoor", installed), "Kantoor");
    EXPECT_EQ(clsPrinter::matchPrinter("Zolder", installed), "");
}

}  // namespace
