#include <QApplication>
#include <QEventLoop>
#include <QLabel>
#include <QPointer>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "PrintFixture.h"
#include "controllers/PreviewController.h"
#include "controllers/ViewFactory.h"
#include "printing/DataReport.h"
#include "printing/FactuurSjabloon.h"
#include "printing/ReportRenderer.h"
#include "printing/clsObjSjabloon.h"
#include "printing/clsPrinter.h"
#include "printing/modInstellingen.h"
#include "store/clsDatabase.h"
#include "views/QtPrintViews.h"
#include "views/frmVoorbeeld.h"

namespace {

// The real preview window: its buttons forward to the controller, every control has its
// name and accessible name, and the pages are counted.
class PreviewWindowTest : public PrintTest, public IPreviewEvents {
protected:
    void afdrukken() override { events.append("afdrukken"); }
    void opslaanAlsPdf() override { events.append("pdf"); }
    void gesloten() override { events.append("gesloten"); }

    // Two invoices, the second of 200 lines: several pages.
    report::Document invoices() {
        FactuurSjabloon sjabloon(4, huidigeInstellingen());
        sjabloon.setDataSource(std::shared_ptr<Recordset>(
            gConnectie->openUpdatableSet(clsObjSjabloon::FactuurCommando("1,4"))));
        return sjabloon.document();
    }

    QStringList events;
};

TEST_F(PreviewWindowTest, ButtonsForwardToTheControllerAndEscapeCloses) {
    const report::Document document = invoices();
    frmVoorbeeld window;
    window.setEvents(this);
    window.setDocument(&document);
    window.resize(900, 1000);
    window.showModeless();
    EXPECT_EQ(window.windowTitle(), "Facturen");
    EXPECT_EQ(window.findChild<QLabel*>("lblPaginas")->text(),
              QString::number(document.pages.size()) + " pagina's");
    for (auto* button : window.findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->accessibleName().isEmpty()) << button->objectName().toStdString();
    }
    EXPECT_EQ(window.findChild<QPrintPreviewWidget*>("pvwPaginas")->pageCount(),
              document.pages.size());
    window.findChild<QPushButton*>("cmdAfdrukken")->click();
    window.findChild<QPushButton*>("cmdOpslaanPdf")->click();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(events, (QStringList{"afdrukken", "pdf", "gesloten"}));
    EXPECT_FALSE(window.isVisible());
}

// The page size of each page of a PDF, as pdfinfo names it ("A4").
QStringList paperNames(const QString& path) {
    QProcess pdfinfo;
    pdfinfo.start("pdfinfo", {"-f", "1", "-l", "9999", path});
    EXPECT_TRUE(pdfinfo.waitForFinished(60000));
    QStringList names;
    static const QRegularExpression size(R"(^Page +\d+ size: .*\((\w+)\)$)",
                                         QRegularExpression::MultilineOption);
    auto found = size.globalMatch(QString::fromUtf8(pdfinfo.readAllStandardOutput()));
    while (found.hasNext()) {
        names << found.next().captured(1);
    }
    return names;
}

// A message box that comes up as a window hides, with a loop of its own: it runs whatever
// the program queued before it. What it saw is reported when it is closed.
class BoxOnHide : public QObject {
public:
    BoxOnHide(QWidget& window, std::function<void()> seen) : seen_(std::move(seen)) {
        window.installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide) {
            QEventLoop box;
            QTimer::singleShot(0, &box, &QEventLoop::quit);
            box.exec();
            seen_();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> seen_;
};

// The program's preview windows, as main() installs them, showing one report.
class ShownPreviewTest : public PreviewWindowTest {
protected:
    ShownPreviewTest() {
        previews.present(invoices());
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == "frmVoorbeeld" && widget->isVisible()) {
                window = widget;
            }
        }
    }

    QtPrintViews qtViews;
    ScopedViews<PrintViewFactory> installed{&qtViews};
    ReportPreviews previews;
    QPointer<QWidget> window;
};

// A box that comes up while the preview's close is still on the stack runs a loop of its
// own; the preview and its window stay through it and go once the program's loop has
// control again.
TEST_F(ShownPreviewTest, AClosedPreviewGoesOnlyWhenTheLoopThatClosedItHasControl) {
    ASSERT_FALSE(window.isNull());
    ASSERT_EQ(previews.openCount(), 1);
    qsizetype openDuringBox = -1;
    bool windowDuringBox = false;
    BoxOnHide box(*window, [&] {
        openDuringBox = previews.openCount();
        windowDuringBox = !window.isNull();
    });
    QEventLoop program;
    QTimer::singleShot(0, [&] {
        QTest::keyClick(window.data(), Qt::Key_Escape);
        QTimer::singleShot(0, &program, &QEventLoop::quit);
    });
    program.exec();
    EXPECT_EQ(openDuringBox, 1);
    EXPECT_TRUE(windowDuringBox);
    EXPECT_EQ(previews.openCount(), 0);
    EXPECT_TRUE(window.isNull());
}

// A print dialog in which the user chooses to print to a file.
struct PrintToFile : RecordingUiService {
    explicit PrintToFile(QString path) : path(std::move(path)) { printerConfirmed = true; }
    bool choosePrinter(QPrinter& printer) override {
        paper = printer.pageLayout().pageSize().id();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        return RecordingUiService::choosePrinter(printer);
    }
    QString path;
    QPageSize::PageSizeId paper = QPageSize::Custom;
};

// Afdrukken prints what the preview shows as the user set it up in the print dialog, here
// to a file: the same pages, with the same text as the PDF the preview saves, on A4. With
// the current printer not installed, the dialog starts at A4 and the paper counts as A4.
TEST_F(ShownPreviewTest, AfdrukkenPrintsThePagesThePreviewShows) {
    ASSERT_FALSE(window.isNull());
    const int shown = window->findChild<QPrintPreviewWidget*>("pvwPaginas")->pageCount();
    ASSERT_GT(shown, 2);
    clsPrinter::setCurrentPrinterName("Lindebrug niet geïnstalleerd");
    EXPECT_NEAR(clsPrinter::currentPageWidth(), 210 / 25.4 * 1440, 20);  // within a point
    PrintToFile dialog(pdf("afgedrukt.pdf"));
    window->findChild<QPushButton*>("cmdAfdrukken")->click();
    clsPrinter::setCurrentPrinterName(QString());
    EXPECT_EQ(dialog.printerDialogs, 1);
    EXPECT_EQ(dialog.paper, QPageSize::A4);
    EXPECT_TRUE(dialog.messages.isEmpty());

    ASSERT_TRUE(report::writePdf(invoices(), pdf("opgeslagen.pdf")));
    const QStringList printed = pages(pdf("afgedrukt.pdf"));
    EXPECT_EQ(printed.size(), shown);
    EXPECT_EQ(printed, pages(pdf("opgeslagen.pdf")));
    EXPECT_TRUE(printed.value(0).contains("FACTUURBEDRAG"));
    EXPECT_EQ(paperNames(pdf("afgedrukt.pdf")), QStringList(shown, "A4"));
}

}  // namespace
