#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTimer>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "views/QtViewFactory.h"
#include "views/frmAbout.h"
#include "views/frmFactuur.h"
#include "views/frmSplash.h"

namespace {

const ShellServices Offline{createProgramRegister, [] { return false; }};

struct Tool {
    const char* band;
    const char* name;
    const char* caption;
    const char* opens = "";  // the band the tool opens
};

void PrintTo(const Tool& tool, std::ostream* out) {
    *out << tool.name;
}

class MenuLayoutTest : public testing::TestWithParam<Tool> {
protected:
    frmFactuur window{Offline};
};

TEST_P(MenuLayoutTest, EveryToolSitsInItsBandWithItsCaption) {
    auto* tool = window.findChild<QAction*>(GetParam().name);
    auto* band = window.findChild<QWidget*>(GetParam().band);
    ASSERT_TRUE(tool && band);
    EXPECT_TRUE(band->actions().contains(tool));
    EXPECT_EQ(tool->text(), GetParam().caption);
    EXPECT_EQ(tool->menu() ? tool->menu()->objectName() : QString(), GetParam().opens);
}

INSTANTIATE_TEST_SUITE_P(
    Menu, MenuLayoutTest,
    testing::Values(
        Tool{"bndMenu", "tlAfsluiten", "A&fsluiten"},
        Tool{"bndMenu", "tlArtikelen", "A&rtikelen/Uren"}, Tool{"bndMenu", "tlKlanten", "&Klanten"},
        Tool{"bndMenu", "tlFacturen", "&Factureren", "bndFactureren"},
        Tool{"bndMenu", "tlInstellingen", "I&nstellingen"},
        Tool{"bndMenu", "tOverige", "&Overige functies", "bndOverig"},
        Tool{"bndMenu", "tHelp", "&Help", "bndHelp"}, Tool{"bndMenu", "tUpdate", ""},
        Tool{"bndSchermen", "tlSchermen", "&Schermen"},
        Tool{"bndFactureren", "tlFacturerenArtikelen", "&Factureren"},
        Tool{"bndOverig", "tBackupOnderM", "Backup", "bndBackup"},
        Tool{"bndOverig", "tExportOnderM", "Export", "bndExport"},
        Tool{"bndOverig", "tImportOnderM", "Import"}, Tool{"bndOverig", "tEtiket", "Etiketten"},
        Tool{"bndBackup", "tBackup", "Backup"}, Tool{"bndBackup", "tRestore", "Restore"},
        Tool{"bndExport", "tlExpKlanten", "Klanten naar tekstbestand"},
        Tool{"bndExport", "tlExpArtikelen", "Artikelen naar tekstbestand"},
        Tool{"bndExport", "tlExpArtikelfacturen", "Facturen naar tekstbestand"},
        Tool{"bndImport", "tImportArtikelen", "Import Artikelen/uren"},
        Tool{"bndImport", "tImportKlant", "Import klanten"}, Tool{"bndHelp", "tlHelp", "Handboek"},
        Tool{"bndHelp", "tAbout", "Over..."}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(MainWindowTest, TheMainBarHoldsItsToolsInOrder) {
    frmFactuur window{Offline};
    QStringList names;
    for (const QAction* action : window.menuBar()->actions()) names << action->objectName();
    EXPECT_EQ(names, QStringList({"tlAfsluiten", "tlArtikelen", "tlKlanten", "tlFacturen",
                                  "tlInstellingen", "tOverige", "tHelp", "tUpdate"}));
    EXPECT_EQ(window.windowTitle(), "KORVANE LINDEBRUG");
}

// The real start-up, the real splash closed as soon as it shows, then a click on a menu tool.
TEST(MainWindowTest, StartsAndForwardsMenuClicks) {
    TestDatabase database;
    RecordingUiService ui;
    QtViewFactory views;
    installViewFactory(&views);
    frmFactuur window{Offline};
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });

    ASSERT_TRUE(window.startUp());
    window.findChild<QAction*>("tAbout")->trigger();
    installViewFactory(nullptr);

    auto* update = window.findChild<QAction*>("tUpdate");
    EXPECT_EQ(update->text(), "Geen updates");
    EXPECT_FALSE(update->isEnabled());
    EXPECT_EQ(ui.sounds, QStringList{"Notification.Proximity"});
    auto* about = window.findChild<frmAbout*>();
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(about->isVisible());
    EXPECT_EQ(about->windowTitle(), "Over Korvane Lindebrug");
    EXPECT_EQ(about->findChild<QLabel*>("lblTitle")->text(), "Korvane Lindebrug");
}

void click(QWidget* target) {
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), target->mapToGlobal(QPointF(5, 5)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &press);
}

void pressKey(QWidget* target) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
    QApplication::sendEvent(target, &key);
}

// The ways a splash ends; each must close it.
using SplashEnding = std::pair<const char*, void (*)(frmSplash&)>;

class SplashTest : public testing::TestWithParam<SplashEnding> {};

TEST_P(SplashTest, Closes) {
    frmSplash splash;
    splash.setVersion("Versie 2.4.0");
    splash.stopUnloadTimer();
    QTimer::singleShot(0, &splash, [&] { GetParam().second(splash); });

    splash.showModal();

    EXPECT_FALSE(splash.isVisible());
    EXPECT_EQ(splash.findChild<QLabel*>("lblVersion")->text(), "Versie 2.4.0");
}

INSTANTIATE_TEST_SUITE_P(
    Splash, SplashTest,
    testing::Values(SplashEnding{"ClickOnPicture",
                                 [](frmSplash& s) { click(s.findChild<QLabel*>("imgSplash")); }},
                    SplashEnding{"ClickOnForm", [](frmSplash& s) { click(&s); }},
                    SplashEnding{"Key", [](frmSplash& s) { pressKey(&s); }},
                    SplashEnding{
                        "UnloadTimer",
                        [](frmSplash& s) { s.findChild<QTimer*>("tmrUnload")->start(0); }}),
    [](const auto& info) { return std::string(info.param.first); });

}  // namespace
