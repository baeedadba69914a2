#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "grid_fixture.h"
#include "views/GridPrinter.h"

namespace {

class GridPrintTest : public GridTest {
protected:
    GridPrintTest() {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath("lijst.pdf"));
    }

    QStringList printedPages() {  // as pdftotext reads them
        QProcess pdftotext;
        pdftotext.start("pdftotext", {"-layout", printer.outputFileName(), "-"});
        EXPECT_TRUE(pdftotext.waitForFinished(60000));
        QStringList pages = QString::fromUtf8(pdftotext.readAllStandardOutput()).split(u'\f');
        pages.removeLast();  // after the last form feed
        return pages;
    }

    QTemporaryDir folder;
    QPrinter printer{QPrinter::HighResolution};
};

TEST_F(GridPrintTest, TitleDateHeaderOnEveryPageAndEachRowOnceInGridOrder) {
    QStringList rows;
    for (int i = 1; i <= 130; ++i) {
        rows.append(QStringLiteral("A%1\tArtikel %1\t€ %1,50").arg(i, 3, 10, QChar('0')));
    }
    fill(rows, {"Artikelnummer", "Omschrijving", "Prijs"});
    grid.setColWidth(0, 130);
    grid.setColAlignment(2, Qt::AlignRight);
    grid.sortRows(0, Qt::DescendingOrder);  // printed as shown

    ASSERT_TRUE(GridPrinter(grid, "Artikelen", QDate(2026, 3, 7)).render(printer));
    const QStringList pages = printedPages();
    ASSERT_GE(pages.size(), 2);
    for (int page = 0; page < pages.size(); ++page) {
        SCOPED_TRACE(page + 1);
        EXPECT_TRUE(pages[page].contains(QRegularExpression("Artikelen +07-03-26")));
        EXPECT_TRUE(pages[page].contains(QRegularExpression("Artikelnummer +Omschrijving +Prijs")));
        EXPECT_TRUE(
            pages[page].contains(QString("Pagina %1 van %2").arg(page + 1).arg(pages.size())));
    }
    const QString all = pages.join(QString());
    qsizetype previous = -1;
    for (int i = 130; i >= 1; --i) {
        const QRegularExpression row(QString("A%1 +Artikel %1 +€ %1,50").arg(i, 3, 10, QChar('0')));
        SCOPED_TRACE(row.pattern().toStdString());
        EXPECT_GT(all.indexOf(row), previous);
        EXPECT_EQ(all.count(row), 1);
        previous = all.indexOf(row);
    }
}

TEST_F(GridPrintTest, AFileThatCannotBeWrittenFailsWithoutACrash) {
    fill(customers);
    printer.setOutputFileName(folder.filePath("geen/map/lijst.pdf"));
    EXPECT_FALSE(GridPrinter(grid, "Klanten", QDate(2026, 3, 7)).render(printer));
}

}  // namespace
