#include <gtest/gtest.h>

#include <QDateTime>
#include <QRegularExpression>

#include "base/Error.h"
#include "printing/ReportFile.h"
#include "printing/ReportLayout.h"
#include "printing/ValueFormat.h"

namespace {

using namespace report;

// Paper 100 mm high with margins of 10: below the page header and above the page footer
// 60 mm remain. An invoice's head and column captions take 15, each line 5, its foot 10.
const QString kSmall = QStringLiteral(
    R"(report name=Klein paper=100,100 left=10 width=80 top=10 bottom=10 font="DejaVu Sans" pt=9
band kind=pageHeader height=10
label at=0,0 size=80,5 text="Kop"
page at=40,5 size=40,5 text="blad {} van {count}"
band kind=groupHeader height=10 newpage
field at=0,0 size=80,5 source=Naam
band kind=columnHeader height=5
label at=0,0 size=80,5 text="Kolommen"
band kind=detail height=5
field at=0,0 size=40,5 source=Regel
field at=40,0 size=40,5 source=Bedrag format=amount
band kind=groupFooter height=10
sum at=40,0 size=40,5 source=Bedrag format=amount
band kind=pageFooter height=10
label at=0,0 size=80,5 text="Voet"
)");

// Groups named A, B, ... with the given numbers of lines; line i of a group costs i euro.
ReportData groups(const QList<int>& lines) {
    ReportData data;
    auto heads = std::make_shared<Columns>();
    heads->add("Naam", "Factuur");
    auto details = std::make_shared<Columns>();
    details->add("Regel", "ArtikelPerFactuur");
    details->add("Bedrag", "ArtikelPerFactuur");
    data.headColumns = heads;
    data.detailColumns = details;
    for (int g = 0; g < lines.size(); ++g) {
        Group group;
        group.head = {QString(QChar(u'A' + g))};
        for (int i = 1; i <= lines[g]; ++i) {
            group.details.append(
                {QString("regel %1").arg(i), QVariant::fromValue(Currency::fromLong(i))});
        }
        data.groups.append(group);
    }
    return data;
}

QStringList texts(const Page& page) {
    QStringList result;
    for (const DrawItem& item : page.items) {
        if (item.kind == DrawItem::Kind::Text) {
            result.append(item.text);
        }
    }
    return result;
}

int linesOn(const Page& page) {
    return int(texts(page).filter(QRegularExpression("^regel ")).size());
}

Document layOutSmall(const QList<int>& lines, const QString& change = {}, const QString& to = {}) {
    QString text = kSmall;
    if (!change.isEmpty()) {
        text.replace(change, to);
    }
    return layOut(parseReport(text, "Klein.rpt"), groups(lines));
}

struct Paging {
    int lines;
    QList<int> linesPerPage;  // the last page holds the invoice's foot, never alone
};

class PagingTest : public ::testing::TestWithParam<Paging> {};

// The first page has room for 9 lines below the head, a following one for 11 below the
// column captions; a foot that does not fit after the last line takes that line with it.
TEST_P(PagingTest, LinesFillEachPageAndTheFootComesOnceAfterTheLast) {
    const Paging paging = GetParam();
    const Document document = layOutSmall({paging.lines});
    ASSERT_EQ(document.pages.size(), paging.linesPerPage.size());
    const QString count = QString::number(document.pages.size());
    for (int i = 0; i < document.pages.size(); ++i) {
        SCOPED_TRACE(i + 1);
        const QStringList shown = texts(document.pages[i]);
        EXPECT_EQ(linesOn(document.pages[i]), paging.linesPerPage[i]);
        EXPECT_EQ(shown.count("Kop"), 1);
        EXPECT_EQ(shown.count("Voet"), 1);
        EXPECT_TRUE(shown.contains(QString("blad %1 van %2").arg(i + 1).arg(count)));
        EXPECT_EQ(shown.count("A"), i == 0 ? 1 : 0);  // the head once, on the first page
        // Column captions above lines on every page the invoice's lines run onto.
        EXPECT_EQ(shown.count("Kolommen"), 1);
        const bool last = i + 1 == document.pages.size();
        EXPECT_EQ(shown.contains(amountText(
                      Currency::fromLong(qint64(paging.lines) * (paging.lines + 1) / 2))),
                  last);
    }
}

INSTANTIATE_TEST_SUITE_P(Lines, PagingTest,
                         ::testing::Values(Paging{0, {0}}, Paging{7, {7}}, Paging{8, {7, 1}},
                                           Paging{9, {8, 1}}, Paging{10, {9, 1}},
                                           Paging{20, {9, 10, 1}}, Paging{21, {9, 11, 1}},
                                           Paging{200,
                                                  {9, 11, 11, 11, 11, 11, 11, 11, 11, 11, 11, 11,
                                                   11, 11, 11, 11, 11, 11, 4}}));

TEST(LayoutTest, EachInvoiceStartsItsOwnPageWithItsOwnSums) {
    const Document document = layOutSmall({2, 3, 1});
    ASSERT_EQ(document.pages.size(), 3);
    const QList<QStringList> expected = {{"A", "€ 3,00"}, {"B", "€ 6,00"}, {"C", "€ 1,00"}};
    for (int i = 0; i < 3; ++i) {
        const QStringList shown = texts(document.pages[i]);
        for (const QString& text : expected[i]) {
            EXPECT_TRUE(shown.contains(text)) << text.toStdString();
        }
    }
}

// Without "newpage" an invoice follows the previous one, but its head never stays behind at
// the foot of a page without its first line: after 4 lines and a foot 15 mm remain, room
// for the head and the captions but not for a line.
TEST(LayoutTest, AHeadStaysWithItsFirstLine) {
    const Document together = layOutSmall({1, 1}, " newpage", "");
    ASSERT_EQ(together.pages.size(), 1);
    const Document apart = layOutSmall({4, 1}, " newpage", "");
    ASSERT_EQ(apart.pages.size(), 2);
    EXPECT_TRUE(texts(apart.pages[1]).contains("B"));
    EXPECT_FALSE(texts(apart.pages[0]).contains("B"));
}

// A foot of 150 mm on a page of 100: it gets a fresh page of its own (cut off at the
// paper's edge) and the next invoice carries on after it.
TEST(LayoutTest, ABandTallerThanThePageGetsAPageOfItsOwn) {
    const Document document =
        layOutSmall({2, 2}, "band kind=groupFooter height=10", "band kind=groupFooter height=150");
    ASSERT_EQ(document.pages.size(), 4);
    EXPECT_EQ(linesOn(document.pages[0]), 2);
    EXPECT_TRUE(texts(document.pages[1]).contains("€ 3,00"));
    EXPECT_EQ(linesOn(document.pages[2]), 2);
    EXPECT_TRUE(texts(document.pages[3]).contains("€ 3,00"));
}

TEST(LayoutTest, ReportWithoutRowsShowsItsPageBandsOnly) {
    const Document document = layOut(parseReport(kSmall, "Klein.rpt"), ReportData());
    ASSERT_EQ(document.pages.size(), 1);
    EXPECT_EQ(texts(document.pages[0]), (QStringList{"Kop", "blad 1 van 1", "Voet"}));
}

TEST(LayoutTest, AFieldOfAColumnTheDataLacksIsAnError) {
    QString text = kSmall;
    text.replace("source=Regel", "source=Omschrijving");
    try {
        layOut(parseReport(text, "Klein.rpt"), groups({1}));
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), Error::ItemNotFound);
        EXPECT_TRUE(error.description().endsWith("Omschrijving"));
    }
}

TEST(LayoutTest, PositionsAreOnThePaperInTwips) {
    const Document document = layOutSmall({1});
    const DrawItem& kop = document.pages[0].items.first();
    EXPECT_EQ(kop.text, "Kop");
    const double mm = kTwipsPerMillimetre;
    EXPECT_NEAR(kop.rect.left(), 10 * mm, 0.01);
    EXPECT_NEAR(kop.rect.top(), 10 * mm, 0.01);
    EXPECT_NEAR(kop.rect.width(), 80 * mm, 0.01);
    EXPECT_NEAR(document.paper.height(), 100 * mm, 0.01);
}

TEST(AmountFormatTest, EuroSignBlankPointsForThousandsCommaAndTwoDecimals) {
    const std::pair<std::int64_t, const char*> cases[] = {
        {0, "€ 0,00"},
        {10000, "€ 1,00"},
        {-125000, "-€ 12,50"},
        {12345678900, "€ 1.234.567,89"},
        {9999999999999, "€ 1.000.000.000,00"},
        {1250, "€ 0,13"},  // 0,125: a half rounds away from zero
        {-1250, "-€ 0,13"},
        {26750, "€ 2,68"},  // 2,675
        {49, "€ 0,00"},     // 0,0049
        {-49, "€ 0,00"},    // no minus sign before nothing
        {9999950, "€ 1.000,00"},
        {10000000000, "€ 1.000.000,00"},
    };
    for (const auto& [raw, text] : cases) {
        EXPECT_EQ(amountText(Currency::fromRaw(raw)), QString::fromUtf8(text)) << raw;
    }
}

TEST(ValueFormatTest, FormatsOfBoundValues) {
    EXPECT_EQ(formatValue(QVariant(2.0), Format::Number), "2");
    EXPECT_EQ(formatValue(QVariant(1.5), Format::Number), "1,5");
    EXPECT_EQ(formatValue(QVariant(-0.25), Format::Number), "-0,25");
    EXPECT_EQ(formatValue(QVariant(21.0), Format::Percent), "21%");
    EXPECT_EQ(formatValue(QVariant(QDateTime(QDate(2026, 3, 7), QTime(13, 5))), Format::Date),
              "07-03-2026");
    EXPECT_EQ(formatValue(QVariant(12.5), Format::Amount), "€ 12,50");
    EXPECT_EQ(formatValue(QVariant(), Format::Amount), "");
}

struct FileFault {
    const char* text;     // after a valid report line, unless it starts with "!"
    const char* message;  // after "Rapportbestand Fout.rpt, "
};

class ReportFileTest : public ::testing::TestWithParam<FileFault> {};

TEST_P(ReportFileTest, AFaultNamesTheFileTheLineAndTheFault) {
    const QString header =
        "report name=Fout paper=210,297 left=20 width=170 top=10 bottom=10 font=\"DejaVu Sans\" "
        "pt=9\n";
    const QString text = QString::fromUtf8(GetParam().text);
    try {
        parseReport(text.startsWith(u'!') ? text.mid(1) : header + text, "Fout.rpt");
        FAIL() << "accepted";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), Error::InvalidReportFile);
        EXPECT_EQ(error.description(),
                  "Rapportbestand Fout.rpt, " + QString::fromUtf8(GetParam().message));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Faults, ReportFileTest,
    ::testing::Values(
        FileFault{"!band kind=detail height=5\nlabel at=0,0 size=1,1 text=\"x\"",
                  "regel 1: het bestand begint niet met 'report'"},
        FileFault{"band kind=detail height=5\ncircle at=0,0 size=1,1",
                  "regel 3: onbekend woord 'circle'"},
        FileFault{"band kind=detail height=5\nlabel at=0,0 size=1,1 text=\"x\" colour=red",
                  "regel 3: onbekende eigenschap 'colour'"},
        FileFault{"band kind=detail height=5\nlabel at=0,1 size=10,5 text=\"x\"",
                  "regel 3: het element valt buiten zijn band of buiten de breedte"},
        FileFault{"band kind=detail height=5\nlabel at=165,0 size=10,5 text=\"x\"",
                  "regel 3: het element valt buiten zijn band of buiten de breedte"},
        FileFault{"band kind=detail height=vijf",
                  "regel 2: 'vijf' is geen geldig getal voor height"},
        FileFault{"band kind=footer height=5", "regel 2: onbekende band 'footer'"},
        FileFault{"band kind=detail height=5\n\n# opmerking\nband kind=detail height=5",
                  "regel 5: band 'detail' staat er twee keer"},
        FileFault{"band kind=detail height=5\nfield at=0,0 size=1,1",
                  "regel 3: een field heeft een source"},
        FileFault{"band kind=detail height=5\nlabel at=0,0 size=1,1 text=\"x",
                  "regel 3: aanhalingsteken niet gesloten"},
        FileFault{"band kind=detail height=5\nfield at=0,0 size=1,1 source=Prijs format=euro",
                  "regel 3: onbekend formaat 'euro'"},
        FileFault{"band kind=detail height=5\nlabel at=0,0 size=1,1 text=\"x\" pt=0",
                  "regel 3: een lettergrootte moet groter dan 0 zijn"},
        FileFault{"band kind=detail height=5\nbox at=0,0 size=1,1 fill=grijsachtig",
                  "regel 3: 'grijsachtig' is geen kleur"},
        FileFault{"label at=0,0 size=1,1 text=\"x\"", "regel 2: een element voor de eerste band"},
        FileFault{
            "!report name=Fout paper=210,297 left=20 width=200 top=10 bottom=10 font=\"F\" pt=9",
            "regel 1: left + width is breder dan het papier"},
        FileFault{"band kind=detail height=5\nline at=0,0 size=5",
                  "regel 3: '5' is geen paar getallen (x,y) voor size"}));

TEST(ReportFileTest, EveryShippedReportLoadsAndFitsA4) {
    const QStringList names = {"FactuurSjabloon1", "FactuurSjabloon2",
                               "FactuurSjabloon3", "FactuurSjabloon4",
                               "FactuurSjabloon5", "FactuurSjabloon6",
                               "FactuurSjabloon7", "repArtikelen",
                               "repKlanten",       "Lijst"};
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        Report report = loadReport(name);
        EXPECT_EQ(report.name, name);
        EXPECT_LT(report.reportWidth, name == "repKlanten" ? 16838 : 11906);
        if (name.startsWith("Factuur")) {
            EXPECT_NE(report.item("imgLogo"), nullptr);
            EXPECT_NE(report.item("lblVrijeTekst"), nullptr);
            EXPECT_TRUE(report.band(BandKind::GroupHeader).newPage);
        }
    }
    try {
        loadReport("FactuurSjabloon8");
        FAIL() << "found";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), Error::FileNotFound);
    }
}

}  // namespace
