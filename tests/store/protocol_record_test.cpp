// The common record pattern and the generic operations of clsDatabase, on a table of
// its own that holds one column of every kind a record can have.
#include <gtest/gtest.h>

#include <QFile>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "base/Error.h"
#include "store/PersistentRecord.h"
#include "store/clsFoutCodeVertaler.h"

namespace {

class Proef : public PersistentRecord<Proef> {
public:
    static constexpr const char* Table = "Proef";
    static constexpr const char* KeyName = "ProefID";

    qint32 id = 0;
    QString naam;
    qint32 aantal = 0;
    qint16 klein = 0;
    bool ja = false;
    double getal = 0;
    float enkel = 0;
    Currency bedrag;
    QDateTime moment = persist::zeroDate();
    QString code;
    qint16 stil = 0;

    static qint32 Proef::*keyMember() { return &Proef::id; }

    static const persist::Columns<Proef>& writeColumns() {
        static const persist::Columns<Proef> columns{
            {"Naam", &Proef::naam},     {"Aantal", &Proef::aantal}, {"Klein", &Proef::klein},
            {"Ja", &Proef::ja},         {"Getal", &Proef::getal},   {"Enkel", &Proef::enkel},
            {"Bedrag", &Proef::bedrag}, {"Moment", &Proef::moment}, {"Code", &Proef::code},
            {"Stil", &Proef::stil},
        };
        return columns;
    }

    static const persist::Columns<Proef>& readColumns() {
        static const persist::Columns<Proef> columns{
            {"ProefID", &Proef::id},
            {"Naam", &Proef::naam},
            {"Aantal", &Proef::aantal},
            {"Klein", &Proef::klein},
            {"Ja", &Proef::ja},
            {"Getal", &Proef::getal},
            {"Enkel", &Proef::enkel},
            {"Bedrag", &Proef::bedrag},
            {"Moment", &Proef::moment, persist::ReadRule::NullAsNow},
            {"Code", &Proef::code, persist::ReadRule::NullAsZeroText},
            {"Stil", &Proef::stil, persist::ReadRule::OneWhenTrue},
        };
        return columns;
    }

    bool operator==(const Proef& o) const {
        return id == o.id && naam == o.naam && aantal == o.aantal && klein == o.klein &&
               ja == o.ja && getal == o.getal && enkel == o.enkel && bedrag == o.bedrag &&
               moment == o.moment && code == o.code && stil == o.stil;
    }
};

Proef filled(const QString& naam) {
    Proef p;
    p.naam = naam;
    p.aantal = -70000;
    p.klein = -300;
    p.ja = true;
    p.getal = 1.0 / 3;
    p.enkel = 2.5f;
    p.bedrag = Currency::fromRaw(12345678);
    p.moment = QDateTime(QDate(2024, 2, 29), QTime(13, 45, 10));
    p.code = "";
    p.stil = 1;
    return p;
}

class RecordProtocol : public ::testing::Test {
protected:
    void SetUp() override {
        db.exec(
            "CREATE TABLE Proef (ProefID INTEGER PRIMARY KEY AUTOINCREMENT, "
            "Naam TEXT(10) COLLATE NOCASE, Aantal LONG, Klein INTEGER, Ja YESNO, Getal DOUBLE, "
            "Enkel SINGLE, Bedrag CURRENCY, Moment DATETIME, Code TEXT(10), Stil YESNO)");
    }

    qlonglong rows() const { return db.scalar("SELECT COUNT(*) FROM Proef").toLongLong(); }

    TestDatabase db;
    RecordingUiService ui;
};

TEST_F(RecordProtocol, SelectTextsNameTableKeyAndFilter) {
    Proef p;
    p.SetID(42);
    EXPECT_EQ(p.GetSelectClause(), "SELECT * FROM Proef WHERE ProefID=42");
    EXPECT_EQ(p.GetSelectClauseWithFilter(""), "SELECT * FROM Proef");
    EXPECT_EQ(p.GetSelectClauseWithFilter("Ja=true ORDER BY Naam"),
              "SELECT * FROM Proef WHERE Ja=true ORDER BY Naam");
    EXPECT_EQ(p.GetIDNaam(), "ProefID");
}

TEST_F(RecordProtocol, InsertHandsBackTheEnginesKeyAndInsertsOnlyOnce) {
    db.exec("INSERT INTO Proef (Naam) VALUES ('eerder')");
    Proef p = filled("nieuw");
    p.Opslaan();
    EXPECT_EQ(p.GetID(), db.scalar("SELECT MAX(ProefID) FROM Proef").toInt());
    EXPECT_EQ(p.GetID(), 2);
    p.Opslaan();
    EXPECT_EQ(rows(), 2);
}

TEST_F(RecordProtocol, EveryKindSurvivesAWriteAndARead) {
    Proef stored = filled("Ééntje");
    stored.Opslaan();
    Proef read;
    read.SetID(stored.GetID());
    read.Ophalen();
    EXPECT_EQ(read, stored);
    EXPECT_EQ(db.scalar("SELECT Code FROM Proef").toString(), "") << "empty text is no Null";
}

TEST_F(RecordProtocol, NullColumnsReadAsTheEmptyValueOfTheirKindOrTheirOwnRule) {
    db.exec("INSERT INTO Proef (ProefID) VALUES (5)");
    Proef p = filled("vooraf");
    p.SetID(5);
    const QDateTime before = QDateTime::currentDateTime();
    p.Ophalen();
    EXPECT_EQ(p.naam, "");
    EXPECT_EQ(p.aantal, 0);
    EXPECT_EQ(p.klein, 0);
    EXPECT_FALSE(p.ja);
    EXPECT_EQ(p.getal, 0);
    EXPECT_EQ(p.enkel, 0);
    EXPECT_TRUE(p.bedrag.isZero());
    EXPECT_EQ(p.code, "0");
    EXPECT_EQ(p.stil, 0);
    EXPECT_GE(p.moment, before.addSecs(-1));
    EXPECT_LE(p.moment, QDateTime::currentDateTime().addSecs(1));
}

TEST_F(RecordProtocol, AFetchWithoutARowLeavesTheRecordAsItWas) {
    Proef p = filled("blijft");
    p.SetID(99);
    p.Ophalen();
    Proef expected = filled("blijft");
    expected.SetID(99);
    EXPECT_EQ(p, expected);
}

TEST_F(RecordProtocol, ListsFollowTheSelectTextAndTheTypedListMatchesTheCollection) {
    Proef probe;
    EXPECT_TRUE(probe.OphalenLijst("").isEmpty());
    EXPECT_TRUE(probe.Lijst("").isEmpty());
    for (const char* naam : {"Cees", "anna", "Bert"}) {
        Proef p = filled(naam);
        p.ja = QString(naam) != "Bert";
        p.Opslaan();
    }
    const QList<Proef> sorted = probe.Lijst("Ja = true ORDER BY Naam");
    ASSERT_EQ(sorted.size(), 2);
    EXPECT_EQ(sorted[0].naam, "anna");
    EXPECT_EQ(sorted[1].naam, "Cees");

    const auto collection = probe.OphalenLijst("Ja = true ORDER BY Naam");
    ASSERT_EQ(collection.size(), 2);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(*static_cast<const Proef*>(collection[i].get()), sorted[i]);
    }
}

TEST_F(RecordProtocol, UpdateAndDeleteWorkOnTheRowOfTheKey) {
    Proef first = filled("een");
    Proef second = filled("twee");
    first.Opslaan();
    second.Opslaan();
    first.naam = "één";
    first.Bijwerken();
    second.Verwijderen();
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(db.scalar("SELECT Naam FROM Proef").toString(), "één");
}

TEST_F(RecordProtocol, AFailingWriteChangesNothingAndHandsTheErrorOnUnchanged) {
    Proef kept = filled("blijft");
    kept.Opslaan();
    db.exec(
        "CREATE TRIGGER weiger BEFORE UPDATE ON Proef BEGIN SELECT RAISE(ABORT, 'geweigerd'); "
        "END");
    db.exec(
        "CREATE TRIGGER weigerNieuw BEFORE INSERT ON Proef BEGIN "
        "SELECT RAISE(ABORT, 'geweigerd'); END");

    for (auto write : {&Proef::Bijwerken, &Proef::Opslaan}) {
        Proef p = filled("anders");
        if (write == &Proef::Bijwerken) {
            p.SetID(kept.GetID());
        }
        try {
            (p.*write)();
            ADD_FAILURE() << "the write went through";
        } catch (const Error& error) {
            EXPECT_NE(error.number(), 0);
            EXPECT_TRUE(error.description().contains("geweigerd"))
                << error.description().toStdString();
            EXPECT_EQ(clsFoutCodeVertaler().GebruikerMelding(error),
                      "Er is een fout opgetreden bij de verwerking van uw opdracht.\r\nDetails: " +
                          QString::number(error.number()) + " - " + error.description());
        }
        EXPECT_FALSE(gConnectie->inTransaction());
    }
    EXPECT_EQ(rows(), 1);
    EXPECT_EQ(db.scalar("SELECT Naam FROM Proef").toString(), "blijft");
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(RecordProtocol, WritingARowThatIsNotThereFailsWithNoCurrentRecord) {
    Proef p = filled("weg");
    p.SetID(7);
    for (auto write : {&Proef::Bijwerken, &Proef::Verwijderen}) {
        try {
            (p.*write)();
            ADD_FAILURE() << "no error";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), Error::NoCurrentRecord);
        }
    }
    EXPECT_EQ(rows(), 0);
}

TEST_F(RecordProtocol, ReadingTheRecordFromASetWithoutOneOfItsColumnsFails) {
    db.exec("INSERT INTO Proef (Naam) VALUES ('x')");
    clsDatabase().MaakConnectie();
    auto partial = gConnectie->openReadSet("SELECT ProefID, Naam FROM Proef");
    Proef p;
    try {
        p.CopyData(*partial);
        ADD_FAILURE() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), Error::ItemNotFound);
    }
}

TEST_F(RecordProtocol, ASmallWholeNumberTooLargeForItsFieldOverflows) {
    db.exec("INSERT INTO Proef (ProefID, Klein) VALUES (1, 32767), (2, 32768)");
    Proef p;
    p.SetID(1);
    p.Ophalen();
    EXPECT_EQ(p.klein, 32767);
    p.SetID(2);
    try {
        p.Ophalen();
        ADD_FAILURE() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), Error::Overflow);
    }
}

TEST_F(RecordProtocol, AMissingDatabaseIsReportedByMaakConnectieAndTheOperationFails) {
    QFile::remove(db.path());
    Proef p = filled("nergens");
    EXPECT_THROW(p.Opslaan(), Error);
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessage().text.startsWith("Error "));
    EXPECT_TRUE(
        ui.lastMessage().text.endsWith(") in procedure MaakConnectie of Class Module clsDatabase"));
}

TEST_F(RecordProtocol, AClosedSharedConnectionIsOpenedAgainByTheNextOperation) {
    Proef p = filled("eerst");
    p.Opslaan();
    closeSharedConnections();
    Proef q = filled("daarna");
    q.Opslaan();
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(gConnectie->state(), Connection::Open);
}

}  // namespace
