#include <QCoreApplication>
#include <QFileInfo>

#include "PrintFixture.h"
#include "controllers/PreviewController.h"
#include "controllers/ViewFactory.h"
#include "printing/DataReport.h"
#include "printing/modOverzicht.h"

namespace {

// A preview window as the controller sees it: what it was given, and the user's clicks.
class FakePreview : public IPreviewView {
public:
    explicit FakePreview(QList<FakePreview*>& all) : all_(all) { all_.append(this); }
    ~FakePreview() override { all_.removeOne(this); }
    void setEvents(IPreviewEvents* events) override { this->events = events; }
    void setDocument(const report::Document* document) override { this->document = document; }
    void showModeless() override { shown = true; }
    void hide() override { shown = false; }

    IPreviewEvents* events = nullptr;
    const report::Document* document = nullptr;
    bool shown = false;

private:
    QList<FakePreview*>& all_;
};

class FakePrintViews : public PrintViewFactory {
public:
    std::unique_ptr<IPreviewView> createPreview() override {
        return std::make_unique<FakePreview>(open);
    }
    QList<FakePreview*> open;
};

class PreviewTest : public PrintTest {
protected:
    PreviewTest() { report::installPresenter(&previews); }
    ~PreviewTest() override { report::installPresenter(nullptr); }

    FakePreview& showCustomers() {
        const qsizetype before = views.open.size();
        DataReport overview("repKlanten");
        ToonOverzicht(overview, 3, false);
        EXPECT_EQ(views.open.size(), before + 1);
        return *views.open.last();
    }

    FakePrintViews views;
    ScopedViews<PrintViewFactory> installed{&views};
    ReportPreviews previews;
};

TEST_F(PreviewTest, AShownReportOpensAPreviewThatLivesUntilItIsClosed) {
    FakePreview& preview = showCustomers();
    EXPECT_TRUE(preview.shown);
    ASSERT_NE(preview.document, nullptr);
    EXPECT_EQ(preview.document->title, "Overzicht klanten");
    EXPECT_EQ(preview.document->pages.size(), 1);
    showCustomers();
    EXPECT_EQ(previews.openCount(), 2);

    preview.events->gesloten();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(previews.openCount(), 1);
    EXPECT_EQ(views.open.size(), 1);
}

// Saving asks for a file name (the title as a suggestion), writes the PDF and says where;
// a cancelled dialog writes nothing, a file that cannot be written is told.
TEST_F(PreviewTest, OpslaanAlsPdfWritesTheFileAndSaysSoOnlyWhenItWorked) {
    FakePreview& preview = showCustomers();
    preview.events->opslaanAlsPdf();
    ASSERT_EQ(ui.saveRequests.size(), 1);
    EXPECT_EQ(ui.saveRequests[0].title, "Opslaan als PDF");
    EXPECT_TRUE(ui.saveRequests[0].startFolder.endsWith("/Overzicht klanten.pdf"));
    EXPECT_TRUE(ui.messages.isEmpty());

    ui.filesToSave.enqueue(pdf("klanten.pdf"));
    preview.events->opslaanAlsPdf();
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text, "Opgeslagen als " + pdf("klanten.pdf") + ".");
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);
    EXPECT_TRUE(pages(pdf("klanten.pdf")).value(0).contains("Overzicht klanten"));
    EXPECT_EQ(QDir(output.path()).entryList(QDir::Files),
              QStringList{"klanten.pdf"});  // no temporary left

    ui.filesToSave.enqueue(pdf("geen/map/klanten.pdf"));
    preview.events->opslaanAlsPdf();
    EXPECT_EQ(ui.lastMessage().text,
              "Het bestand " + pdf("geen/map/klanten.pdf") + " kon niet worden opgeslagen.");
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Exclamation);
    EXPECT_FALSE(QFileInfo::exists(pdf("geen/map/klanten.pdf")));
}

TEST_F(PreviewTest, PrintingStopsWhenThePrinterDialogIsCancelled) {
    FakePreview& preview = showCustomers();
    ui.printerConfirmed = false;
    preview.events->afdrukken();
    EXPECT_EQ(ui.printerDialogs, 1);
    EXPECT_TRUE(ui.messages.isEmpty());
}

}  // namespace
