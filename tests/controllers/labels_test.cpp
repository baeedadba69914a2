#include <gtest/gtest.h>

#include <QSettings>

#include "LabelScreens.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "controllers/clsContrEtiketten.h"

namespace {

// The texts of a page, in the order they are drawn.
QStringList texts(const report::Page& page) {
    QStringList all;
    for (const report::DrawItem& item : page.items) {
        all << item.text;
    }
    return all;
}

class LabelsTest : public testing::Test {
protected:
    void addCustomers(int count) {
        for (int i = count; i >= 1; --i) {
            database.exec(QString("INSERT INTO Klant (Bedrijfsnaam, Adres, Postcode, Plaats, "
                                  "Land, Zichtbaar) VALUES ('Klant %1', 'Weg %1', '1000 AA', "
                                  "'Lindebrug', 'Nederland', 1)")
                              .arg(i, 2, 10, QChar('0')));
        }
        database.exec("INSERT INTO Klant (Bedrijfsnaam, Zichtbaar) VALUES ('Verborgen', 0)");
    }

    TestDatabase database;
    RecordingUiService ui;
    LabelScreens fakes;
};

TEST_F(LabelsTest, AllVisibleCustomersByNameOnTheChosenSheetFromTheFirstFreeLabel) {
    addCustomers(30);
    clsContrEtiketten labels;
    labels.show();
    LabelScreen& screen = *fakes.screen;
    EXPECT_TRUE(screen.visible);
    EXPECT_EQ(screen.onderwerp, "30 klanten");
    EXPECT_EQ(screen.vellen.size(), 5) << "three label sheets and two envelopes";
    EXPECT_EQ(screen.gekozen, 0);
    EXPECT_EQ(screen.laatste, 24);

    screen.eerste = 5;
    screen.events->toon();
    ASSERT_EQ(fakes.shown.size(), 1);
    const report::Document& sheet = fakes.shown.first();
    ASSERT_EQ(sheet.pages.size(), 2);
    EXPECT_EQ(texts(sheet.pages[0]).mid(0, 3),
              QStringList({"Klant 01", "Weg 01", "1000 AA  Lindebrug"}));
    EXPECT_EQ(texts(sheet.pages[0]).size(), 20 * 3);
    EXPECT_EQ(texts(sheet.pages[1]).size(), 10 * 3);
    EXPECT_EQ(texts(sheet.pages[1]).last(), "1000 AA  Lindebrug");
    EXPECT_FALSE(texts(sheet.pages[1]).contains("Verborgen"));
}

TEST_F(LabelsTest, TheLastPaperIsOfferedAgainAndEnvelopesUseTheMargins) {
    addCustomers(2);
    database.exec("UPDATE Instellingen SET Bedrijfsnaam='Korvane', MargeLinks=90, MargeBoven=45");
    {
        clsContrEtiketten labels;
        labels.show();
        fakes.screen->gekozen = 3;  // Envelop DL
        fakes.screen->events->velGekozen(3);
        EXPECT_EQ(fakes.screen->laatste, 1) << "an envelope has no free position to choose";
        fakes.screen->events->toon();
    }
    ASSERT_EQ(fakes.shown.size(), 1);
    const report::Document& envelopes = fakes.shown.first();
    ASSERT_EQ(envelopes.pages.size(), 2);
    EXPECT_GT(envelopes.paper.width(), envelopes.paper.height());
    const report::DrawItem& first = envelopes.pages[0].items[1];
    EXPECT_EQ(first.text, "Klant 01");
    EXPECT_NEAR(first.rect.left(), 90 * 1440 / 25.4, 1);
    EXPECT_NEAR(first.rect.top(), 45 * 1440 / 25.4, 1);

    clsContrEtiketten again;
    again.show();
    EXPECT_EQ(fakes.screen->gekozen, 3);
}

TEST_F(LabelsTest, TheEnvelopeButtonOffersAnEnvelopeDLUnlessAnotherWasChosenLast) {
    addCustomers(1);
    struct Case {
        int last;
        int offered;
    };
    for (const Case c : {Case{-1, 3}, Case{1, 3}, Case{4, 4}, Case{3, 3}}) {
        QSettings("Korvane", "Lindebrug").setValue("Etiketten/vel", c.last);
        clsContrEtiketten envelope({}, clsContrEtiketten::Soort::Envelop);
        envelope.show();
        EXPECT_EQ(fakes.screen->gekozen, c.offered) << c.last;
        EXPECT_EQ(fakes.screen->laatste, 1);
    }
}

TEST_F(LabelsTest, ChosenCustomersOnlyAndANoticeWithoutAny) {
    clsContrEtiketten none;
    none.show();
    fakes.screen->events->toon();
    EXPECT_TRUE(fakes.shown.isEmpty());
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_EQ(ui.lastMessage().caption, "Etiketten");

    addCustomers(3);
    const qint32 id =
        database.scalar("SELECT KlantID FROM Klant WHERE Bedrijfsnaam='Klant 02'").toInt();
    clsContrEtiketten chosen({id});
    chosen.show();
    EXPECT_EQ(fakes.screen->onderwerp, "1 klant");
    fakes.screen->events->toon();
    ASSERT_EQ(fakes.shown.size(), 1);
    EXPECT_EQ(texts(fakes.shown.first().pages[0]).first(), "Klant 02");
}

}  // namespace
