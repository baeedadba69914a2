#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsControllerKlant.h"
#include "platform/clsHelp.h"
#include "views/ListGrid.h"
#include "views/QtCustomerViews.h"
#include "views/QtViews.h"
#include "views/frmKlant.h"
#include "views/frmKlantBewerken.h"

namespace {

// The program's own screens, with a hold on the last of each to play the user's part.
struct Screens : QtCustomerViews {
    frmKlant* list = nullptr;
    frmKlantBewerken* edit = nullptr;
    ScopedViews<CustomerViewFactory> installed{this};

    std::unique_ptr<IKlantView> createKlantList() override {
        auto made = QtCustomerViews::createKlantList();
        list = static_cast<frmKlant*>(made.get());
        return made;
    }
    std::unique_ptr<IKlantBewerkenView> createKlantBewerken() override {
        auto made = QtCustomerViews::createKlantBewerken();
        edit = static_cast<frmKlantBewerken*>(made.get());
        return made;
    }
};

class CustomerScreenTest : public testing::Test {
protected:
    CustomerScreenTest() {
        for (const char* name : {"Akkerbouw", "Bloemist", "Cafetaria", "Drukkerij", "Expeditie"}) {
            database.exec(QString("INSERT INTO Klant (DebiteurNummer, Bedrijfsnaam, Voorletters, "
                                  "Tussenvoegsel, Achternaam, Zichtbaar, BTW, Dhr) VALUES "
                                  "(0, '%1', 'K.', '', 'Klant', 1, %2, 1)")
                              .arg(name)
                              .arg(QString(name) == "Bloemist" ? 1 : 0));
        }
    }

    void start(bool selecting) {
        controller.StartKlanten(selecting);
        ASSERT_NE(screens.list, nullptr);
        screens.list->resize(700, 460);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(screens.list));
    }
    template <class Widget = QWidget>
    Widget* child(QWidget* screen, const char* name) const {
        auto* found = screen->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    ListGrid& grid() const { return screens.list->grid(); }
    QPoint cell(int row) const {
        return grid().visualRect(grid().model()->index(row - 1, 0)).center();
    }
    QStringList column(const QString& sql) const {
        QStringList names;
        const QString joined = database
                                   .scalar(
                                       "SELECT group_concat(Bedrijfsnaam, ',') FROM "
                                       "(SELECT Bedrijfsnaam FROM Klant WHERE " +
                                       sql + " ORDER BY Bedrijfsnaam)")
                                   .toString();
        return joined.isEmpty() ? names : joined.split(',');
    }

    TestDatabase database;
    RecordingUiService ui;
    Screens screens;
    clsControllerKlant controller;
};

TEST_F(CustomerScreenTest, ListShowsTheCustomersWithTheVatMarkCentred) {
    start(false);
    ASSERT_EQ(grid().rows(), 6);
    ASSERT_EQ(grid().cols(), 7);
    EXPECT_EQ(grid().textMatrix(0, 6), "0% btw");
    EXPECT_EQ(grid().textMatrix(2, 0), "Bloemist");
    EXPECT_EQ(grid().textMatrix(2, 1), "Dhr. K.  Klant");
    EXPECT_EQ(grid().textMatrix(2, 6), "<JA>");
    EXPECT_EQ(grid().textMatrix(1, 6), "");
    EXPECT_EQ(grid().colAlignment(6), Qt::Alignment(Qt::AlignCenter));
    EXPECT_EQ(grid().colAlignment(0), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(CustomerScreenTest, EachModeShowsItsButtons) {
    for (const bool selecting : {true, false}) {
        start(selecting);
        QWidget* list = screens.list;
        EXPECT_EQ(child<QLabel>(list, "lblTitel")->text(),
                  selecting ? "Selecteer een klant" : "Klanten");
        for (const char* management : {"cmdNieuw", "cmdBewerk", "cmdVerwijder"}) {
            EXPECT_EQ(child(list, management)->isVisible(), !selecting) << management;
        }
        EXPECT_EQ(child(list, "cmdAnnuleren")->isVisible(), selecting);
        EXPECT_TRUE(child(list, "cmdOK")->isVisible());
        QWidget* envelope = child(list, "cmdAfdrukkenEnveloppe");
        EXPECT_TRUE(envelope->isVisible());
        EXPECT_TRUE(envelope->isEnabled());
    }
}

struct DragCase {
    const char* name;
    int press, release;
};

class CustomerRangeDeleteTest : public CustomerScreenTest,
                                public testing::WithParamInterface<DragCase> {};

// Whichever way the user drags over rows 2 to 4, the same three customers go.
TEST_P(CustomerRangeDeleteTest, DeletesTheRowsDraggedOver) {
    start(false);
    QWidget* hand = grid().viewport();
    QTest::mousePress(hand, Qt::LeftButton, {}, cell(GetParam().press));
    QTest::mouseMove(hand, cell(GetParam().release));
    QTest::mouseRelease(hand, Qt::LeftButton, {}, cell(GetParam().release));
    ui.answers.enqueue(ui::Answer::Yes);
    QTest::mouseClick(child<QAbstractButton>(screens.list, "cmdVerwijder"), Qt::LeftButton);

    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text,
              "Weet u zeker dat u de geselecteerde klanten wilt verwijderen?");
    EXPECT_EQ(column("Zichtbaar=1"), QStringList({"Akkerbouw", "Expeditie"}));
    EXPECT_EQ(database
                  .scalar("SELECT COUNT(*) FROM Klant WHERE Zichtbaar=0 AND "
                          "Bedrijfsnaam=''")
                  .toInt(),
              3);
    EXPECT_EQ(grid().rows(), 3);
}

INSTANTIATE_TEST_SUITE_P(Ways, CustomerRangeDeleteTest,
                         testing::Values(DragCase{"TopDown", 2, 4}, DragCase{"BottomUp", 4, 2}),
                         [](const auto& info) { return std::string(info.param.name); });

struct CloseCase {
    const char* name;
    std::function<void(frmKlant&)> act;
    bool cancelled;
};

class CustomerChoiceTest : public CustomerScreenTest,
                           public testing::WithParamInterface<CloseCase> {};

TEST_P(CustomerChoiceTest, ClosesTheChoiceAsTheUserMeantIt) {
    start(true);
    grid().setCurrentRow(3);
    QSignalSpy closing(&controller, &clsControllerKlant::SluitKlant);
    GetParam().act(*screens.list);
    ASSERT_EQ(closing.count(), 1);
    EXPECT_EQ(closing.first().first().toBool(), GetParam().cancelled);
    EXPECT_FALSE(screens.list->isVisible());
    ASSERT_TRUE(controller.GeselecteerdeKlant());
    EXPECT_EQ(controller.GeselecteerdeKlant()->Bedrijfsnaam(), "Cafetaria");
    EXPECT_TRUE(ui.messages.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Ways, CustomerChoiceTest,
    testing::Values(
        CloseCase{"CloseBox", [](frmKlant& list) { list.QWidget::close(); }, true},
        CloseCase{"Escape", [](frmKlant& list) { QTest::keyClick(&list.grid(), Qt::Key_Escape); },
                  true},
        CloseCase{"Enter", [](frmKlant& list) { QTest::keyClick(&list.grid(), Qt::Key_Return); },
                  false},
        CloseCase{"DoubleClick",
                  [](frmKlant& list) {
                      ListGrid& grid = list.grid();
                      const QPoint at = grid.visualRect(grid.model()->index(2, 0)).center();
                      QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, at);
                  },
                  false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(CustomerScreenTest, EditScreenSavesWithEnterAndCancelsWithEscape) {
    start(false);
    grid().setCurrentRow(4);
    QTest::mouseClick(child<QAbstractButton>(screens.list, "cmdBewerk"), Qt::LeftButton);
    frmKlantBewerken* edit = screens.edit;
    ASSERT_NE(edit, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(edit));
    EXPECT_EQ(edit->windowTitle(), "Bewerken klant");
    auto* name = child<QLineEdit>(edit, "txtBedrijfsnaam");
    EXPECT_EQ(name->text(), "Drukkerij");
    EXPECT_TRUE(child<QRadioButton>(edit, "optDhr")->isChecked());

    // Every field has its label as buddy and a name for assistive tools.
    QList<QWidget*> buddies;
    for (QLabel* label : edit->findChildren<QLabel*>()) {
        buddies << label->buddy();
    }
    for (QLineEdit* field : edit->findChildren<QLineEdit*>()) {
        EXPECT_TRUE(buddies.contains(field)) << field->objectName().toStdString();
        EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
    }

    name->setFocus();
    name->setText("Drukkerij De Pers");
    QTest::keyClick(name, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(column("Zichtbaar=1").count("Drukkerij De Pers"), 1);
    EXPECT_EQ(column("Zichtbaar=0"), QStringList({"Drukkerij"}));
    EXPECT_EQ(grid().rows(), 6);

    QTest::mouseClick(child<QAbstractButton>(screens.list, "cmdNieuw"), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(screens.edit));
    EXPECT_EQ(screens.edit->windowTitle(), "Nieuwe klant");
    child<QLineEdit>(screens.edit, "txtBedrijfsnaam")->setText("Niet bewaard");
    QTest::keyClick(screens.edit, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(database.scalar("SELECT COUNT(*) FROM Klant").toInt(), 6);
    EXPECT_EQ(controller.editController(), nullptr);
}

TEST_F(CustomerScreenTest, F1OpensTheCustomerPageAndPrintingAsksForAPrinter) {
    for (const char* name : {"Lindebrug.qch", "Lindebrug.qhc"}) {
        QFile(database.file(name)).open(QIODevice::WriteOnly);
    }
    start(false);
    QTest::keyClick(&grid(), Qt::Key_F1);
    grid().setCurrentRow(1);
    QTest::mouseClick(child<QAbstractButton>(screens.list, "cmdBewerk"), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(screens.edit));
    QTest::keyClick(child<QLineEdit>(screens.edit, "txtPlaats"), Qt::Key_F1);
    ASSERT_EQ(ui.startedPrograms.size(), 2);
    for (const QStringList& started : ui.startedPrograms) {
        EXPECT_EQ(started.last(), clsHelp::pageUrl("klanten.htm"));
    }

    QTest::keyClick(screens.edit, Qt::Key_Escape);
    QTest::mouseClick(child<QAbstractButton>(screens.list, "cmdAfdrukken"), Qt::LeftButton);
    EXPECT_EQ(ui.printerDialogs, 1) << "the user chooses the printer; cancelled, nothing printed";
}

}  // namespace
