#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>
#include <functional>

#include "CustomerScreens.h"
#include "LabelScreens.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"

namespace {

struct Customer {
    QString bedrijfsnaam;
    bool dhr = true;
    QString voorletters, tussenvoegsel, achternaam;
    bool btw = false;
    bool zichtbaar = true;
};

Customer company(const QString& name) {
    Customer c;
    c.bedrijfsnaam = name;
    return c;
}

class CustomerTest : public testing::Test {
protected:
    // A customer row straight into the database, with a fax and a debtor number that no
    // screen shows; its key.
    qint32 add(const Customer& c) {
        database.exec(QString("INSERT INTO Klant (DebiteurNummer, Bedrijfsnaam, Fax, Email, "
                              "Voorletters, Tussenvoegsel, Achternaam, Adres, Postcode, Plaats, "
                              "Land, Telefoon, Zichtbaar, BTW, Dhr) VALUES (4711, '%1', "
                              "'030-1234567', 'post@%1.nl', '%2', '%3', '%4', 'Lindeweg 1', "
                              "'1234 AB', 'Utrecht', 'Nederland', '030-7654321', %5, %6, %7)")
                          .arg(c.bedrijfsnaam, c.voorletters, c.tussenvoegsel, c.achternaam)
                          .arg(c.zichtbaar ? 1 : 0)
                          .arg(c.btw ? 1 : 0)
                          .arg(c.dhr ? 1 : 0));
        return database.scalar("SELECT MAX(KlantID) FROM Klant").toInt();
    }
    QVariant column(qint32 id, const QString& name) const {
        return database.scalar(QString("SELECT %1 FROM Klant WHERE KlantID=%2").arg(name).arg(id));
    }
    int count(const QString& where) const {
        return database.scalar("SELECT COUNT(*) FROM Klant WHERE " + where).toInt();
    }
    void start(bool selecting = false) {
        controller.StartKlanten(selecting);
        ASSERT_NE(screens.list, nullptr);
    }
    // The user selects the company's row, edits the company name and presses OK.
    void editName(const QString& from, const QString& to) {
        screens.list->select(screens.list->rowOf(from), screens.list->rowOf(from));
        controller.BewerkenKlant();
        ASSERT_NE(screens.edit, nullptr);
        screens.edit->texts[KlantVeld::Bedrijfsnaam] = to;
        screens.edit->controller->Opslaan();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TestDatabase database;
    RecordingUiService ui;
    CustomerScreens screens;
    clsControllerKlant controller;
};

TEST_F(CustomerTest, ListShowsSevenColumnsOfVisibleCustomersWithTheirKeys) {
    const qint32 jansen = add({"Jansen BV", true, "J.", "", "Jansen", false});
    add({"Verborgen", true, "X.", "", "Weg", false, false});
    const qint32 berg = add({"Van den Berg", false, "A.B.", "van den", "Berg", true});
    start();

    const QList<GridColumn>& columns = screens.list->columns;
    QStringList headers;
    for (const GridColumn& c : columns) {
        headers << c.header;
    }
    EXPECT_EQ(headers, QStringList({"Bedrijfsnaam", "Contactpersoon", "Adres", "Postcode", "Plaats",
                                    "Telefoon", "0% btw"}));
    for (int col = 0; col < 6; ++col) {
        EXPECT_EQ(columns.at(col).alignment, Qt::AlignLeft | Qt::AlignVCenter) << col;
    }
    EXPECT_EQ(columns.at(6).alignment, Qt::Alignment(Qt::AlignCenter));

    // An empty infix leaves its two blanks; a woman is "Mevr."; 0% VAT shows "<JA>".
    EXPECT_EQ(screens.list->rows,
              QStringList({"Jansen BV\tDhr. J.  Jansen\tLindeweg 1\t1234 AB\tUtrecht\t"
                           "030-7654321\t",
                           "Van den Berg\tMevr. A.B. van den Berg\tLindeweg 1\t1234 AB\tUtrecht\t"
                           "030-7654321\t<JA>"}));
    EXPECT_EQ(screens.list->ids, QList<qint32>({jansen, berg}));
    EXPECT_FALSE(screens.list->filling);
    EXPECT_TRUE(screens.list->visible);
}

TEST_F(CustomerTest, EditingTwiceLeavesThreeRowsTwoHidden) {
    const qint32 first = add({"Bakkerij Brood", true, "P.", "de", "Vries", true});
    start();
    editName("Bakkerij Brood", "Bakkerij Brood en Banket");
    editName("Bakkerij Brood en Banket", "Brood & Banket");

    EXPECT_EQ(count("1=1"), 3);
    EXPECT_EQ(count("Zichtbaar=0"), 2);
    EXPECT_EQ(count("Zichtbaar=1"), 1);
    // The first row keeps its data, hidden, as invoices written to it show it.
    EXPECT_EQ(column(first, "Bedrijfsnaam").toString(), "Bakkerij Brood");
    EXPECT_EQ(column(first, "Fax").toString(), "030-1234567");
    EXPECT_EQ(column(first, "DebiteurNummer").toInt(), 4711);
    EXPECT_EQ(column(first, "Zichtbaar").toInt(), 0);

    const qint32 last = database.scalar("SELECT KlantID FROM Klant WHERE Zichtbaar=1").toInt();
    EXPECT_GT(last, first);
    // The new row has what the screen showed, but no fax and no debtor number.
    EXPECT_EQ(column(last, "Bedrijfsnaam").toString(), "Brood & Banket");
    EXPECT_EQ(column(last, "Tussenvoegsel").toString(), "de");
    EXPECT_EQ(column(last, "Plaats").toString(), "Utrecht");
    EXPECT_EQ(column(last, "Land").toString(), "Nederland");
    EXPECT_EQ(column(last, "Email").toString(), "post@Bakkerij Brood.nl");
    EXPECT_EQ(column(last, "BTW").toInt(), 1);
    EXPECT_EQ(column(last, "Dhr").toInt(), 1);
    EXPECT_EQ(column(last, "Fax").toString(), "");
    EXPECT_EQ(column(last, "DebiteurNummer").toInt(), 0);

    // The list shows only the last row, and the edit screen has gone.
    EXPECT_EQ(screens.list->ids, QList<qint32>({last}));
    EXPECT_EQ(controller.editController(), nullptr);
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(CustomerTest, EditScreenShowsTheCustomerOrANewOne) {
    add({"Kapsalon Knip", false, "M.", "", "Smit", true});
    start();
    screens.list->select(1, 1);
    controller.BewerkenKlant();
    CustomerEdit& edit = *screens.edit;
    EXPECT_EQ(edit.caption, "Bewerken klant");
    EXPECT_EQ(edit.title, "Bewerken klant");
    EXPECT_FALSE(edit.dhr);
    EXPECT_TRUE(edit.btw);
    EXPECT_EQ(edit.texts.value(KlantVeld::Bedrijfsnaam), "Kapsalon Knip");
    EXPECT_EQ(edit.texts.value(KlantVeld::Voorletters), "M.");
    EXPECT_EQ(edit.texts.value(KlantVeld::Postcode), "1234 AB");
    EXPECT_EQ(edit.texts.value(KlantVeld::Email), "post@Kapsalon Knip.nl");
    EXPECT_TRUE(edit.visible);

    controller.NieuwKlant();
    CustomerEdit& fresh = *screens.edit;
    EXPECT_EQ(fresh.caption, "Nieuwe klant");
    EXPECT_EQ(fresh.title, "Nieuwe klant");
    EXPECT_TRUE(fresh.dhr);
    EXPECT_FALSE(fresh.btw);
    EXPECT_EQ(fresh.texts.value(KlantVeld::Bedrijfsnaam), "");
}

TEST_F(CustomerTest, NewCustomerIsStoredVisibleAndCancelStoresNothing) {
    start();
    controller.NieuwKlant();
    screens.edit->texts[KlantVeld::Bedrijfsnaam] = "Nieuw";
    screens.edit->controller->Annuleren();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(count("1=1"), 0);
    EXPECT_EQ(controller.editController(), nullptr);

    controller.NieuwKlant();
    CustomerEdit& edit = *screens.edit;
    edit.texts[KlantVeld::Bedrijfsnaam] = "Fietsenmaker";
    edit.texts[KlantVeld::Achternaam] = "Wiel";
    edit.setDhr(false);
    edit.controller->Opslaan();
    EXPECT_FALSE(edit.visible);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(count("Zichtbaar=1 AND Bedrijfsnaam='Fietsenmaker' AND Achternaam='Wiel' AND "
                    "Dhr=0 AND BTW=0 AND Land=''"),
              1);
    EXPECT_EQ(screens.list->rows.size(), 1);
}

struct DeleteCase {
    int from, to;  // the drag, as grid rows
    ui::Answer answer;
    QString question;
    QStringList left;  // the companies still listed afterwards
};

class CustomerDeleteTest : public CustomerTest, public testing::WithParamInterface<DeleteCase> {};

TEST_P(CustomerDeleteTest, AsksOnceThenBlanksTheSelectedRows) {
    const DeleteCase& c = GetParam();
    for (const char* name : {"A", "B", "C", "D"}) {
        add(company(name));
    }
    start();
    ui.answers.enqueue(c.answer);
    screens.list->select(c.from, c.to);
    controller.VerwijderGeselecteerdeKlanten();

    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessageIs(c.question, "Verwijderen module(n)", ui::Icon::Question));
    EXPECT_EQ(ui.lastMessage().buttons, ui::Buttons::YesNo);
    EXPECT_EQ(ui.lastMessage().defaultButton, ui::Answer::No);

    QStringList listed;
    for (const QString& row : screens.list->rows) {
        listed << row.section('\t', 0, 0);
    }
    EXPECT_EQ(listed, c.left);
    // A removed row keeps its key and nothing else.
    const int removed = 4 - c.left.size();
    EXPECT_EQ(count("Zichtbaar=0 AND Bedrijfsnaam='' AND Fax='' AND Email='' AND Voorletters='' "
                    "AND Achternaam='' AND Adres='' AND Plaats='' AND Land='' AND Telefoon='' "
                    "AND DebiteurNummer=0 AND BTW=0 AND Dhr=0"),
              removed);
    EXPECT_EQ(count("1=1"), 4);
}

const char* const kOne = "Weet u zeker dat u de geselecteerde klant wilt verwijderen?";
const char* const kMany = "Weet u zeker dat u de geselecteerde klanten wilt verwijderen?";

INSTANTIATE_TEST_SUITE_P(Drags, CustomerDeleteTest,
                         testing::Values(DeleteCase{2, 2, ui::Answer::Yes, kOne, {"A", "C", "D"}},
                                         DeleteCase{2, 4, ui::Answer::Yes, kMany, {"A"}},
                                         DeleteCase{4, 2, ui::Answer::Yes, kMany, {"A"}},
                                         DeleteCase{
                                             1, 3, ui::Answer::No, kMany, {"A", "B", "C", "D"}}));

struct NoChoiceCase {
    const char* name;
    bool selecting;
    std::function<void(clsControllerKlant&)> act;
    QString text, caption;
};

class CustomerNoChoiceTest : public CustomerTest,
                             public testing::WithParamInterface<NoChoiceCase> {};

// With no customers at all, or none chosen, every action that needs one says so and
// changes nothing.
TEST_P(CustomerNoChoiceTest, TellsThatNoCustomerIsSelected) {
    const NoChoiceCase& c = GetParam();
    for (const bool withCustomers : {false, true}) {
        if (withCustomers) {
            add(company("Er is er een"));
        }
        ui.messages.clear();
        start(c.selecting);
        screens.list->select(0, 0);
        QSignalSpy closing(&controller, &clsControllerKlant::SluitKlant);
        c.act(controller);
        ASSERT_EQ(ui.messages.size(), 1) << c.name;
        EXPECT_TRUE(ui.lastMessageIs(c.text, c.caption, ui::Icon::Information));
        EXPECT_EQ(closing.count(), 0);
        EXPECT_EQ(controller.editController(), nullptr);
        EXPECT_TRUE(screens.list->visible);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Actions, CustomerNoChoiceTest,
    testing::Values(
        NoChoiceCase{"Bewerk", false, [](clsControllerKlant& k) { k.BewerkenKlant(); },
                     "Er is geen klant geselecteerd om te bewerken.", "Klant bewerken"},
        NoChoiceCase{"DubbelKlikBeheer", false, [](clsControllerKlant& k) { k.DubbelKlik(); },
                     "Er is geen klant geselecteerd om te bewerken.", "Klant bewerken"},
        NoChoiceCase{"Verwijder", false,
                     [](clsControllerKlant& k) { k.VerwijderGeselecteerdeKlanten(); },
                     "Er is geen klant geselecteerd om te verwijderen.", "Klant verwijderen"},
        NoChoiceCase{"OK", true, [](clsControllerKlant& k) { k.Bevestigen(); },
                     "Er is geen klant geselecteerd.", "Klant selecteren voor factuur"},
        NoChoiceCase{"DubbelKlikSelectie", true, [](clsControllerKlant& k) { k.DubbelKlik(); },
                     "Er is geen klant geselecteerd.", "Klant"}),
    [](const testing::TestParamInfo<NoChoiceCase>& info) { return info.param.name; });

struct HandOverCase {
    const char* name;
    bool selecting;
    std::function<void(clsControllerKlant&)> act;
    bool cancelled;
};

class CustomerHandOverTest : public CustomerTest,
                             public testing::WithParamInterface<HandOverCase> {};

TEST_P(CustomerHandOverTest, ClosingRaisesSluitKlantAndKeepsTheChoice) {
    const HandOverCase& c = GetParam();
    add(company("Eerste"));
    const qint32 second = add({"Tweede", false, "T.", "", "Twee"});
    start(c.selecting);
    screens.list->select(2, 2);
    QSignalSpy closing(&controller, &clsControllerKlant::SluitKlant);
    QSignalSpy closed(&controller, &RegisterController::closed);
    c.act(controller);

    ASSERT_EQ(closing.count(), 1);
    EXPECT_EQ(closing.first().first().toBool(), c.cancelled);
    EXPECT_EQ(closed.count(), 1);
    EXPECT_FALSE(screens.list->visible);
    EXPECT_TRUE(ui.messages.isEmpty());
    const std::optional<clsObjKlant> chosen = controller.GeselecteerdeKlant();
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->KlantID(), second);
    EXPECT_EQ(chosen->Bedrijfsnaam(), "Tweede");
    EXPECT_EQ(chosen->Achternaam(), "Twee");
}

INSTANTIATE_TEST_SUITE_P(
    Closings, CustomerHandOverTest,
    testing::Values(
        HandOverCase{"OK", true, [](clsControllerKlant& k) { k.Bevestigen(); }, false},
        HandOverCase{"DubbelKlik", true, [](clsControllerKlant& k) { k.DubbelKlik(); }, false},
        HandOverCase{"Annuleren", true, [](clsControllerKlant& k) { k.Annuleren(true); }, true},
        HandOverCase{"OKBeheer", false, [](clsControllerKlant& k) { k.Bevestigen(); }, false}),
    [](const testing::TestParamInfo<HandOverCase>& info) { return info.param.name; });

TEST_F(CustomerTest, ClosingTheListEndsAnOpenEdit) {
    add(company("Open"));
    start();
    screens.list->select(1, 1);
    controller.BewerkenKlant();
    CustomerEdit* edit = screens.edit;
    ASSERT_TRUE(edit && edit->visible);
    controller.Annuleren(true);
    EXPECT_EQ(controller.editController(), nullptr);
    EXPECT_EQ(count("1=1"), 1);
}

TEST_F(CustomerTest, PrintsTheListTitledKlantenWithMarginsOfFive) {
    start();
    controller.AfdrukkenLijst();
    EXPECT_EQ(screens.list->printed, QStringList({"Klanten|5"}));
}

TEST_F(CustomerTest, DatabaseErrorsAreShownWithTheProgramCaption) {
    const qint32 id = add(company("Weg"));
    start();
    screens.list->select(1, 1);
    database.exec("DROP TABLE Klant");
    controller.RefreshScherm();
    ui.answers.enqueue(ui::Answer::Yes);
    controller.VerwijderKlant({id});
    controller.NieuwKlant();
    screens.edit->controller->Opslaan();

    ASSERT_EQ(ui.messages.size(), 4);  // the refresh, the question, the hide, the save
    for (const int shown : {0, 2, 3}) {
        const ui::Message& m = ui.messages.at(shown);
        EXPECT_TRUE(
            m.text.startsWith("Er is een fout opgetreden bij de verwerking van uw "
                              "opdracht.\r\nDetails: "))
            << m.text.toStdString();
        EXPECT_EQ(m.caption, "KORVANE LINDEBRUG");
        EXPECT_EQ(m.icon, ui::Icon::Exclamation);
    }
    // A failed save leaves the screen open with what the user typed.
    EXPECT_TRUE(screens.edit->visible);
}

TEST_F(CustomerTest, ProgramRegisterOfCustomersIsThisList) {
    const auto made = createProgramRegister(Register::Klanten);
    EXPECT_NE(dynamic_cast<clsControllerKlant*>(made.get()), nullptr);
}

TEST_F(CustomerTest, TheEnvelopeButtonOpensAnEnvelopeForTheSelectedCustomers) {
    LabelScreens envelope;
    for (const char* name : {"Bakker", "Slager", "Visser"}) {
        add(company(name));
    }
    start();
    controller.AfdrukkenEnveloppe();
    EXPECT_EQ(envelope.screen, nullptr);
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().caption, "Envelop afdrukken");

    screens.list->select(screens.list->rowOf("Bakker"), screens.list->rowOf("Slager"));
    controller.AfdrukkenEnveloppe();
    ASSERT_NE(envelope.screen, nullptr);
    EXPECT_TRUE(envelope.screen->visible);
    EXPECT_EQ(envelope.screen->onderwerp, "2 klanten");
    EXPECT_TRUE(envelope.screen->vellen.value(envelope.screen->gekozen).startsWith("Envelop DL"));
}

}  // namespace
