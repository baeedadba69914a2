#include <gtest/gtest.h>

#include <QEventLoop>
#include <QSignalSpy>
#include <QTimer>

#include "ArticleScreens.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "records/clsObjArtikelPerFactuur.h"

namespace {

class ArticleTest : public testing::Test {
protected:
    ArticleTest() { database.linkStockDatabase(); }

    // An article row straight into the database; its key.
    qint32 add(const QString& nummer, const QString& omschrijving, qint64 prijsRaw = 0,
               int tarief = 1, int voorraad = 0, bool zichtbaar = true) {
        database.exec(QString("INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad, "
                              "Prijs, NegVoorToestaan, BTWTarief, Zichtbaar, GeenVoorraad) "
                              "VALUES ('%1', '%2', 'stuk', %3, %4, 0, %5, %6, 0)")
                          .arg(nummer, omschrijving)
                          .arg(voorraad)
                          .arg(prijsRaw)
                          .arg(tarief)
                          .arg(zichtbaar ? 1 : 0));
        return database.scalar("SELECT MAX(ArtikelID) FROM Artikel").toInt();
    }
    QVariant column(qint32 id, const QString& name) const {
        return database.scalar(
            QString("SELECT %1 FROM Artikel WHERE ArtikelID=%2").arg(name).arg(id));
    }
    int count(const QString& where = "1=1") const {
        return database.scalar("SELECT COUNT(*) FROM Artikel WHERE " + where).toInt();
    }
    // Opens the edit screen of the article (a new one without) from the list.
    ArticleEdit& openEdit(std::optional<qint32> id = std::nullopt) {
        controller.StartArtikelen(false);
        if (id) {
            screens.list->selection = {*id};
            controller.BewerkenArtikel();
        } else {
            controller.NieuwArtikel();
        }
        return *screens.edit;
    }

    TestDatabase database;
    RecordingUiService ui;
    ArticleScreens screens;
    clsControllerArtikel controller;
};

TEST_F(ArticleTest, TheListShowsVisibleArticlesByDescriptionWithPriceAndVatRate) {
    const qint32 schroef = add("10", "Schroef", 12345, 1);
    const qint32 advies = add("7", "Advies\turen", 650000, 2);
    add("3", "Verborgen", 0, 1, 0, false);
    const qint32 boek = add("22", "Boek", 5, 0);
    const qint32 vreemd = add("5", "Zaag", 10000, 3);

    controller.StartArtikelen(false);
    const ArticleList& list = *screens.list;
    EXPECT_TRUE(list.visible);
    EXPECT_FALSE(list.selecting);
    EXPECT_EQ(list.caption, "Artikelen/Uren");
    EXPECT_EQ(list.headers,
              QStringList({"Artikelnummer", "Omschrijving", "Eenheid", "Prijs", "BTW tarief"}));
    EXPECT_EQ(list.rows,
              QStringList({"7\tAdvies uren\tstuk\t€ 65,00\t9%|" + QString::number(advies),
                           "22\tBoek\tstuk\t€ 0,00\t0%|" + QString::number(boek),
                           "10\tSchroef\tstuk\t€ 1,23\t21%|" + QString::number(schroef),
                           "5\tZaag\tstuk\t€ 1,00\t0%|" + QString::number(vreemd)}));

    controller.StartArtikelen(true);
    EXPECT_EQ(screens.list, &list) << "one list screen for the controller's life";
    EXPECT_TRUE(list.selecting);
    EXPECT_EQ(list.caption, "Selecteer een artikel");
    controller.AfdrukkenLijst();
    EXPECT_EQ(list.printed, QStringList{"Artikelen"});
}

TEST_F(ArticleTest, RemovingAsksOnceInTheRightNumberAndHidesTheRowsBlank) {
    const QList<qint32> ids = {add("1", "A", 10000), add("2", "B", 20000, 1, 5),
                               add("3", "C", 30000)};
    controller.StartArtikelen(false);
    ArticleList& list = *screens.list;

    controller.VerwijderArtikelen();
    EXPECT_TRUE(ui.lastMessageIs("Er is geen artikel geselecteerd om te verwijderen.",
                                 "Artikel verwijderen", ui::Icon::Information));

    const std::pair<QList<qint32>, QString> questions[] = {
        {{ids[0]}, "Weet u zeker dat u het geselecteerde artikel/uur wilt verwijderen?"},
        {ids, "Weet u zeker dat u de geselecteerde artikelen/uren wilt verwijderen?"}};
    for (const auto& [selected, question] : questions) {
        list.selection = selected;
        ui.answers.enqueue(ui::Answer::No);
        controller.VerwijderArtikelen();
        EXPECT_TRUE(ui.lastMessageIs(question, "Verwijderen module(n)", ui::Icon::Question));
        EXPECT_EQ(ui.lastMessage().buttons, ui::Buttons::YesNo);
        EXPECT_EQ(ui.lastMessage().defaultButton, ui::Answer::No);
        EXPECT_EQ(count("Zichtbaar=1"), 3) << "No keeps them";
    }

    const int messagesBefore = ui.messages.size();
    ui.answers.enqueue(ui::Answer::Yes);
    controller.VerwijderArtikelen();
    EXPECT_EQ(ui.messages.size(), messagesBefore + 1) << "asked once";
    EXPECT_EQ(count("Zichtbaar=1"), 0);
    EXPECT_EQ(count(), 3) << "hidden, not deleted";
    EXPECT_EQ(column(ids[1], "Nummer").toString(), "");
    EXPECT_EQ(column(ids[1], "Prijs").toInt(), 0);
    EXPECT_EQ(column(ids[1], "Voorraad").toInt(), 0);
    EXPECT_TRUE(list.rows.isEmpty());
}

TEST_F(ArticleTest, ANewArticleIsOfferedTheNextNumberAfterTheHighestInTextOrder) {
    struct Case {
        QStringList visible;
        QString offered;
    };
    const Case cases[] = {{{}, "1"}, {{"4", "12"}, "5"}, {{"9", "10"}, "10"}, {{"8", "19"}, "9"}};
    for (const Case& c : cases) {
        database.exec("DELETE FROM Artikel");
        for (const QString& nummer : c.visible) {
            add(nummer, "Artikel " + nummer);
        }
        add("99", "Verborgen", 0, 1, 0, false);
        clsContrArtikelBewerken edit;
        EXPECT_EQ(edit.HaalNieuwNummer(), c.offered) << c.visible.join(",").toStdString();
    }
    EXPECT_TRUE(ui.messages.isEmpty());

    add("X1", "Geen getal");
    EXPECT_EQ(clsContrArtikelBewerken().HaalNieuwNummer(), "");
    EXPECT_TRUE(ui.lastMessageIs(
        "Error 13 (Typen komen niet overeen) in procedure HaalNieuwNummer of Class "
        "Module clsContrArtikelBewerken",
        "KORVANE LINDEBRUG", ui::Icon::Exclamation));
}

TEST_F(ArticleTest, ANewArticleIsStoredAndTheListRefilled) {
    ArticleEdit& edit = openEdit();
    EXPECT_EQ(edit.caption, "Nieuw Artikel/Uur");
    EXPECT_EQ(edit.title, "Nieuw Artikel/Uur");
    EXPECT_EQ(edit.nummer, "1");
    EXPECT_EQ(edit.prijs, "0,00");
    EXPECT_EQ(edit.percentage, "(0 %)");

    edit.omschrijving = "Montage";
    edit.eenheid = "uur";
    edit.prijs = "45,5";
    edit.tarief = 2;
    edit.negatief = true;
    edit.controller->Opslaan();
    EXPECT_FALSE(edit.visible);
    settle();
    EXPECT_EQ(controller.editController(), nullptr) << "released after the save";
    ASSERT_EQ(count(), 1);
    const qint32 id = database.scalar("SELECT ArtikelID FROM Artikel").toInt();
    EXPECT_EQ(column(id, "Prijs").toLongLong(), 455000);
    EXPECT_EQ(column(id, "BTWTarief").toInt(), 2);
    EXPECT_EQ(column(id, "NegVoorToestaan").toInt(), 1);
    EXPECT_EQ(column(id, "Zichtbaar").toInt(), 1);
    EXPECT_EQ(screens.list->rows,
              QStringList{"1\tMontage\tuur\t€ 45,50\t9%|" + QString::number(id)});
}

// Saving an edit adds the article as a new row and hides the old one with all its values.
TEST_F(ArticleTest, EditingMakesANewRowAndHidesTheOldOneUnchanged) {
    const qint32 old = add("5", "Zaag", 150000, 1, 3);
    ArticleEdit& edit = openEdit(old);
    EXPECT_EQ(edit.caption, "Bewerken artikel");
    EXPECT_EQ(edit.title, "Bewerken Artikel/Uur");
    EXPECT_EQ(edit.prijs, "15,00");
    EXPECT_EQ(edit.voorraad, "3");
    EXPECT_EQ(edit.percentage, "(21%)");

    edit.omschrijving = "Handzaag";
    edit.controller->Opslaan();
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(column(old, "Zichtbaar").toInt(), 0);
    EXPECT_EQ(column(old, "Omschrijving").toString(), "Zaag");
    EXPECT_EQ(database.scalar("SELECT Omschrijving FROM Artikel WHERE Zichtbaar=1").toString(),
              "Handzaag");
    EXPECT_EQ(database.scalar("SELECT Nummer FROM Artikel WHERE Zichtbaar=1").toString(), "5")
        << "its own unchanged number is not a duplicate";
}

TEST_F(ArticleTest, ANumberAnotherArticleHasOrHadIsRefusedAndNothingIsWritten) {
    add("9", "Negen");
    add("10", "Tien");
    add("30", "Oud", 0, 1, 0, false);
    for (const QString& taken : {QString("10"), QString("30")}) {
        ArticleEdit& edit = openEdit();
        edit.nummer = taken;
        edit.omschrijving = "Nieuw";
        edit.controller->Opslaan();
        EXPECT_TRUE(ui.lastMessageIs(
            "Het artikelnummer bestaat al. Het artikel kan niet worden opgeslagen.",
            "Artikel opslaan", ui::Icon::Exclamation));
        EXPECT_TRUE(edit.visible) << "the screen stays open";
        EXPECT_EQ(count(), 3);
        edit.controller->Annuleren();
    }
}

TEST_F(ArticleTest, StockConfirmedInTheDialogStaysWrittenWhenTheEditIsCancelled) {
    const qint32 id = add("1", "Plank", 10000, 1, 4);
    ArticleEdit& edit = openEdit(id);
    screens.stockScript.typed = "12";
    edit.controller->BewerkVoorraad();
    EXPECT_EQ(edit.voorraad, "12");
    EXPECT_EQ(column(id, "Voorraad").toInt(), 12) << "written at once";

    screens.stockScript.typed.clear();  // the dialog cancelled changes nothing
    edit.controller->BewerkVoorraad();
    EXPECT_EQ(edit.voorraad, "12");

    screens.stockScript.typed = "veel";
    edit.controller->BewerkVoorraad();
    EXPECT_TRUE(ui.lastMessageIs("Ongeldige waarde ingevoerd", "Voorraad", ui::Icon::Exclamation));
    EXPECT_EQ(edit.voorraad, "12");
    EXPECT_EQ(column(id, "Voorraad").toInt(), 12);
    ui.messages.clear();

    edit.controller->Annuleren();
    settle();
    EXPECT_EQ(column(id, "Voorraad").toInt(), 12);
    EXPECT_EQ(count(), 1) << "the cancelled edit made no row";
    EXPECT_TRUE(ui.messages.isEmpty());
}

// A message box opened after the edit screen closed runs a loop of its own while the code
// that closed the screen is still on the stack: the edit goes only after that.
TEST_F(ArticleTest, AClosedEditScreenOutlivesAMessageBoxOpenedAfterIt) {
    ArticleEdit& edit = openEdit();
    bool keptDuringTheBox = false;
    QEventLoop program;
    QTimer::singleShot(0, [&] {
        edit.controller->Annuleren();
        QEventLoop box;
        QTimer::singleShot(0, &box, &QEventLoop::quit);
        box.exec();
        keptDuringTheBox = controller.editController() != nullptr;
        program.quit();
    });
    program.exec();
    settle();
    EXPECT_TRUE(keptDuringTheBox);
    EXPECT_EQ(controller.editController(), nullptr);
}

TEST_F(ArticleTest, ThePercentageLabelFollowsTheVatClass) {
    ArticleEdit& edit = openEdit();
    const std::pair<qint16, QString> cases[] = {
        {1, "(21%)"}, {2, "(9%)"}, {0, "(0 %)"}, {3, "(0 %)"}, {-1, "(0 %)"}};
    for (const auto& [tarief, label] : cases) {
        edit.tarief = tarief;
        edit.controller->PasPercentageLabelAan();
        EXPECT_EQ(edit.percentage, label) << tarief;
    }
}

TEST_F(ArticleTest, SelectionChecksItsInputAndHandsOverArticleQuantityAndDiscount) {
    const qint32 id = add("3", "Lamp", 99000);
    controller.StartArtikelen(true);
    ArticleList& list = *screens.list;
    QSignalSpy sluit(&controller, &clsControllerArtikel::SluitArtikel);
    QSignalSpy closed(&controller, &RegisterController::closed);

    controller.Selecteren();
    EXPECT_TRUE(ui.lastMessageIs("Er is geen artikel geselecteerd.",
                                 "Artikel toevoegen aan factuur", ui::Icon::Information));
    controller.DubbelKlik();
    EXPECT_TRUE(
        ui.lastMessageIs("Er is geen artikel geselecteerd.", "Artikel", ui::Icon::Information));

    list.selection = {id};
    const std::tuple<QString, QString, QString> refused[] = {
        {"", "0", "Geeft u a.u.b. een geldig aantal op voor het artikel."},
        {"twee", "0", "Geeft u a.u.b. een geldig aantal op voor het artikel."},
        {"2", "x", "Geeft u a.u.b. een geldig kortingspercentage op voor het artikel."},
        {"2", "101", "Geeft u a.u.b. een geldig kortingspercentage op voor het artikel."},
        {"2", "-5", "Geeft u a.u.b. een geldig kortingspercentage op voor het artikel."}};
    for (const auto& [aantal, korting, text] : refused) {
        list.aantal = aantal;
        list.korting = korting;
        controller.Selecteren();
        EXPECT_TRUE(ui.lastMessageIs(text, "Artikel selecteren", ui::Icon::Exclamation));
    }
    EXPECT_TRUE(sluit.isEmpty());
    EXPECT_FALSE(controller.GeselecteerdArtikel());

    list.aantal = "2,5";
    list.korting = "10";
    controller.DubbelKlik();
    ASSERT_EQ(sluit.size(), 1);
    EXPECT_EQ(sluit[0], QVariantList({false, 2.5, 10.0}));
    EXPECT_EQ(closed.size(), 1);
    ASSERT_TRUE(controller.GeselecteerdArtikel());
    EXPECT_EQ(controller.GeselecteerdArtikel()->artikelID(), id);
    EXPECT_EQ(controller.GeselecteerdArtikel()->Omschrijving(), "Lamp");
    EXPECT_FALSE(list.visible);

    controller.StartArtikelen(true);
    controller.Annuleren();
    EXPECT_EQ(sluit.last(), QVariantList({true, 0.0, 0.0}));
    EXPECT_EQ(closed.size(), 2);
}

TEST_F(ArticleTest, ChangingALineMovesTheStockDifferenceUnlessCancelled) {
    const qint32 id = add("1", "Kabel", 10000, 1, 10);
    clsObjArtikelPerFactuur regel;
    regel.setArtikelID(id);
    regel.setAantal(2.5);
    regel.setKorting(5);
    QSignalSpy bewerk(&controller, &clsControllerArtikel::BewerkArtikel);

    screens.lineScript.cancelled = true;
    controller.BewerkGeselecteerdArtikel(regel);
    EXPECT_EQ(screens.lineShown.aantal, "2,5");
    EXPECT_EQ(screens.lineShown.korting, "5");
    EXPECT_TRUE(bewerk.isEmpty());
    EXPECT_EQ(column(id, "Voorraad").toInt(), 10);

    // 2.5 rounds to 2 (halves to even): raising it to 4 takes two more from stock, lowering
    // it to 0.5 gives 1.5 back, which rounds to 2.
    const std::tuple<QString, int, double> changes[] = {{"4", 8, 4.0}, {"0,5", 12, 0.5}};
    screens.lineScript.cancelled = false;
    screens.lineScript.korting = "7,5";
    for (const auto& [aantal, stock, value] : changes) {
        screens.lineScript.aantal = aantal;
        controller.BewerkGeselecteerdArtikel(regel);
        EXPECT_EQ(column(id, "Voorraad").toInt(), stock) << aantal.toStdString();
        EXPECT_EQ(bewerk.last(), QVariantList({id, value, 7.5}));
        database.exec(QString("UPDATE Artikel SET Voorraad=10 WHERE ArtikelID=%1").arg(id));
    }
}

TEST_F(ArticleTest, AnErrorIsShownTranslatedAndTheScreenStaysUsable) {
    add("1", "Spijker");
    database.exec("DELETE FROM BTW");
    controller.StartArtikelen(false);
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessageBegins(
        "Er is een fout opgetreden bij de verwerking van uw opdracht.\r\nDetails: 9 - ",
        "KORVANE LINDEBRUG", ui::Icon::Exclamation));

    database.exec("INSERT INTO BTW (BTW1, BTW2, Zichtbaar) VALUES (21, 9, 1)");
    controller.RefreshScherm();
    EXPECT_EQ(screens.list->rows.size(), 1);
}

TEST_F(ArticleTest, TheMenuOpensTheArticleRegister) {
    const auto made = createProgramRegister(Register::Artikelen);
    ASSERT_NE(dynamic_cast<clsControllerArtikel*>(made.get()), nullptr);
    made->start();
    EXPECT_FALSE(screens.list->selecting);
    EXPECT_TRUE(screens.list->visible);
}

}  // namespace
