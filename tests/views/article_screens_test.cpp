#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrArtikelBewerken.h"
#include "controllers/clsControllerArtikel.h"
#include "grid_qstring.h"
#include "platform/clsHelp.h"
#include "records/clsObjArtikelPerFactuur.h"
#include "views/ListGrid.h"
#include "views/QtViews.h"
#include "views/frmArtikel.h"
#include "views/frmArtikelBewerken.h"
#include "views/frmBewerkRegel.h"

namespace {

// The real screens on a real database, driven through the keyboard and the mouse.
class ArticleScreenTest : public testing::Test {
protected:
    ArticleScreenTest() {
        installQtViews();
        database.linkStockDatabase();
        for (int i = 1; i <= 5; ++i) {
            database.exec(QString("INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad, "
                                  "Prijs, BTWTarief, Zichtbaar) VALUES ('%1', 'Artikel %1', "
                                  "'stuk', 10, 10000, 1, 1)")
                              .arg(i));
        }
    }

    template <class T = QWidget>
    static T* find(const char* name) {
        for (QWidget* top : QApplication::topLevelWidgets()) {
            if (top->objectName() == name && qobject_cast<T*>(top)) {
                return qobject_cast<T*>(top);
            }
            if (T* child = top->findChild<T*>(name); child && child->isVisible()) {
                return child;
            }
        }
        return nullptr;
    }
    static void focus(QWidget* widget) {
        QApplication::setActiveWindow(widget->window());
        widget->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
    }
    // Leaves the field for the next control, as Tab does, and lets the check run.
    static void leave(QWidget* next) {
        next->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        QApplication::processEvents();
    }
    frmArtikelBewerken& openNewArticle() {
        controller.StartArtikelen(false);
        controller.NieuwArtikel();
        auto* edit = find<frmArtikelBewerken>("frmArtikelBewerken");
        EXPECT_NE(edit, nullptr);
        return *edit;
    }
    int visibleArticles() const {
        return database.scalar("SELECT COUNT(*) FROM Artikel WHERE Zichtbaar=1").toInt();
    }

    TestDatabase database;
    RecordingUiService ui;
    clsControllerArtikel controller;
};

TEST_F(ArticleScreenTest, TheNumberFieldTakesDigitsOnlyAndRefusesBackspaceWithABeep) {
    frmArtikelBewerken& edit = openNewArticle();
    auto* txtNummer = edit.findChild<QLineEdit*>("txtNummer");
    EXPECT_EQ(txtNummer->text(), "6");
    focus(txtNummer);
    txtNummer->end(false);
    QTest::keyClicks(txtNummer, "1a2");
    QTest::keyClick(txtNummer, Qt::Key_Backspace);
    QTest::keyClick(txtNummer, Qt::Key_Minus);
    EXPECT_EQ(txtNummer->text(), "612");
    EXPECT_EQ(ui.sounds, QStringList(3, "Beep"));

    txtNummer->selectAll();
    QTest::keyClicks(txtNummer, "7");
    EXPECT_EQ(txtNummer->text(), "7") << "a wrong digit is typed over";
}

TEST_F(ArticleScreenTest, ThePriceTakesCommaAndPointAndIsReshownInTwoDecimals) {
    frmArtikelBewerken& edit = openNewArticle();
    auto* txtPrijs = edit.findChild<QLineEdit*>("txtPrijs");
    focus(txtPrijs);
    txtPrijs->clear();
    QTest::keyClicks(txtPrijs, "12,5x");
    EXPECT_EQ(txtPrijs->text(), "12,5");
    QTest::keyClick(txtPrijs, Qt::Key_Backspace);
    QTest::keyClicks(txtPrijs, ".");
    EXPECT_EQ(txtPrijs->text(), "12,.");
    EXPECT_EQ(ui.sounds, QStringList{"Beep"});

    // The point groups thousands in the Dutch notation, as the manual warns.
    for (const auto& [typed, shown] :
         {std::pair<QString, QString>{"12,5", "12,50"}, {"1.250", "1250,00"}, {"0,125", "0,13"}}) {
        focus(txtPrijs);
        txtPrijs->setText(typed);
        leave(edit.findChild<QWidget*>("txtOmschrijving"));
        EXPECT_EQ(txtPrijs->text(), shown) << typed.toStdString();
    }
    EXPECT_TRUE(ui.messages.isEmpty());
    focus(txtPrijs);
    txtPrijs->setText("12.50");
    leave(edit.findChild<QWidget*>("txtOmschrijving"));
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text, "Ongeldige waarde voor prijs ingevuld");
}

// Each field that checks its value on leaving keeps the focus on a wrong value.
TEST_F(ArticleScreenTest, LeavingANonNumericFieldKeepsTheFocusWithItsMessage) {
    struct Case {
        const char* field;
        QString text, caption;
    };
    const Case cases[] = {
        {"txtNummer", "Het programma verwacht hier alleen cijfers!", "Ongeldige waarde"},
        {"txtPrijs", "Ongeldige waarde voor prijs ingevuld", "Ongeldige waarde"}};
    frmArtikelBewerken& edit = openNewArticle();
    auto* other = edit.findChild<QWidget*>("txtEenheid");
    for (const Case& c : cases) {
        auto* field = edit.findChild<QLineEdit*>(c.field);
        focus(field);
        field->setText("1,2,3x");
        leave(other);
        ASSERT_FALSE(ui.messages.isEmpty()) << c.field;
        EXPECT_EQ(ui.lastMessage().text, c.text);
        EXPECT_EQ(ui.lastMessage().caption, c.caption);
        EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Exclamation);
        EXPECT_TRUE(field->hasFocus()) << c.field;
        EXPECT_EQ(field->selectedText(), "1,2,3x");
        field->setText("4");
        leave(other);
    }

    // Cancelling with a wrong value left behind asks nothing.
    const int before = ui.messages.size();
    auto* txtPrijs = edit.findChild<QLineEdit*>("txtPrijs");
    focus(txtPrijs);
    txtPrijs->setText("zeven");
    leave(edit.findChild<QPushButton*>("cmdAnnuleren"));
    EXPECT_EQ(ui.messages.size(), before);
}

TEST_F(ArticleScreenTest, AnEditSavedFromTheFormIsANewRowAndTheVatLabelFollowsTheClass) {
    frmArtikelBewerken& edit = openNewArticle();
    auto* percentage = edit.findChild<QLabel*>("lblPercentage");
    EXPECT_EQ(percentage->text(), "(0 %)");
    auto* tarief = edit.findChild<QComboBox*>("cmbBTWTarief");
    tarief->setCurrentIndex(tarief->findData(2));
    EXPECT_EQ(percentage->text(), "(9%)");
    edit.findChild<QLineEdit*>("txtOmschrijving")->setText("Nieuw artikel");
    QTest::keyClick(&edit, Qt::Key_Return);  // cmdOK is the default button
    QApplication::processEvents();
    EXPECT_EQ(visibleArticles(), 6);
    EXPECT_EQ(database.scalar("SELECT BTWTarief FROM Artikel WHERE Nummer='6'").toInt(), 2);
}

TEST_F(ArticleScreenTest, EscapeCancelsTheEditScreenWithoutSaving) {
    frmArtikelBewerken& edit = openNewArticle();
    QPointer<frmArtikelBewerken> screen(&edit);
    QTest::keyClick(&edit, Qt::Key_Escape);
    EXPECT_FALSE(edit.isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(screen.isNull()) << "its controller let it go";
    EXPECT_EQ(visibleArticles(), 5);
}

// The same rows go whichever way the user drags over them.
TEST_F(ArticleScreenTest, ARangeDraggedUpOrDownRemovesTheSameRows) {
    for (const bool upward : {false, true}) {
        SCOPED_TRACE(upward ? "upward" : "downward");
        database.exec(
            "UPDATE Artikel SET Zichtbaar=1, Nummer=ArtikelID, Omschrijving='Artikel ' || "
            "ArtikelID");
        controller.StartArtikelen(false);
        auto* list = find<frmArtikel>("frmArtikel");
        ASSERT_NE(list, nullptr);
        list->resize(700, 400);
        auto* grid = list->findChild<ListGrid*>("fgrArtikelen");
        const auto cell = [&](int row) {
            return grid->visualRect(grid->model()->index(row - 1, 0)).center();
        };
        const int from = upward ? 4 : 2, to = upward ? 2 : 4;
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell(from));
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::ShiftModifier, cell(to));
        ui.answers.enqueue(ui::Answer::Yes);
        list->findChild<QPushButton*>("cmdVerwijder")->click();
        EXPECT_EQ(ui.lastMessage().text,
                  "Weet u zeker dat u de geselecteerde artikelen/uren wilt verwijderen?");
        EXPECT_EQ(database.scalar("SELECT group_concat(ArtikelID) FROM Artikel WHERE Zichtbaar=0")
                      .toString(),
                  "2,3,4");
        EXPECT_EQ(grid->rows(), 3);
    }
}

TEST_F(ArticleScreenTest, SelectionModeShowsQuantityAndDiscountAndEnterChooses) {
    QSignalSpy sluit(&controller, &clsControllerArtikel::SluitArtikel);
    controller.StartArtikelen(true);
    auto* list = find<frmArtikel>("frmArtikel");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->windowTitle(), "Selecteer een artikel");
    EXPECT_FALSE(list->findChild<QWidget*>("cmdNieuw")->isVisible());
    EXPECT_TRUE(list->findChild<QWidget*>("txtAantal")->isVisible());

    auto* txtKorting = list->findChild<QLineEdit*>("txtKorting");
    focus(txtKorting);
    txtKorting->setText("tien");
    leave(list->findChild<QWidget*>("txtAantal"));
    EXPECT_EQ(ui.lastMessage().text, "Ongeldige waarde ingevoerd");
    EXPECT_EQ(ui.lastMessage().caption, "Korting");
    EXPECT_TRUE(txtKorting->hasFocus());
    txtKorting->setText("15");

    auto* grid = list->findChild<ListGrid*>("fgrArtikelen");
    grid->setCurrentRow(2);
    list->findChild<QLineEdit*>("txtAantal")->setText("3");
    QTest::keyClick(list, Qt::Key_Return);
    ASSERT_EQ(sluit.size(), 1);
    EXPECT_EQ(sluit[0], QVariantList({false, 3.0, 15.0}));
    EXPECT_EQ(controller.GeselecteerdArtikel()->artikelID(), grid->rowData(2));
    EXPECT_FALSE(list->isVisible());
}

// Typing in txtZoek restarts tmrZoek; when typing pauses the list jumps to the first match,
// and cmdVerder and cmdTerug move between matches.
TEST_F(ArticleScreenTest, SearchFindsAsTypingPausesAndMovesBetweenMatches) {
    database.exec("UPDATE Artikel SET Omschrijving='Lamp ' || Nummer WHERE Nummer IN ('2', '4')");
    controller.StartArtikelen(false);
    auto* list = find<frmArtikel>("frmArtikel");
    auto* grid = list->findChild<ListGrid*>("fgrArtikelen");
    auto* tmrZoek = list->findChild<QTimer*>("tmrZoek");
    ASSERT_NE(tmrZoek, nullptr);
    QTest::keyClicks(list->findChild<QLineEdit*>("txtZoek"), "lamp");
    EXPECT_TRUE(tmrZoek->isActive());
    // Waits for the timer as long as a slow machine needs; the time itself is not tested.
    for (int wait = 0; wait < 100 && tmrZoek->isActive(); ++wait) {
        QTest::qWait(50);
    }
    EXPECT_EQ(grid->currentRow(), 4) << "after the three \"Artikel\" rows";
    EXPECT_EQ(grid->textMatrix(4, 1), "Lamp 2");
    list->findChild<QPushButton*>("cmdVerder")->click();
    EXPECT_EQ(grid->textMatrix(grid->currentRow(), 1), "Lamp 4");
    list->findChild<QPushButton*>("cmdTerug")->click();
    EXPECT_EQ(grid->textMatrix(grid->currentRow(), 1), "Lamp 2");
}

TEST_F(ArticleScreenTest, TheLineDialogFiltersKeysAndReportsCancelling) {
    frmBewerkRegel dialog;
    dialog.setAantal("2");
    auto* txtAantal = dialog.findChild<QLineEdit*>("txtAantal");
    auto* txtKorting = dialog.findChild<QLineEdit*>("txtKorting");
    dialog.show();
    focus(txtAantal);
    txtAantal->end(false);
    QTest::keyClicks(txtAantal, ",5.-");
    EXPECT_EQ(txtAantal->text(), "2,5");
    EXPECT_EQ(ui.sounds, QStringList(2, "Beep"));

    txtKorting->clear();
    focus(txtKorting);
    leave(txtAantal);
    EXPECT_EQ(txtKorting->text(), "0") << "an emptied field reads 0";

    dialog.findChild<QPushButton*>("cmdOK")->click();
    EXPECT_FALSE(dialog.Geannuleerd());
    EXPECT_EQ(dialog.Aantal(), "2,5");

    frmBewerkRegel closed;
    closed.show();
    closed.close();
    EXPECT_TRUE(closed.Geannuleerd());
}

TEST_F(ArticleScreenTest, F1OpensTheArticlePageFromTheListAndTheEditScreenAndPrintingAsks) {
    for (const char* name : {"Lindebrug.qch", "Lindebrug.qhc"}) {
        QFile(database.file(name)).open(QIODevice::WriteOnly);
    }
    frmArtikelBewerken& edit = openNewArticle();
    focus(edit.findChild<QLineEdit*>("txtOmschrijving"));
    QTest::keyClick(edit.findChild<QLineEdit*>("txtOmschrijving"), Qt::Key_F1);
    edit.hide();  // the list waits while the modal edit screen is open
    auto* list = find<frmArtikel>("frmArtikel");
    focus(list->findChild<QLineEdit*>("txtZoek"));
    QTest::keyClick(list->findChild<QLineEdit*>("txtZoek"), Qt::Key_F1);
    ASSERT_EQ(ui.startedPrograms.size(), 2);
    for (const QStringList& started : ui.startedPrograms) {
        EXPECT_EQ(started.last(), clsHelp::pageUrl("artikelen.htm"));
    }

    list->findChild<QPushButton*>("cmdAfdrukken")->click();
    EXPECT_EQ(ui.printerDialogs, 1) << "the user chooses the printer; cancelled, nothing printed";
}

}  // namespace
