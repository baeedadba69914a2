#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <functional>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/RegisterController.h"
#include "controllers/clsControllerFactuur.h"
#include "grid_qstring.h"
#include "views/QtViews.h"
#include "views/frmAbout.h"
#include "views/frmFactuur.h"
#include "views/frmSplash.h"

namespace {

const ShellServices Offline{createProgramRegister, [] { return false; }};

// Every band's tools in order, each as objectName, caption and, after ">", the band it opens.
TEST(MainWindowTest, EveryBandHoldsItsToolsInOrder) {
    frmFactuur window{Offline};
    const auto band = [&](const char* name) {
        QStringList tools{name};
        if (const auto* band = window.findChild<QWidget*>(name)) {
            for (const QAction* tool : band->actions()) {
                tools << tool->objectName() + " " + tool->text() +
                             (tool->menu() ? ">" + tool->menu()->objectName() : QString());
            }
        }
        return tools.join(" | ");
    };

    EXPECT_EQ(band("bndMenu"),
              "bndMenu | tlAfsluiten A&fsluiten | tlArtikelen A&rtikelen/Uren | tlKlanten &Klanten"
              " | tlFacturen &Factureren>bndFactureren | tlInstellingen I&nstellingen"
              " | tOverige &Overige functies>bndOverig | tHelp &Help>bndHelp | tUpdate ");
    EXPECT_EQ(band("bndFactureren"), "bndFactureren | tlFacturerenArtikelen &Factureren");
    EXPECT_EQ(band("bndOverig"),
              "bndOverig | tBackupOnderM Backup>bndBackup | tExportOnderM Export>bndExport"
              " | tImportOnderM Import | tEtiket Etiketten");
    EXPECT_EQ(band("bndBackup"), "bndBackup | tBackup Backup | tRestore Restore");
    EXPECT_EQ(band("bndExport"),
              "bndExport | tlExpKlanten Klanten naar tekstbestand | tlExpArtikelen Artikelen naar "
              "tekstbestand | tlExpArtikelfacturen Facturen naar tekstbestand");
    EXPECT_EQ(band("bndHelp"), "bndHelp | tlHelp Handboek | tAbout Over...");
    EXPECT_EQ(band("bndSchermen"), "bndSchermen | tlSchermen &Schermen");
    EXPECT_EQ(band("bndImport"),
              "bndImport | tImportArtikelen Import Artikelen/uren | tImportKlant Import klanten");
    EXPECT_EQ(window.windowTitle(), "KORVANE LINDEBRUG");
}

// The real start-up, the real splash closed as soon as it shows, then a click on a menu tool.
TEST(MainWindowTest, StartsAndForwardsMenuClicks) {
    TestDatabase database;
    RecordingUiService ui;
    installQtViews();
    frmFactuur window{Offline};
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });

    ASSERT_TRUE(window.startUp());
    window.findChild<QAction*>("tAbout")->trigger();

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

TEST(SplashTest, AClickOnPictureOrFormAKeyOrTheUnloadTimerClosesIt) {
    for (const auto& [how, end] :
         std::initializer_list<std::pair<const char*, std::function<void(frmSplash&)>>>{
             {"picture",
              [](frmSplash& s) {
                  QTest::mouseClick(s.findChild<QLabel*>("imgSplash"), Qt::LeftButton);
              }},
             {"form",
              [](frmSplash& s) { QTest::mouseClick(&s, Qt::LeftButton, {}, QPoint(5, 5)); }},
             {"key", [](frmSplash& s) { QTest::keyClick(&s, Qt::Key_A); }},
             {"timer", [](frmSplash& s) { s.findChild<QTimer*>("tmrUnload")->start(0); }}}) {
        frmSplash splash;
        splash.setVersion("Versie 2.4.0");
        splash.stopUnloadTimer();
        QTimer::singleShot(0, &splash, [&] { end(splash); });

        splash.showModal();

        EXPECT_FALSE(splash.isVisible()) << how;
        EXPECT_EQ(splash.findChild<QLabel*>("lblVersion")->text(), "Versie 2.4.0");
    }
}

// A register in the real frame: the menu opens one screen however often it is chosen, the
// close box ends it together with its sub-window and its controller, and the menu then opens
// a fresh one.
struct RegisterInFrame {
    const char* tool;
    const char* screen;
    Register register_;
};

class RegisterInFrameTest : public testing::TestWithParam<RegisterInFrame> {};

TEST_P(RegisterInFrameTest, TheMenuOpensOneScreenAndItsCloseBoxEndsIt) {
    const RegisterInFrame& c = GetParam();
    TestDatabase database;
    RecordingUiService ui;
    installQtViews();
    frmFactuur window{Offline};
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    ASSERT_TRUE(window.startUp());
    window.show();
    auto* mdi = window.findChild<QMdiArea*>("mdiSchermen");
    auto* menu = window.findChild<QAction*>(c.tool);

    menu->trigger();
    menu->trigger();
    ASSERT_EQ(mdi->subWindowList().size(), 1);
    QPointer<QMdiSubWindow> sub = mdi->subWindowList().first();
    QPointer<QWidget> screen = sub->widget();
    EXPECT_EQ(screen->objectName(), c.screen);
    EXPECT_TRUE(sub->isVisible());

    sub->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(screen.isNull()) << "its controller went, and the screen with it";
    EXPECT_TRUE(sub.isNull());
    EXPECT_EQ(window.controller().applicationController()->openRegister(c.register_), nullptr);

    menu->trigger();
    ASSERT_EQ(mdi->subWindowList().size(), 1);
    EXPECT_TRUE(mdi->subWindowList().first()->isVisible());
    EXPECT_TRUE(ui.messages.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Registers, RegisterInFrameTest,
    testing::Values(RegisterInFrame{"tlArtikelen", "frmArtikel", Register::Artikelen},
                    RegisterInFrame{"tlKlanten", "frmKlant", Register::Klanten}),
    [](const auto& info) { return std::string(info.param.screen); });

}  // namespace
