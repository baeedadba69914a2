#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/SettingsViews.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrInstellingen.h"
#include "printing/FactuurSjabloon.h"
#include "printing/ReportPresenter.h"
#include "printing/modPdf.h"

// The settings as the printouts show them; here because a PDF needs the GUI application.
namespace {

// The settings screen with what the user typed; the rest as the controller filled it.
struct Screen : IInstellingenView {
    QHash<QString, QString> texts;
    QStringList fonts;
    int font = 0, point = 0, sjabloon = 0;
    bool noSound = false;
    void SetInstellingenController(clsContrInstellingen*) override {}
    QString text(const QString& c) const override { return texts.value(c); }
    void setText(const QString& c, const QString& t) override { texts[c] = t; }
    QStringList installedFonts() const override { return {"DejaVu Sans", "Liberation Mono"}; }
    void setFonts(const QStringList& names, int selected) override {
        fonts = names;
        font = selected;
    }
    int fontIndex() const override { return font; }
    QString fontText() const override { return fonts.value(font); }
    void setPoints(const QStringList&, int) override {}
    QString pointText() const override { return point == 0 ? "10" : "12"; }
    int Sjabloon() const override { return sjabloon; }
    void setSjabloon(int p) override { sjabloon = p; }
    bool NoSound() const override { return noSound; }
    void setNoSound(bool c) override { noSound = c; }
    void showLogo(const QString&) override {}
    void show() override {}
    void close() override {}
};

struct Fakes : SettingsViewFactory, report::Presenter {
    Screen* screen = nullptr;
    QList<report::Document> shown;
    ScopedViews<SettingsViewFactory> installed{this};
    Fakes() { report::installPresenter(this); }
    ~Fakes() override { report::installPresenter(nullptr); }
    std::unique_ptr<IInstellingenView> createInstellingen() override {
        auto made = std::make_unique<Screen>();
        screen = made.get();
        return made;
    }
    std::unique_ptr<IMargesView> createMarges() override { return nullptr; }
    std::unique_ptr<ITekstView> createTekst() override { return nullptr; }
    std::shared_ptr<report::ShownReport> present(const report::Document& document) override {
        shown << document;
        return nullptr;
    }
};

QString pdfText(const QString& path) {
    QProcess pdftotext;
    pdftotext.start("pdftotext", {path, "-"});
    EXPECT_TRUE(pdftotext.waitForFinished(60000));
    return QString::fromUtf8(pdftotext.readAllStandardOutput());
}

class SettingsPrintTest : public testing::Test {
protected:
    SettingsPrintTest() {
        QFile data(TestDatabase::testData("printing/facturen.sql"));
        EXPECT_TRUE(data.open(QIODevice::ReadOnly));
        database.exec(QString::fromUtf8(data.readAll()));
        gVoorbeeldFont() = {};
    }
    ~SettingsPrintTest() override { gVoorbeeldFont() = {}; }

    TestDatabase database;
    RecordingUiService ui;
    Fakes fakes;
    QTemporaryDir folder;
};

TEST_F(SettingsPrintTest, TheNextInvoiceShowsTheSavedCompanyDetails) {
    clsContrInstellingen settings(SettingsReports::program());
    settings.StartInstellingen();
    fakes.screen->texts["txtBedrijfsnaam"] = "Broodbakkerij Linde";
    fakes.screen->texts["txtBankNummer"] = "NL02 ABNA 0417 1643 00";
    fakes.screen->texts["txtOpmerking"] = "Nieuwe voorwaarden vanaf maart.";
    settings.Opslaan();
    ASSERT_TRUE(ui.messages.isEmpty()) << ui.lastMessage().text.toStdString();

    const QString pdf = folder.filePath("1001.pdf");
    ASSERT_TRUE(FacturenAlsPdf({"1001"}, pdf));
    const QString text = pdfText(pdf);
    EXPECT_TRUE(text.contains("Broodbakkerij Linde")) << text.toStdString();
    EXPECT_TRUE(text.contains("NL02 ABNA 0417 1643 00")) << text.toStdString();
    EXPECT_TRUE(text.contains("Nieuwe voorwaarden vanaf maart."));
    EXPECT_FALSE(text.contains("Bakkerij Korvane"));
}

TEST_F(SettingsPrintTest, TheExampleInvoiceUsesTheUnsavedFont) {
    clsContrInstellingen settings(SettingsReports::program());
    settings.StartInstellingen();
    fakes.screen->font = fakes.screen->fonts.indexOf("Liberation Mono");
    fakes.screen->point = 1;
    settings.ToonVoorbeeldFactuur();

    ASSERT_EQ(fakes.shown.size(), 1)
        << (ui.messages.isEmpty() ? "" : ui.lastMessage().text.toStdString());
    int texts = 0;
    for (const report::DrawItem& item : fakes.shown.first().pages.first().items) {
        if (item.kind != report::DrawItem::Kind::Text || item.text.isEmpty()) {
            continue;
        }
        ++texts;
        EXPECT_EQ(item.font.family, "Liberation Mono") << item.text.toStdString();
    }
    EXPECT_GT(texts, 10);
    EXPECT_EQ(database.scalar("SELECT FontName FROM Instellingen").toString(), "DejaVu Sans");
}

}  // namespace
