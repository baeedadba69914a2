#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <QSignalSpy>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrInstellingen.h"
#include "views/QtSettingsViews.h"
#include "views/frmInstellingen.h"
#include "views/frmMarges.h"

namespace {

// Moves the focus as a Tab or a click would, and lets the screen react.
void focus(QWidget* widget) {
    widget->setFocus(Qt::TabFocusReason);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

template <class Screen>
struct Shown {
    Screen screen;
    Shown() {
        screen.show();
        QApplication::setActiveWindow(&screen);
    }
    QLineEdit* field(const char* name) { return screen.template findChild<QLineEdit*>(name); }
};

struct FieldCase {
    const char* field;
    const char* typed;
    const char* kept;
    const char* caption;  // of the refusal when the field is left; empty when it passes
};

class SettingsFieldTest : public testing::TestWithParam<FieldCase> {
protected:
    RecordingUiService ui;
    Shown<frmInstellingen> settings;
};

TEST_P(SettingsFieldTest, TypingIsFilteredAndLeavingChecksTheValue) {
    const FieldCase& c = GetParam();
    settings.screen.showPage(c.field == QString("txtDagen") ? 1 : 2);
    QLineEdit* edit = settings.field(c.field);
    ASSERT_NE(edit, nullptr);
    focus(edit);
    QTest::keyClicks(edit, c.typed);
    EXPECT_EQ(edit->text(), c.kept);
    const qsizetype beeps = QString(c.typed).size() - QString(c.kept).size();
    EXPECT_EQ(ui.sounds.size(), beeps) << "one beep per dropped key";

    focus(settings.field("txtBedrijfsnaam") != edit && c.field != QString("txtDagen")
              ? settings.field("txtBedrijfsnaam")
              : settings.field("txtOpmerking"));
    if (QString(c.caption).isEmpty()) {
        EXPECT_TRUE(ui.messages.isEmpty());
        EXPECT_NE(QApplication::focusWidget(), edit);
    } else {
        ASSERT_EQ(ui.messages.size(), 1);
        EXPECT_EQ(ui.lastMessage().text, "Ongeldige waarde ingevoerd");
        EXPECT_EQ(ui.lastMessage().caption, c.caption);
        EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Exclamation);
        EXPECT_EQ(QApplication::focusWidget(), edit) << "the field keeps the focus";
        EXPECT_EQ(edit->selectedText(), edit->text());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Fields, SettingsFieldTest,
    testing::Values(FieldCase{"txtBTWTarief1", "21a,5", "21,5", ""},
                    FieldCase{"txtBTWTarief2", "9.5%", "9.5", ""},
                    FieldCase{"txtBTWTarief1", "1,2,3", "1,2,3", "BTW tarief 1"},
                    FieldCase{"txtBTWTarief2", "..", "..", "BTW tarief 2"},
                    FieldCase{"txtBTWTarief2", "", "", ""}, FieldCase{"txtDagen", "3x0,", "30", ""},
                    FieldCase{"txtDagen", "-14 ", "14", ""}));

TEST(SettingsScreen, PageButtonsShowTheirPageAndAreColouredWhite) {
    RecordingUiService ui;
    Shown<frmInstellingen> settings;
    const QList<QPushButton*> buttons =
        settings.screen.findChildren<QPushButton*>("cmdInstellingen");
    ASSERT_EQ(buttons.size(), 3);
    for (QPushButton* button : buttons) {
        button->click();
        const int index = button->property("index").toInt();
        for (QWidget* page : settings.screen.findChildren<QWidget*>("fraInstellingen")) {
            EXPECT_EQ(page->isVisible(), page->property("index").toInt() == index);
        }
        for (QPushButton* other : buttons) {
            EXPECT_EQ(other->styleSheet().contains("#FFFFFF"), other == button);
        }
    }
    EXPECT_EQ(settings.screen.findChild<QComboBox*>("cmbSjabloon")->count(), 7);
}

TEST(SettingsScreen, EveryInputHasAnAccessibleNameAndALabelPointingAtIt) {
    Shown<frmInstellingen> settings;
    for (QWidget* widget : settings.screen.findChildren<QWidget*>()) {
        if (qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget) ||
            qobject_cast<QAbstractButton*>(widget)) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
        }
    }
    for (QLineEdit* edit : settings.screen.findChildren<QLineEdit*>()) {
        bool labelled = false;
        for (QLabel* label : settings.screen.findChildren<QLabel*>()) {
            labelled = labelled || label->buddy() == edit;
        }
        EXPECT_TRUE(labelled) << edit->objectName().toStdString();
    }
}

TEST(MarginsDialog, DigitsOnlyWholeTextSelectedAndEmptyBecomesZero) {
    RecordingUiService ui;
    Shown<frmMarges> marges;
    QLineEdit* links = marges.field("txtLinks");
    QLineEdit* boven = marges.field("txtBoven");
    ASSERT_NE(links, nullptr);
    links->setText("25");
    focus(links);
    EXPECT_EQ(links->selectedText(), "25");
    QTest::keyClicks(links, "1,5-");
    EXPECT_EQ(links->text(), "15");
    EXPECT_EQ(ui.sounds.size(), 2);
    QTest::keyClick(links, Qt::Key_Backspace);
    QTest::keyClick(links, Qt::Key_Backspace);
    focus(boven);
    EXPECT_EQ(links->text(), "0");
    EXPECT_TRUE(ui.messages.isEmpty());
}

}  // namespace

namespace {

// The real screen driven by its controller: every way of closing it cancels once, and the
// controller's closing leaves no second report.
class SettingsScreenClose : public testing::TestWithParam<const char*> {
protected:
    TestDatabase database;
    RecordingUiService ui;
    QtSettingsViews qtViews;
    ScopedViews<SettingsViewFactory> installed{&qtViews};
    clsContrInstellingen controller{{[](qint32, qint16) {}, [] {}, [] {}}};
};

TEST_P(SettingsScreenClose, CancelsOnceAndSavesNothing) {
    QSignalSpy sluit(&controller, &clsContrInstellingen::SluitInstellingen);
    controller.StartInstellingen();
    frmInstellingen* screen = nullptr;
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (auto* found = qobject_cast<frmInstellingen*>(top); found && found->isVisible()) {
            screen = found;
        }
    }
    ASSERT_NE(screen, nullptr);
    screen->findChild<QLineEdit*>("txtBedrijfsnaam")->setText("Niet bewaren");

    const QString how = GetParam();
    if (how == "escape") {
        QTest::keyClick(screen, Qt::Key_Escape);
    } else if (how == "close box") {
        screen->QDialog::close();
    } else {
        screen->findChild<QPushButton*>("cmdAnnuleren")->click();
    }

    EXPECT_EQ(sluit.count(), 1);
    EXPECT_FALSE(screen->isVisible());
    EXPECT_EQ(database.scalar("SELECT Bedrijfsnaam FROM Instellingen").toString(), "");
    EXPECT_TRUE(ui.messages.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Ways, SettingsScreenClose,
                         testing::Values("escape", "close box", "Annuleren"), [](const auto& info) {
                             return QString(info.param).replace(' ', '_').toStdString();
                         });

}  // namespace
