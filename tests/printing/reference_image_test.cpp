#include <QDir>
#include <QPainter>
#include <QSaveFile>

#include "PageComparison.h"
#include "PrintFixture.h"
#include "printing/modPdf.h"

namespace {

// The first page of every invoice template (invoice 1001, with a logo) and of both overviews,
// printed to PDF, rasterised by pdftoppm with the fonts embedded in the PDF, and held against
// the pictures in tests/data/printing/reference. LINDEBRUG_UPDATE_REFERENCES=1 writes those
// pictures anew instead; README.md beside them says when.
// At 100 dpi a 9 pt glyph is 12 pixels high: enough to tell one typeface from another.
const char* const kDpi = "100";

struct Page {
    const char* name;
    qint16 sjabloon;   // the settings' template number; -1 for an overview
    qint16 overzicht;  // 1 articles, 3 customers
};

const Page kPages[] = {
    {"FactuurSjabloon1", 1, 0}, {"FactuurSjabloon2", 4, 0}, {"FactuurSjabloon3", 5, 0},
    {"FactuurSjabloon4", 0, 0}, {"FactuurSjabloon5", 2, 0}, {"FactuurSjabloon6", 3, 0},
    {"FactuurSjabloon7", 6, 0}, {"repArtikelen", -1, 1},    {"repKlanten", -1, 3},
};

void PrintTo(const Page& page, std::ostream* out) {
    *out << page.name;
}

QString referencePath(const QString& name) {
    return TestDatabase::testData("printing/reference/" + name + ".png");
}

// A logo of blocks only, so that it is drawn the same wherever the test runs; larger than
// every template's frame, so the templates show it zoomed.
QString drawLogo(const QString& path) {
    QImage logo(600, 240, QImage::Format_RGB32);
    logo.fill(Qt::white);
    QPainter painter(&logo);
    painter.fillRect(0, 150, 600, 30, QColor(0x1f, 0x5f, 0x3f));
    for (int pier = 0; pier < 4; ++pier) {
        painter.fillRect(40 + pier * 160, 180, 40, 60, QColor(0x1f, 0x5f, 0x3f));
    }
    painter.fillRect(240, 20, 120, 110, QColor(0xe0, 0x80, 0x20));
    painter.end();
    logo.setDotsPerMeterX(7087);  // 180 dpi: 85 × 34 mm
    logo.setDotsPerMeterY(7087);
    EXPECT_TRUE(logo.save(path));
    return path;
}

class ReferenceImageTest : public PrintTest, public ::testing::WithParamInterface<Page> {
protected:
    // The PNG of the first page as a customer's PDF reader would show it, or empty.
    QString printFirstPage(const Page& page) {
        const QString pdf = output.filePath("page.pdf");
        if (page.overzicht != 0) {
            EXPECT_TRUE(OverzichtAlsPdf(page.overzicht, pdf));
        } else {
            database.exec(QString("UPDATE Instellingen SET Sjabloon = %1, Logo = '%2'")
                              .arg(page.sjabloon)
                              .arg(drawLogo(output.filePath("logo.png"))));
            EXPECT_TRUE(FacturenAlsPdf({"1001"}, pdf));
        }
        const QString png = output.filePath("page");
        QProcess pdftoppm;
        pdftoppm.start("pdftoppm",
                       {"-r", kDpi, "-f", "1", "-l", "1", "-png", "-singlefile", pdf, png});
        if (!pdftoppm.waitForFinished(60000) || pdftoppm.exitCode() != 0) {
            ADD_FAILURE() << "pdftoppm (poppler-utils, installed by tools/setup) failed: "
                          << pdftoppm.errorString().toStdString()
                          << pdftoppm.readAllStandardError().toStdString();
            return {};
        }
        return png + ".png";
    }

    static void renew(const QString& rendered, const QString& reference) {
        QFile source(rendered);
        QSaveFile target(reference);
        ASSERT_TRUE(source.open(QIODevice::ReadOnly) && target.open(QIODevice::WriteOnly));
        ASSERT_TRUE(target.write(source.readAll()) == source.size() && target.commit());
    }

    // The page and the difference picture beside the build output, for a developer to open;
    // those of an earlier failure go when the page matches again.
    static QString keep(const QString& name, const QImage& actual, const QImage& reference,
                        const pages::Difference& difference) {
        const QDir folder(LINDEBRUG_REFERENCE_FAILURES);
        const QString page = folder.filePath(name + "-actual.png");
        const QString picture = folder.filePath(name + "-diff.png");
        QFile::remove(page);
        QFile::remove(picture);
        if (difference.same()) {
            return {};
        }
        EXPECT_TRUE(folder.mkpath("."));
        EXPECT_TRUE(actual.save(page));
        EXPECT_TRUE(pages::differencePicture(reference, difference).save(picture));
        return page + " and " + picture;
    }
};

TEST_P(ReferenceImageTest, FirstPageLooksAsItsReference) {
    const QString name = GetParam().name;
    const QString rendered = printFirstPage(GetParam());
    ASSERT_FALSE(rendered.isEmpty());
    const QString reference = referencePath(name);
    if (qEnvironmentVariable("LINDEBRUG_UPDATE_REFERENCES") == "1") {
        renew(rendered, reference);
        GTEST_SKIP() << "renewed " << reference.toStdString();
    }

    const QImage expected(reference);
    ASSERT_FALSE(expected.isNull())
        << reference.toStdString() << " is missing; LINDEBRUG_UPDATE_REFERENCES=1 writes it";
    const QImage actual(rendered);
    const pages::Difference difference = pages::compare(actual, expected);
    const QString kept = keep(name, actual, expected, difference);
    if (difference.same()) {
        return;
    }
    if (difference.actualSize != difference.referenceSize) {
        ADD_FAILURE() << name.toStdString() << " is " << actual.width() << "x" << actual.height()
                      << " pixels, its reference " << expected.width() << "x" << expected.height()
                      << "; see " << kept.toStdString();
    } else {
        const QRect first = difference.tiles.first();
        ADD_FAILURE() << name.toStdString() << " differs from " << reference.toStdString() << " in "
                      << difference.tiles.size() << " tile(s), the first at (" << first.x() << ","
                      << first.y() << ") px; see " << kept.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, ReferenceImageTest, ::testing::ValuesIn(kPages),
                         [](const auto& info) { return std::string(info.param.name); });

// What the comparison lets pass and what it catches, on a drawn page of text, a hairline and a
// shaded bar: the page set a pixel or half a pixel further, as another rounding or rasteriser
// may set it, passes; the faults a report file can hold fail.
struct Sketch {
    QPointF shift = {};  // of the whole page
    QPointF text = {};   // of one block of text
    QString family = "DejaVu Sans";
    bool rule = true;
    QColor shade = QColor(0xe4, 0xe4, 0xe4);
    QSize size = {827, 1169};  // A4 at 100 dpi
};

QImage draw(const Sketch& sketch) {
    QImage page(sketch.size, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(sketch.shift);
    painter.fillRect(QRectF(60, 300, 500, 20), sketch.shade);
    if (sketch.rule) {
        painter.setPen(QPen(Qt::black, 0.6));  // 0.15 mm, the thinnest rule of the reports
        painter.drawLine(QPointF(60, 330.4), QPointF(560, 330.4));
    }
    QFont font(sketch.family);
    font.setPixelSize(12);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QPointF(60, 120), "Van Dijk Installaties BV");
    painter.drawText(QPointF(60, 140) + sketch.text, "Factuurnummer 1001");
    painter.drawText(QPointF(60, 155) + sketch.text, "Factuurdatum 07-03-2026");
    return page;
}

struct Change {
    const char* name;
    Sketch sketch;
    bool passes;
};

const Change kChanges[] = {
    {"Unchanged", {}, true},
    {"PageOnePixelFurther", {.shift = {1, 1}}, true},
    {"PageHalfAPixelFurther", {.shift = {0.5, 0.5}}, true},
    {"TextThreeMillimetresRight", {.text = {12, 0}}, false},
    {"TextOneMillimetreDown", {.text = {0, 4}}, false},
    {"OtherFont", {.family = "DejaVu Serif"}, false},
    {"RuleMissing", {.rule = false}, false},
    {"DarkerShade", {.shade = QColor(0xc8, 0xc8, 0xc8)}, false},
    {"Landscape", {.size = {1169, 827}}, false},
};

void PrintTo(const Change& change, std::ostream* out) {
    *out << change.name;
}

class PageComparisonTest : public ::testing::TestWithParam<Change> {};

TEST_P(PageComparisonTest, PassesRenderingNoiseAndCatchesFaults) {
    const QImage reference = draw({});
    const pages::Difference difference = pages::compare(draw(GetParam().sketch), reference);
    EXPECT_EQ(difference.same(), GetParam().passes) << difference.tiles.size() << " tile(s)";
}

INSTANTIATE_TEST_SUITE_P(Changes, PageComparisonTest, ::testing::ValuesIn(kChanges),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
