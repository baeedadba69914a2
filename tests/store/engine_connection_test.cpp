#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "engine_fixture.h"

namespace {

using ConnectionTest = EngineTest;

class ConnectionStrings : public EngineTest,
                          public ::testing::WithParamInterface<QString (*)(const QString&)> {};

TEST_P(ConnectionStrings, OpenTheFileTheyName) {
    Connection second;
    second.open(GetParam()(path));
    EXPECT_EQ(second.state(), Connection::Open);
    EXPECT_EQ(QFileInfo(second.filePath()).canonicalFilePath(),
              QFileInfo(path).canonicalFilePath());
    second.close();
    EXPECT_EQ(second.state(), Connection::Closed);
}

TEST_P(ConnectionStrings, NeverCreateAMissingFile) {
    const QString missing = dir.filePath(QStringLiteral("daa.mdb"));
    Connection second;
    try {
        second.open(GetParam()(missing));
        FAIL() << "opened a missing file";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 3024);
        EXPECT_TRUE(error.description().contains(missing));
    }
    EXPECT_FALSE(QFile::exists(missing));
    EXPECT_EQ(second.state(), Connection::Closed);
}

TEST_P(ConnectionStrings, RefuseAFileThatIsNoDatabase) {
    const QString text = dir.filePath(QStringLiteral("notities.txt"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();

    Connection second;
    try {
        second.open(GetParam()(text));
        FAIL() << "opened a text file";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 26);  // SQLite: not a database
        EXPECT_TRUE(error.description().contains(QStringLiteral("kan niet als database")));
    }
    EXPECT_EQ(second.state(), Connection::Closed);
    EXPECT_EQ(QFileInfo(text).size(), 4096);
}

INSTANTIATE_TEST_SUITE_P(BothForms, ConnectionStrings,
                         ::testing::Values(&EngineTest::connectionString, &EngineTest::odbcString));

TEST_F(ConnectionTest, KeepsEveryCommittedRowInTheFileItself) {
    EXPECT_EQ(scalar(QStringLiteral("PRAGMA journal_mode")).toString(), QStringLiteral("delete"));
    EXPECT_EQ(scalar(QStringLiteral("PRAGMA synchronous")).toInt(), 2);
    EXPECT_EQ(scalar(QStringLiteral("PRAGMA foreign_keys")).toInt(), 1);
}

TEST_F(ConnectionTest, CommitKeepsAndRollbackUndoesAtEveryDepth) {
    db.execute(
        QStringLiteral("CREATE TABLE Klant (KlantID AUTOINCREMENT, Naam TEXT(20), "
                       "PRIMARY KEY (KlantID))"));
    auto names = [&] {
        QStringList result;
        for (auto set = db.openReadSet(QStringLiteral("SELECT Naam FROM Klant ORDER BY KlantID"));
             !set->isEOF(); set->moveNext()) {
            result.append(set->value(0).toString());
        }
        return result;
    };

    db.beginTrans();
    db.execute(QStringLiteral("INSERT INTO Klant (Naam) VALUES ('Weg')"));
    EXPECT_TRUE(db.inTransaction());
    db.rollbackTrans();
    EXPECT_FALSE(db.inTransaction());

    db.beginTrans();
    db.execute(QStringLiteral("INSERT INTO Klant (Naam) VALUES ('Buiten')"));
    db.beginTrans();
    db.execute(QStringLiteral("INSERT INTO Klant (Naam) VALUES ('Binnen weg')"));
    db.rollbackTrans();
    db.beginTrans();
    db.execute(QStringLiteral("INSERT INTO Klant (Naam) VALUES ('Binnen')"));
    db.commitTrans();
    db.commitTrans();

    EXPECT_EQ(names(), (QStringList{QStringLiteral("Buiten"), QStringLiteral("Binnen")}));
    EXPECT_EQ(errorOf([&] { db.commitTrans(); }), 3034);
    EXPECT_EQ(errorOf([&] { db.rollbackTrans(); }), 3034);
}

TEST_F(ConnectionTest, EngineErrorsCarrySqliteCodeAndMessage) {
    db.execute(
        QStringLiteral("CREATE TABLE Klant (KlantID AUTOINCREMENT, Naam TEXT(20) NOT NULL, "
                       "PRIMARY KEY (KlantID))"));
    try {
        db.execute(QStringLiteral("INSERT INTO Klant (Naam) VALUES (NULL)"));
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 19);  // SQLITE_CONSTRAINT
        EXPECT_TRUE(error.description().contains(QStringLiteral("Klant.Naam")));
    }
    EXPECT_EQ(errorOf([&] { db.execute(QStringLiteral("SELECT * FROM Onbekend")); }), 1);
}

TEST_F(ConnectionTest, ExecuteCountsTheRowsItChanged) {
    db.execute(
        QStringLiteral("CREATE TABLE Artikel (ArtikelID AUTOINCREMENT, Voorraad LONG, "
                       "PRIMARY KEY (ArtikelID))"));
    for (int i = 0; i < 3; ++i) {
        db.execute(QStringLiteral("INSERT INTO Artikel (Voorraad) VALUES (5)"));
    }
    EXPECT_EQ(db.lastInsertId(), 3);
    EXPECT_EQ(
        db.execute(QStringLiteral("Update Artikel SET Voorraad=Voorraad+-2 WHERE ArtikelID>1")), 2);
    EXPECT_EQ(scalar(QStringLiteral("SELECT Sum(Voorraad) FROM Artikel")).toInt(), 11);
}

TEST_F(ConnectionTest, ClosedConnectionRefusesWork) {
    db.close();
    EXPECT_EQ(errorOf([&] { db.execute(QStringLiteral("SELECT 1")); }), 3704);
    EXPECT_EQ(errorOf([&] { db.openReadSet(QStringLiteral("SELECT 1")); }), 3704);
}

}  // namespace
