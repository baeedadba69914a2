#include <QApplication>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QTest>

#include "PrintFixture.h"
#include "printing/DataReport.h"
#include "printing/FactuurSjabloon.h"
#include "printing/clsObjSjabloon.h"
#include "printing/modInstellingen.h"
#include "store/clsDatabase.h"
#include "views/frmVoorbeeld.h"

namespace {

// The real preview window: its buttons forward to the controller, every control has its
// name and accessible name, and the pages are counted.
class PreviewWindowTest : public PrintTest, public IPreviewEvents {
protected:
    void afdrukken() override { events.append("afdrukken"); }
    void opslaanAlsPdf() override { events.append("pdf"); }
    void gesloten() override { events.append("gesloten"); }
    QStringList events;
};

TEST_F(PreviewWindowTest, ButtonsForwardToTheControllerAndEscapeCloses) {
    FactuurSjabloon sjabloon(4, huidigeInstellingen());
    sjabloon.setDataSource(std::shared_ptr<Recordset>(
        gConnectie->openUpdatableSet(clsObjSjabloon::FactuurCommando("1,4"))));
    const report::Document document = sjabloon.document();
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

}  // namespace
