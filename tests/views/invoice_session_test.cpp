#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/RegisterController.h"
#include "views/ListGrid.h"
#include "views/QtViews.h"
#include "views/frmBewerkRegel.h"
#include "views/frmFactuur.h"

namespace {

// Messages as the program shows them: a box with a loop of its own, which runs whatever
// the program queued before it, while the code that asked is still on the stack.
struct ModalMessages : RecordingUiService {
    ui::Answer message(const ui::Message& shown) override {
        const ui::Answer answer = RecordingUiService::message(shown);
        QEventLoop box;
        QTimer::singleShot(0, &box, &QEventLoop::quit);
        box.exec();
        return answer;
    }
};

// A user's session with the invoice screens in the real frame: every screen is the
// program's own, reached only through its buttons, grids and fields.
class InvoiceSessionTest : public testing::Test {
protected:
    InvoiceSessionTest() {
        database.linkStockDatabase();
        database.exec(
            "INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad, Prijs, "
            "NegVoorToestaan, BTWTarief, Zichtbaar, GeenVoorraad) VALUES ('S1', 'Schroef', "
            "'stuk', 10, 12500, 0, 1, 1, 0)");
        database.exec(
            "INSERT INTO Klant (Bedrijfsnaam, Voorletters, Achternaam, Adres, Postcode, Plaats, "
            "Land, Zichtbaar, BTW, Dhr) VALUES ('Bakkerij De Linde', 'J.', 'Jansen', "
            "'Kerkstraat 1', '1234 AB', 'Utrecht', 'Nederland', 1, 0, 1)");
        installQtViews();
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        startedUp = window.startUp();
        window.show();
    }

    // The visible screen of that name in the frame.
    QWidget& screen(const char* name) const {
        for (QMdiSubWindow* sub : window.findChild<QMdiArea*>("mdiSchermen")->subWindowList()) {
            if (sub->isVisible() && sub->widget() && sub->widget()->objectName() == name) {
                return *sub->widget();
            }
        }
        throw std::runtime_error(std::string("no open screen ") + name);
    }
    template <class T = QPushButton>
    static T& child(QWidget& form, const char* name) {
        T* found = form.findChild<T*>(QString::fromLatin1(name));
        if (!found) {
            throw std::runtime_error(std::string("no control ") + name);
        }
        return *found;
    }
    static void click(QWidget& form, const char* button) {
        QTest::mouseClick(&child(form, button), Qt::LeftButton);
    }
    // A double click on the first row of a screen's grid, as the user picks or opens it.
    static void doubleClickFirstRow(QWidget& form, const char* gridName) {
        auto& grid = child<ListGrid>(form, gridName);
        grid.setCurrentRow(1);
        QWidget* cells = grid.viewport();
        const QRect row = grid.visualRect(grid.model()->index(0, 0));
        QTest::mouseDClick(cells, Qt::LeftButton, {}, row.center());
    }
    // Control back in the program's event loop: what waited for it has run.
    static void backInTheLoop() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // The line dialog, as soon as it is up: the quantity typed, then OK.
    static void answerLineDialog(const QString& aantal) {
        QTimer::singleShot(0, [aantal] {
            auto* dialog = qobject_cast<frmBewerkRegel*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            auto& field = child<QLineEdit>(*dialog, "txtAantal");
            field.selectAll();
            QTest::keyClicks(&field, aantal);
            QTest::keyClick(&field, Qt::Key_Return);
        });
    }
    qint64 stored(const QString& sql) const { return database.scalar(sql).toLongLong(); }

    TestDatabase database;
    ModalMessages ui;
    frmFactuur window{ShellServices{createProgramRegister, [] { return false; }}};
    bool startedUp = false;
};

// New invoice with a customer and a line, saved; reopened from the list, the line's quantity
// changed in the line dialog, saved again: stored as changed, stock moved by the difference.
TEST_F(InvoiceSessionTest, ReopenChangeALineAndSave) {
    ASSERT_TRUE(startedUp);
    window.findChild<QAction*>("tlFacturerenArtikelen")->trigger();
    QWidget& list = screen("frmFacturen");

    click(list, "cmdNieuw");
    QWidget& editor = screen("frmFactuurBewerken");
    click(editor, "cmdKlantZoeken");
    doubleClickFirstRow(screen("frmKlant"), "fgrKlanten");
    backInTheLoop();
    click(editor, "cmdKlantZoeken");
    doubleClickFirstRow(screen("frmKlant"), "fgrKlanten");
    backInTheLoop();
    click(editor, "cmdNieuw");
    QWidget& picker = screen("frmArtikel");
    child<QLineEdit>(picker, "txtAantal").setText("2");
    doubleClickFirstRow(picker, "fgrArtikelen");
    backInTheLoop();
    click(editor, "cmdOK");
    backInTheLoop();
    ASSERT_EQ(stored("SELECT Aantal FROM ArtikelPerFactuur"), 2);
    EXPECT_EQ(stored("SELECT Voorraad FROM Artikel"), 8);

    doubleClickFirstRow(list, "fgrFacturen");
    QWidget& reopened = screen("frmFactuurBewerken");
    answerLineDialog("5");
    doubleClickFirstRow(reopened, "fgrArtikelen");
    EXPECT_EQ(stored("SELECT Voorraad FROM Artikel"), 5);
    click(reopened, "cmdOK");
    backInTheLoop();

    EXPECT_EQ(stored("SELECT Aantal FROM ArtikelPerFactuur"), 5);
    EXPECT_EQ(stored("SELECT COUNT(*) FROM Factuur"), 1);
    EXPECT_THROW(screen("frmFactuurBewerken"), std::runtime_error);
    EXPECT_TRUE(ui.messages.isEmpty()) << ui.lastMessage().text.toStdString();
}

// The number emptied, then Escape and Ja: the editor closes, and the number's check on
// leaving still complains in its box after the close, with the editor's screen under it.
TEST_F(InvoiceSessionTest, CancelWithAnEmptiedNumber) {
    ASSERT_TRUE(startedUp);
    window.findChild<QAction*>("tlFacturerenArtikelen")->trigger();
    click(screen("frmFacturen"), "cmdNieuw");
    QWidget& editor = screen("frmFactuurBewerken");
    QApplication::setActiveWindow(&window);
    auto& nummer = child<QLineEdit>(editor, "txtNummer");
    nummer.setFocus(Qt::OtherFocusReason);
    nummer.clear();
    ui.answers.enqueue(ui::Answer::Yes);
    // The key comes in through the program's loop, which then goes on to what was queued.
    QEventLoop program;
    QTimer::singleShot(0, [&] {
        QTest::keyClick(&nummer, Qt::Key_Escape);
        QTimer::singleShot(0, &program, &QEventLoop::quit);
    });
    program.exec();
    backInTheLoop();
    ASSERT_FALSE(ui.messages.isEmpty());
    EXPECT_EQ(ui.messages.first().caption, "Factuur sluiten");
    EXPECT_EQ(ui.lastMessage().text, "Ongeldige waarde ingevoerd");
    EXPECT_THROW(screen("frmFactuurBewerken"), std::runtime_error);
}

}  // namespace
