#include <gtest/gtest.h>

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSignalSpy>

#include "FakeScreens.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/MainWindowController.h"
#include "controllers/SettingsViews.h"
#include "controllers/ShellViews.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrInstellingen.h"
#include "printing/FactuurSjabloon.h"

namespace {

// The settings screen: what the controller put on it, and what the user typed or chose.
struct FakeSettings : IInstellingenView {
    clsContrInstellingen* controller = nullptr;
    QHash<QString, QString> texts;
    QStringList installed = {"DejaVu Sans", "Courier",     "Liberation Serif",
                             "Comic Neue",  "Courier New", "Liberation Mono"};
    QStringList fonts, points;
    int font = -1, point = -1, sjabloon = -1;
    bool noSound = false, visible = false;
    QString logo = "<niet gezet>";

    void SetInstellingenController(clsContrInstellingen* c) override { controller = c; }
    QString text(const QString& control) const override { return texts.value(control); }
    void setText(const QString& control, const QString& t) override { texts[control] = t; }
    QStringList installedFonts() const override { return installed; }
    void setFonts(const QStringList& names, int selected) override {
        fonts = names;
        font = selected;
    }
    int fontIndex() const override { return font; }
    QString fontText() const override { return font < 0 ? QString() : fonts.value(font); }
    void setPoints(const QStringList& sizes, int selected) override {
        points = sizes;
        point = selected;
    }
    QString pointText() const override { return point < 0 ? QString() : points.value(point); }
    int Sjabloon() const override { return sjabloon; }
    void setSjabloon(int position) override { sjabloon = position; }
    bool NoSound() const override { return noSound; }
    void setNoSound(bool checked) override { noSound = checked; }
    void showLogo(const QString& path) override { logo = path; }
    void show() override { visible = true; }
    void close() override { visible = false; }
};

// The margins dialog: shows what it was given, then holds what the user typed over it.
struct FakeMarges : IMargesView {
    QHash<QString, QString> shown, typed;
    QString text(const QString& control) const override {
        return typed.contains(control) ? typed.value(control) : shown.value(control);
    }
    void setText(const QString& control, const QString& t) override { shown[control] = t; }
    void showModal() override {}
};

struct FakeTekst : ITekstView {
    QString name;
    int size = -1;
    void setPreviewFont(const QString& n, int s) override {
        name = n;
        size = s;
    }
    void showModal() override {}
};

struct Screens : SettingsViewFactory {
    FakeSettings* settings = nullptr;
    QHash<QString, QString> margesTyped;
    QHash<QString, QString> margesShown;
    FakeTekst tekst;
    ScopedViews<SettingsViewFactory> installed{this};

    std::unique_ptr<IInstellingenView> createInstellingen() override { return makeKept(settings); }
    std::unique_ptr<IMargesView> createMarges() override {
        struct Recording : FakeMarges {
            QHash<QString, QString>* out = nullptr;
            void showModal() override { *out = shown; }
        };
        auto recording = std::make_unique<Recording>();
        recording->typed = margesTyped;
        recording->out = &margesShown;
        return recording;
    }
    std::unique_ptr<ITekstView> createTekst() override {
        struct Copy : FakeTekst {
            FakeTekst* out = nullptr;
            void showModal() override { *out = *this; }
        };
        auto made = std::make_unique<Copy>();
        made->out = &tekst;
        return made;
    }
};

struct FakeWindow : IMainWindowView {
    void unload() override {}
    void setUpdateTool(const QString&, bool) override {}
};

class SettingsTest : public testing::Test {
protected:
    SettingsTest() : controller(fakeReports()) { gNoSound = false; }
    ~SettingsTest() override { gNoSound = false; }

    SettingsReports fakeReports() {
        return {[this](qint32 id, qint16 sjabloon) {
                    printed << QString("factuur %1 sjabloon %2 in %3 %4")
                                   .arg(id)
                                   .arg(sjabloon)
                                   .arg(gVoorbeeldFont().naam, gVoorbeeldFont().grootte);
                },
                [this] { printed << "klanten"; }, [this] { printed << "artikelen"; }};
    }

    FakeSettings& open() {
        controller.StartInstellingen();
        return *screens.settings;
    }
    QVariant setting(const QString& column) const {
        return database.scalar("SELECT " + column + " FROM Instellingen");
    }
    // The VAT rows as "BTW1/BTW2 visible|hidden", oldest first.
    QStringList vatRows() const {
        return database
            .scalar(
                "SELECT group_concat(printf('%g/%g ', BTW1, BTW2) || "
                "IIF(Zichtbaar, 'visible', 'hidden'), ',') FROM (SELECT * FROM BTW ORDER BY "
                "BTWId)")
            .toString()
            .split(',');
    }

    TestDatabase database;
    RecordingUiService ui;
    Screens screens;
    clsContrInstellingen controller;
    QSignalSpy sluit{&controller, &clsContrInstellingen::SluitInstellingen};
    QSignalSpy closed{&controller, &RegisterController::closed};
    QStringList printed;
};

TEST_F(SettingsTest, TheScreenShowsTheStoredSettingsAndTheRatesInUse) {
    database.exec(
        "UPDATE Instellingen SET Bedrijfsnaam='Bakkerij Smit', Website='smit.nl', "
        "BetaalTermijn=14, Sjabloon=4, FontName='Liberation Serif', FontSize=12, "
        "NoSound=1");
    database.exec("UPDATE BTW SET Zichtbaar=0");
    database.exec("INSERT INTO BTW (BTW1, BTW2, Zichtbaar) VALUES (19.5, 6, 1)");

    const FakeSettings& view = open();
    EXPECT_TRUE(view.visible);
    EXPECT_EQ(view.texts["txtBedrijfsnaam"], "Bakkerij Smit");
    EXPECT_EQ(view.texts["txtLand"], "Nederland");
    EXPECT_EQ(view.texts["txtWebsite"], "smit.nl");
    EXPECT_EQ(view.texts["txtDagen"], "14");
    EXPECT_EQ(view.texts["txtBTWTarief1"], "19,5");
    EXPECT_EQ(view.texts["txtBTWTarief2"], "6");
    EXPECT_EQ(view.sjabloon, 4);
    EXPECT_TRUE(view.noSound);
    EXPECT_EQ(view.fonts,
              QStringList({"DejaVu Sans", "Liberation Serif", "Courier New", "Liberation Mono"}));
    EXPECT_EQ(view.fontText(), "Liberation Serif");
    EXPECT_EQ(view.points, QStringList({"10", "12"}));
    EXPECT_EQ(view.pointText(), "12");
    EXPECT_EQ(view.logo, "") << "no logo file: the label shows";
    EXPECT_TRUE(ui.messages.isEmpty());
}

struct FontCase {
    const char* what;
    QStringList installed;
    QString stored;
    QStringList offered;
    int selected;
};

class FontChoiceTest : public testing::TestWithParam<FontCase> {};

TEST_P(FontChoiceTest, OffersListedFontsAndSelectsTheStoredOne) {
    const FontCase& c = GetParam();
    const FontChoice choice = clsContrInstellingen::kiesLettertypen(c.installed, c.stored);
    EXPECT_EQ(choice.names, c.offered);
    EXPECT_EQ(choice.selected, c.selected);
}

INSTANTIATE_TEST_SUITE_P(
    Fonts, FontChoiceTest,
    testing::Values(FontCase{"stored font found",
                             {"Carlito", "Caladea", "Noto Sans"},
                             "Caladea",
                             {"Carlito", "Caladea"},
                             1},
                    FontCase{"stored font not listed: the first",
                             {"Carlito", "Caladea"},
                             "Wingdings",
                             {"Carlito", "Caladea"},
                             0},
                    FontCase{"a Null font reads as 0: the first",
                             {"Carlito", "Caladea"},
                             "0",
                             {"Carlito", "Caladea"},
                             0},
                    FontCase{"none stored: courier new",
                             {"Arial", "Courier New", "courier"},
                             "",
                             {"Arial", "Courier New"},
                             1},
                    FontCase{"part of a listed name counts",
                             {"Sans", "Serif", "DejaVu Sans Mono", "Mono"},
                             "Serif",
                             {"Sans", "Serif", "Mono"},
                             1},
                    FontCase{"courier excluded in any case and spacing",
                             {" Courier ", "COURIER", "Tahoma"},
                             "",
                             {"Tahoma"},
                             0},
                    FontCase{"nothing listed installed", {"Noto Sans", "Ubuntu"}, "Ubuntu", {}, 0}),
    [](const testing::TestParamInfo<FontCase>& info) {
        return QString(info.param.what)
            .replace(QRegularExpression("[^A-Za-z0-9]"), "_")
            .toStdString();
    });

struct RateCase {
    const char* what;
    QString typed1, typed2;
    QStringList rows;
};

class RateTest : public SettingsTest, public testing::WithParamInterface<RateCase> {};

TEST_P(RateTest, OnlyAChangedRateMakesANewRowWithBoth) {
    const RateCase& c = GetParam();
    FakeSettings& view = open();
    view.texts["txtBTWTarief1"] = c.typed1;
    view.texts["txtBTWTarief2"] = c.typed2;
    controller.Opslaan();

    EXPECT_TRUE(ui.messages.isEmpty()) << ui.lastMessage().text.toStdString();
    EXPECT_EQ(vatRows(), c.rows);
    if (c.typed1.isEmpty()) {
        EXPECT_EQ(view.texts["txtBTWTarief1"], "0");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rates, RateTest,
    testing::Values(RateCase{"unchanged", "21", "9", {"21/9 visible"}},
                    RateCase{"unchanged in other notation", "21,0", "9.0", {"21/9 visible"}},
                    RateCase{"one changed", "21", "6", {"21/9 hidden", "21/6 visible"}},
                    RateCase{"decimal point", "9.5", "9", {"21/9 hidden", "9.5/9 visible"}},
                    RateCase{"empty is zero", "", "9", {"21/9 hidden", "0/9 visible"}}),
    [](const testing::TestParamInfo<RateCase>& info) {
        return QString(info.param.what).replace(' ', '_').toStdString();
    });

TEST_F(SettingsTest, SavingWritesTheScreenIntoTheSettingsRowAndCloses) {
    const QVariant id = setting("InstellingenId");
    FakeSettings& view = open();
    view.texts["txtBedrijfsnaam"] = "Fietsen Jansen";
    view.texts["txtKVKNummer"] = "12345678";
    view.texts["txtOpmerking"] = "Betaling binnen de termijn graag.";
    view.texts["txtEmail"] = "info@jansen.nl";
    view.texts["txtDagen"] = "";
    view.sjabloon = 6;
    view.font = view.fonts.indexOf("Liberation Mono");
    view.point = 1;
    controller.Opslaan();

    EXPECT_TRUE(ui.messages.isEmpty());
    EXPECT_EQ(setting("InstellingenId"), id);
    EXPECT_EQ(setting("Bedrijfsnaam").toString(), "Fietsen Jansen");
    EXPECT_EQ(setting("KVKNummer").toString(), "12345678");
    EXPECT_EQ(setting("Opmerking").toString(), "Betaling binnen de termijn graag.");
    EXPECT_EQ(setting("Email").toString(), "info@jansen.nl");
    EXPECT_EQ(setting("Land").toString(), "Nederland");
    EXPECT_EQ(setting("BetaalTermijn").toInt(), 0);
    EXPECT_EQ(setting("Sjabloon").toInt(), 6);
    EXPECT_EQ(setting("FontName").toString(), "Liberation Mono");
    EXPECT_EQ(setting("FontSize").toDouble(), 12.0);
    EXPECT_EQ(setting("NoSound").toInt(), 0);
    EXPECT_EQ(sluit.count(), 1);
    EXPECT_EQ(closed.count(), 1);
    EXPECT_FALSE(view.visible);

    controller.Annuleren();  // the close box of a closing screen
    EXPECT_EQ(sluit.count(), 1);
}

TEST_F(SettingsTest, AnnulerenDropsEveryChangeMarginsIncluded) {
    FakeSettings& view = open();
    view.texts["txtBedrijfsnaam"] = "Niet bewaard";
    screens.margesTyped = {{"txtLinks", "5"}};
    controller.ToonMarges();
    controller.Annuleren();

    EXPECT_EQ(sluit.count(), 1);
    EXPECT_FALSE(view.visible);
    EXPECT_EQ(setting("Bedrijfsnaam").toString(), "");
    EXPECT_EQ(setting("MargeLinks").toInt(), 100);
}

TEST_F(SettingsTest, MarginsShowTheSettingsAndReachTheDatabaseOnlyOnSaving) {
    open();
    screens.margesTyped = {{"txtLinks", "35"}, {"txtBoven", ""}, {"txtFactuurBoven", "0"}};
    controller.ToonMarges();
    EXPECT_EQ(screens.margesShown, (QHash<QString, QString>{{"txtLinks", "100"},
                                                            {"txtBoven", "50"},
                                                            {"txtFactuurBoven", "10"},
                                                            {"txtFactuurOnder", "10"}}));
    EXPECT_EQ(setting("MargeLinks").toInt(), 100);

    controller.Opslaan();
    EXPECT_EQ(setting("MargeLinks").toInt(), 35);
    EXPECT_EQ(setting("MargeBoven").toInt(), 0) << "left empty";
    EXPECT_EQ(setting("MargeFactuurBoven").toInt(), 0);
    EXPECT_EQ(setting("MargeFactuurOnder").toInt(), 10);
}

TEST_F(SettingsTest, AMarginTooLargeIsRefusedAndChangesNoMargin) {
    open();
    screens.margesTyped = {{"txtLinks", "40"}, {"txtFactuurOnder", "99999"}};
    controller.ToonMarges();
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().caption, "KORVANE LINDEBRUG");
    EXPECT_EQ(controller.Instellingen.MargeLinks(), 100);
}

TEST_F(SettingsTest, AMissingLogoShowsTheLabelAndIsSavedAsTyped) {
    const QString missing = database.file("logo-weg.jpg");
    const QString present = database.file("logo.jpg");
    QFile(present).open(QIODevice::WriteOnly);
    FakeSettings& view = open();

    view.texts["txtLogo"] = present;
    controller.InstellenLogo(present);
    EXPECT_EQ(view.logo, present);
    view.texts["txtLogo"] = missing;
    controller.InstellenLogo(missing);
    EXPECT_EQ(view.logo, "");
    controller.Opslaan();
    EXPECT_EQ(setting("Logo").toString(), missing);
}

TEST_F(SettingsTest, TheLogoDialogTakesTheChosenFileAndEndsSilentlyWhenCancelled) {
    const QString chosen = database.file("beeldmerk.gif");
    QFile(chosen).open(QIODevice::WriteOnly);
    FakeSettings& view = open();
    view.texts["txtLogo"] = "/ergens/oud.bmp";

    controller.OphalenLogo();  // cancelled: no script
    EXPECT_EQ(view.texts["txtLogo"], "/ergens/oud.bmp");
    ui.filesToOpen.enqueue(chosen);
    controller.OphalenLogo();

    EXPECT_TRUE(ui.messages.isEmpty());
    ASSERT_EQ(ui.fileRequests.size(), 2);
    EXPECT_EQ(ui.fileRequests[0].filter,
              "Afbeelding (*.bmp;*.jpg;*.jpeg;*.gif)|*.bmp;*.jpg;*.jpeg;*.gif");
    EXPECT_EQ(ui.fileRequests[0].startFolder, "/ergens");
    EXPECT_EQ(view.texts["txtLogo"], chosen);
    EXPECT_EQ(view.logo, chosen);
}

TEST_F(SettingsTest, NoSoundSilencesTheMenuAtOnceAndSoundComesBack) {
    FakeWindow window;
    MainWindowController menu(window, {[](Register) { return nullptr; }, [] { return false; }});
    FakeSettings& view = open();
    view.noSound = true;
    controller.Opslaan();
    menu.menuClick("tlSchermen");
    EXPECT_TRUE(ui.sounds.isEmpty());
    EXPECT_EQ(setting("NoSound").toInt(), 1);

    clsContrInstellingen again(fakeReports());
    again.StartInstellingen();
    EXPECT_TRUE(screens.settings->noSound);
    screens.settings->noSound = false;
    again.Opslaan();
    menu.menuClick("tlSchermen");
    EXPECT_EQ(ui.sounds.size(), 1);
}

TEST_F(SettingsTest, AnErrorInOpslaanIsShownUnderTheShortNameAndTheScreenStays) {
    FakeSettings& view = open();
    view.texts["txtBedrijfsnaam"] = "Eerst bewaard";
    view.texts["txtBTWTarief2"] = "1e400";  // beyond a double
    controller.Opslaan();

    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessageBegins(
        "Er is een fout opgetreden bij de verwerking van uw opdracht.\r\nDetails: ", "Lindebrug",
        ui::Icon::Exclamation));
    EXPECT_EQ(sluit.count(), 0);
    EXPECT_TRUE(view.visible);
    EXPECT_EQ(setting("Bedrijfsnaam").toString(), "Eerst bewaard") << "steps done stay written";
    EXPECT_EQ(vatRows(), QStringList{"21/9 visible"});
}

TEST_F(SettingsTest, WithoutASettingsRowTheErrorIsShownAndTheRegisterEnds) {
    database.exec("DELETE FROM Instellingen");
    controller.StartInstellingen();

    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessageBegins("", "KORVANE LINDEBRUG", ui::Icon::Exclamation));
    EXPECT_FALSE(screens.settings->visible);
    EXPECT_EQ(closed.count(), 1);
}

TEST_F(SettingsTest, TheExampleInvoiceAndFontPreviewUseTheUnsavedFont) {
    FakeSettings& view = open();
    view.font = view.fonts.indexOf("Liberation Mono");
    view.point = 0;
    view.sjabloon = 2;

    controller.ToonVoorbeeldFactuur();
    EXPECT_TRUE(printed.isEmpty());
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text,
              "Zorg voor een voorbeeld dat er tenminste één factuur klaarstaat!");
    EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Information);

    database.exec(
        "INSERT INTO Factuur (Nummer, Datum, KlantID, BTWId) VALUES (7, '2026-01-02', 0, 1)");
    const int id = database.scalar("SELECT FactuurID FROM Factuur").toInt();
    controller.ToonVoorbeeldFactuur();
    EXPECT_EQ(printed, QStringList{QString("factuur %1 sjabloon 2 in Liberation Mono 10").arg(id)});
    EXPECT_EQ(setting("FontName").toString(), "DejaVu Sans") << "nothing saved";

    view.point = 1;
    controller.ToonTekstvoorbeeld();
    EXPECT_EQ(screens.tekst.name, "Liberation Mono");
    EXPECT_EQ(screens.tekst.size, 12);
}

TEST_F(SettingsTest, TheOverviewButtonsPrintTheirOverview) {
    open();
    controller.PrintKlantOverzicht();
    controller.PrintArtikelOverzicht();
    EXPECT_EQ(printed, QStringList({"klanten", "artikelen"}));
}

}  // namespace
