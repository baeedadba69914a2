#include <gtest/gtest.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <QTimer>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsControllerFacturen.h"
#include "views/ListGrid.h"
#include "views/frmFacturen.h"
#include "views/frmFactuurBewerken.h"
#include "views/frmSelecteerDatum.h"

namespace {

template <class T>
T& child(QWidget& form, const char* name) {
    T* found = form.findChild<T*>(QString::fromLatin1(name));
    if (!found) {
        throw std::runtime_error(std::string("no control ") + name);
    }
    return *found;
}

class EditorFormTest : public testing::Test {
protected:
    EditorFormTest() {
        form.show();
        QApplication::setActiveWindow(&form);
        nummer.setFocus(Qt::OtherFocusReason);
    }

    RecordingUiService ui;
    frmFactuurBewerken form;
    QLineEdit& nummer = child<QLineEdit>(form, "txtNummer");
    QLineEdit& datum = child<QLineEdit>(form, "txtDatum");
};

struct Typing {
    const char* before;
    const char* keys;
    const char* after;
};

class NummerKeyTest : public EditorFormTest, public testing::WithParamInterface<Typing> {};

// Only digits reach the number; backspace still erases.
TEST_P(NummerKeyTest, TakesDigitsOnly) {
    nummer.setText(GetParam().before);
    nummer.end(false);
    QTest::keyClicks(&nummer, GetParam().keys);
    EXPECT_EQ(nummer.text(), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Keys, NummerKeyTest,
                         testing::Values(Typing{"", "12a3", "123"}, Typing{"7", "-,.5 x", "75"},
                                         Typing{"", "1e9+", "19"}));

TEST_F(EditorFormTest, BackspaceErasesInTheNumber) {
    nummer.setText("456");
    nummer.end(false);
    QTest::keyClick(&nummer, Qt::Key_Backspace);
    EXPECT_EQ(nummer.text(), "45");
}

// Leaving the number empty is refused: the message, the text selected, the focus kept;
// a number, or leaving for Annuleren, passes.
TEST_F(EditorFormTest, LeavingANumberThatIsNotNumericIsRefused) {
    struct Case {
        QString text;
        const char* next;
        bool refused;
    };
    for (const Case& c : {Case{"", "txtDatum", true}, Case{"0012", "txtDatum", false},
                          Case{"", "cmdAnnuleren", false}}) {
        ui.messages.clear();
        nummer.setText(c.text);
        nummer.setFocus(Qt::OtherFocusReason);
        QWidget& next = child<QWidget>(form, c.next);
        next.setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
        if (c.refused) {
            ASSERT_EQ(ui.messages.size(), 1);
            EXPECT_EQ(ui.lastMessage().text, "Ongeldige waarde ingevoerd");
            EXPECT_EQ(ui.lastMessage().caption, "Factuurnummer");
            EXPECT_EQ(ui.lastMessage().icon, ui::Icon::Exclamation);
            EXPECT_TRUE(nummer.hasFocus());
        } else {
            EXPECT_TRUE(ui.messages.isEmpty()) << c.next;
            EXPECT_TRUE(next.hasFocus());
        }
    }
}

struct Picking {
    const char* typed;
    QDate shownAt;  // the day the calendar opens at
    QDate picked;
    bool confirmed;
    const char* result;
};

class DatePickerTest : public EditorFormTest, public testing::WithParamInterface<Picking> {};

// The calendar opens at the date typed; OK writes the chosen day as dd-mm-yyyy, Annuleren
// leaves the field alone.
TEST_P(DatePickerTest, WritesThePickedDateOnlyOnOk) {
    const Picking& p = GetParam();
    datum.setText(p.typed);
    QDate openedAt;
    QTimer::singleShot(0, [&] {
        auto* picker = qobject_cast<frmSelecteerDatum*>(QApplication::activeModalWidget());
        ASSERT_NE(picker, nullptr);
        auto& calendar = child<QCalendarWidget>(*picker, "calDatum");
        openedAt = calendar.selectedDate();
        calendar.setSelectedDate(p.picked);
        child<QPushButton>(*picker, p.confirmed ? "cmdOK" : "cmdAnnuleren").click();
    });
    child<QPushButton>(form, "cmdSelecteerDatum").click();
    EXPECT_EQ(openedAt, p.shownAt);
    EXPECT_EQ(datum.text(), p.result);
}

INSTANTIATE_TEST_SUITE_P(Dates, DatePickerTest,
                         testing::Values(Picking{"15-03-2026", QDate(2026, 3, 15),
                                                 QDate(2026, 4, 2), true, "02-04-2026"},
                                         Picking{"15-03-2026", QDate(2026, 3, 15),
                                                 QDate(2026, 4, 2), false, "15-03-2026"},
                                         Picking{"geen datum", QDate::currentDate(),
                                                 QDate(2025, 12, 31), true, "31-12-2025"}));

struct Drag {
    int from, to;
};

class InvoiceListSelectionTest : public testing::TestWithParam<Drag> {};

// Dragging down from row 2 to 4 or up from 4 to 2 selects the same invoices, lowest first.
TEST_P(InvoiceListSelectionTest, EitherDirectionGivesTheSameInvoices) {
    frmFacturen form;
    form.beginFill({"Factuurnummer", "Klantnaam", "Datum", "Totaal prijs"});
    for (const qint32 key : {41, 42, 43, 44, 45}) {
        form.addRow(QString("%1\tKlant\t01-01-2026\t€ 1,00").arg(key), key);
    }
    form.endFill();
    auto& grid = child<ListGrid>(form, "fgrFacturen");
    grid.setCurrentRow(GetParam().from);
    grid.setSelectionEndRow(GetParam().to);
    EXPECT_EQ(form.selectedIDs(), QList<qint32>({42, 43, 44}));
    EXPECT_EQ(form.currentID(), GetParam().from == 2 ? 42 : 44);
}

INSTANTIATE_TEST_SUITE_P(Drags, InvoiceListSelectionTest, testing::Values(Drag{2, 4}, Drag{4, 2}));

TEST(InvoiceListForm, AnEmptyListHasNoSelection) {
    frmFacturen form;
    form.beginFill({"Factuurnummer", "Klantnaam", "Datum", "Totaal prijs"});
    form.endFill();
    EXPECT_TRUE(form.selectedIDs().isEmpty());
    EXPECT_FALSE(form.currentID().has_value());
}

// Every control carries its name and an accessible name, and every field its label.
TEST(InvoiceForms, ControlsAreNamedAndLabelled) {
    frmFactuurBewerken editor;
    frmFacturen list;
    for (QWidget* form : {static_cast<QWidget*>(&editor), static_cast<QWidget*>(&list)}) {
        for (QWidget* control : form->findChildren<QWidget*>()) {
            if (qobject_cast<QPushButton*>(control) || qobject_cast<QLineEdit*>(control) ||
                qobject_cast<ListGrid*>(control)) {
                EXPECT_FALSE(control->accessibleName().isEmpty())
                    << control->objectName().toStdString();
            }
        }
    }
    EXPECT_EQ(child<QLabel>(editor, "lblNummer").buddy(), &child<QLineEdit>(editor, "txtNummer"));
    EXPECT_EQ(child<QLabel>(editor, "lblDatum").buddy(), &child<QLineEdit>(editor, "txtDatum"));
    EXPECT_EQ(child<QLabel>(list, "lblZoek").buddy(), &child<QLineEdit>(list, "txtZoek"));
}

// A 1280 x 800 screen at 200 % leaves a screen in the frame about 620 x 330: the editor keeps
// its buttons in sight and whole dates, and its form scrolls to every field, button and total.
TEST(InvoiceForms, TheEditorFitsTheFrameAtTwiceTheSize) {
    frmFactuurBewerken editor;
    editor.setNummer("1000000000");
    editor.setDatum("22-11-2026");
    editor.setKlant(
        {"Bakkerij De Linde", "Dhr. J. van Dijk", "Kerkstraat 12", "3511 AB Utrecht", "Nederland"});
    editor.setTotalen({{"Totaal excl. BTW", "€ 12.280,55"},
                       {"BTW 21%", "€ 2.558,92"},
                       {"BTW 9%", "€ 1,00"},
                       {"Totaal incl. BTW", "€ 14.840,47"}});
    editor.show();
    editor.resize(620, 330);
    QApplication::processEvents();
    EXPECT_EQ(editor.size(), QSize(620, 330));
    for (const char* name : {"cmdOK", "cmdAnnuleren"}) {
        QWidget& button = child<QWidget>(editor, name);
        EXPECT_TRUE(editor.rect().contains(QRect(button.mapTo(&editor, QPoint()), button.size())))
            << name;
    }
    auto& form = child<QScrollArea>(editor, "scrFactuur");
    for (const char* name :
         {"txtNummer", "txtDatum", "cmdSelecteerDatum", "lblKlant", "cmdKlantZoeken",
          "fgrArtikelen", "cmdNieuw", "cmdBewerk", "cmdVerwijder", "lblTotaal0", "lblTotaal3"}) {
        QWidget& control = child<QWidget>(editor, name);
        form.ensureWidgetVisible(&control, 0, 0);
        const QRect shown(control.mapTo(form.viewport(), QPoint()), control.size());
        EXPECT_TRUE(form.viewport()->rect().contains(shown)) << name;
    }
    for (const char* name : {"txtNummer", "txtDatum"}) {
        auto& field = child<QLineEdit>(editor, name);
        EXPECT_GT(field.width(), field.fontMetrics().horizontalAdvance(field.text())) << name;
    }
}

// The list as its controller made it, through the program's own factory for it.
struct ListOnly : InvoiceViewFactory {
    frmFacturen* list = nullptr;
    ScopedViews<InvoiceViewFactory> installed{this};
    std::unique_ptr<IFacturenView> createFacturen() override {
        auto made = std::make_unique<frmFacturen>();
        list = made.get();
        return made;
    }
    std::unique_ptr<IFactuurBewerkenView> createFactuurBewerken() override { return nullptr; }
};

// "E-factuur (UBL)" sits after Tonen in the tab order and hands the invoices selected by
// dragging upwards to the export in row order. The keys are of no stored invoice, so the
// export's refusal names them in the order it got them.
TEST(InvoiceListForm, TheEInvoiceButtonForwardsTheSelectedInvoices) {
    TestDatabase database;
    database.exec(
        "UPDATE Instellingen SET Bedrijfsnaam='De Linde B.V.', Adres='Kerkstraat 1', "
        "Postcode='3511 AB', Plaats='Utrecht', Banknummer='NL91ABNA0417164300', "
        "BTWNummer='NL001234567B01', KVKNummer='12345678'");
    RecordingUiService ui;
    ListOnly screens;
    clsControllerFacturen controller;
    controller.StartFacturen();
    ASSERT_NE(screens.list, nullptr);
    frmFacturen& form = *screens.list;
    auto& button = child<QPushButton>(form, "cmdEFactuur");
    EXPECT_EQ(button.text(), "&E-factuur (UBL)");
    EXPECT_FALSE(button.accessibleName().isEmpty());
    EXPECT_EQ(child<QPushButton>(form, "cmdToon").nextInFocusChain(), &button);

    form.beginFill({"Factuurnummer", "Klantnaam", "Datum", "Totaal prijs"});
    for (const qint32 key : {41, 42, 43, 44, 45}) {
        form.addRow(QString("%1\tKlant\t01-01-2026\t€ 1,00").arg(key), key);
    }
    form.endFill();
    auto& grid = child<ListGrid>(form, "fgrFacturen");
    grid.setCurrentRow(4);
    grid.setSelectionEndRow(2);
    button.click();
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().text,
              "Er zijn geen e-facturen gemaakt.\r\n"
              "De factuur met sleutel 42 bestaat niet meer.\r\n"
              "De factuur met sleutel 43 bestaat niet meer.\r\n"
              "De factuur met sleutel 44 bestaat niet meer.");
    EXPECT_EQ(ui.lastMessage().caption, "E-factuur (UBL)");
    EXPECT_TRUE(ui.folderPrompts.isEmpty());
}

}  // namespace
