// Direct stock updates: their statements, and that they go to daa.mdb beside the program.
#include <gtest/gtest.h>

#include <QFile>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "store/StatementTexts.h"
#include "store/clsDatabase.h"
#include "store/modDatabase.h"

namespace {

TEST(StockStatement, SetsOrAddsWithTheSignAsGiven) {
    EXPECT_EQ(sqltext::stockUpdate(7, -2, true),
              "Update Artikel SET Voorraad=Voorraad+-2 WHERE ArtikelID=7");
    EXPECT_EQ(sqltext::stockUpdate(7, 5, false), "Update Artikel SET Voorraad=5 WHERE ArtikelID=7");
    EXPECT_EQ(sqltext::stockUpdate(12, 3, true),
              "Update Artikel SET Voorraad=Voorraad+3 WHERE ArtikelID=12");
}

class StockUpdate : public ::testing::Test {
protected:
    void SetUp() override { addArticle(db.path()); }

    void addArticle(const QString& file) const {
        db.exec(
            "INSERT INTO Artikel (ArtikelID, Nummer, Voorraad) VALUES (7, '7', 10), "
            "(8, '8', 10)",
            file);
    }
    int stock(const QString& file, int id = 7) const {
        return db.scalar(QString("SELECT Voorraad FROM Artikel WHERE ArtikelID=%1").arg(id), file)
            .toInt();
    }

    TestDatabase db;
    RecordingUiService ui;
};

TEST_F(StockUpdate, ReachesDaaMdbAndNotDbDaa) {
    const QString stockFile = db.file("daa.mdb");
    TestDatabase::createFromScript(stockFile, TestDatabase::schemaScript());
    addArticle(stockFile);

    UpdateVoorraad(7, -2, true);
    EXPECT_EQ(stock(stockFile), 8);
    UpdateVoorraad(7, 5, false);
    EXPECT_EQ(stock(stockFile), 5);
    EXPECT_EQ(stock(stockFile, 8), 10) << "only the article named";
    EXPECT_EQ(stock(db.path()), 10);
}

TEST_F(StockUpdate, MovesTheOneDatabaseWhenDaaMdbLinksToIt) {
    db.linkStockDatabase();
    UpdateVoorraad(7, -3, true);
    EXPECT_EQ(stock(db.path()), 7);
}

TEST_F(StockUpdate, IsLostSilentlyWithoutDaaMdb) {
    EXPECT_FALSE(OpenOdbcConnectie());
    EXPECT_NO_THROW(UpdateVoorraad(7, -2, true));
    EXPECT_EQ(stock(db.path()), 10);
    EXPECT_FALSE(QFile::exists(db.file("daa.mdb"))) << "a missing database is never created";
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(StockUpdate, OpensTheConnectionOnceAndAgainAfterItWasClosed) {
    db.linkStockDatabase();
    ASSERT_TRUE(OpenOdbcConnectie());
    Connection* first = gOdbcConnectie.get();
    ASSERT_TRUE(OpenOdbcConnectie());
    EXPECT_EQ(gOdbcConnectie.get(), first) << "an open connection is kept";

    closeSharedConnections();
    UpdateVoorraad(7, 1, true);
    EXPECT_EQ(stock(db.path()), 11);
}

}  // namespace
