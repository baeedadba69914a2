// The common record pattern and the generic operations of clsDatabase, on a table of
// its own that holds one column of every kind a record can have.
#include <gtest/gtest.h>

#include <QFile>

#include "ErrorOf.h"
#include "RecordingUiService.h"
#include "TestDatabase.h"
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

    // The rules only matter when reading; the read list is the key and then the rest.
    static const persist::Columns<Proef>& writeColumns() {
        using enum persist::ReadRule;
        static const persist::Columns<Proef> columns{
            {"Naam", &Proef::naam, Plain},          {"Aantal", &Proef::aantal, Plain},
            {"Klein", &Proef::klein, Plain},        {"Ja", &Proef::ja, Plain},
            {"Getal", &Proef::getal, Plain},        {"Enkel", &Proef::enkel, Plain},
            {"Bedrag", &Proef::bedrag, Plain},      {"Moment", &Proef::moment, NullAsNow},
            {"Code", &Proef::code, NullAsZeroText}, {"Stil", &Proef::stil, OneWhenTrue},
        };
        return columns;
    }

    static const persist::Columns<Proef>& readColumns() {
        static const persist::Columns<Proef> columns = [] {
            persist::Columns<Proef> all{{"ProefID", &Proef::id}};
            all.insert(all.end(), writeColumns().begin(), writeColumns().end());
            return all;
        }();
        return columns;
    }

    auto fields() const {
        return std::tie(id, naam, aantal, klein, ja, getal, enkel, bedrag, moment, code, stil);
    }
    bool operator==(const Proef& o) const { return fields() == o.fields(); }
};

Proef filled(const QString& naam) {
    Proef p;
    std::tie(p.naam, p.aantal, p.klein, p.ja, p.getal, p.enkel, p.bedrag, p.moment, p.stil) =
        std::tuple(naam, -70000, qint16(-300), true, 1.0 / 3, 2.5f, Currency::fromRaw(12345678),
                   QDateTime(QDate(2024, 2, 29), QTime(13, 45, 10)), qint16(1));
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
}

TEST_F(RecordProtocol, InsertHandsBackTheEnginesKeyAndEveryKindIsReadAsWritten) {
    db.exec("INSERT INTO Proef (Naam) VALUES ('eerder')");
    Proef stored = filled("Ééntje");
    stored.Opslaan();
    EXPECT_EQ(stored.GetID(), 2);
    stored.Opslaan();
    EXPECT_EQ(rows(), 2) << "a stored record is inserted only once";

    Proef read;
    read.SetID(2);
    read.Ophalen();
    EXPECT_EQ(read, stored);
    EXPECT_EQ(db.scalar("SELECT typeof(Code) FROM Proef WHERE ProefID=2"), "text");
}

TEST_F(RecordProtocol, NullColumnsReadAsTheEmptyValueOfTheirKindOrTheirOwnRule) {
    Proef p = filled("vooraf");
    p.SetID(5);
    p.Ophalen();
    Proef expected = filled("vooraf");
    expected.id = 5;
    EXPECT_EQ(p, expected) << "without a row the record keeps what it had";

    db.exec("INSERT INTO Proef (ProefID) VALUES (5)");
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    p.Ophalen();
    EXPECT_GE(p.moment, before);
    EXPECT_LE(p.moment, QDateTime::currentDateTime().addSecs(1));
    expected = Proef();
    expected.id = 5;
    expected.code = "0";
    expected.moment = p.moment;
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
    const auto collection = probe.OphalenLijst("Ja = true ORDER BY Naam");
    ASSERT_EQ(sorted.size(), 2);
    ASSERT_EQ(collection.size(), 2);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(sorted[i].naam, i == 0 ? "anna" : "Cees");
        EXPECT_EQ(*static_cast<const Proef*>(collection[i].get()), sorted[i]);
    }
}

TEST_F(RecordProtocol, UpdateAndDeleteWorkOnTheRowOfTheKeyOrFailWithoutIt) {
    Proef first = filled("een");
    Proef second = filled("twee");
    first.Opslaan();
    second.Opslaan();
    first.naam = "één";
    first.Bijwerken();
    second.Verwijderen();
    EXPECT_EQ(db.scalar("SELECT group_concat(Naam) FROM Proef").toString(), "één");

    second.SetID(7);
    EXPECT_EQ(errorOf([&] { second.Bijwerken(); }), Error::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { second.Verwijderen(); }), Error::NoCurrentRecord);
    EXPECT_EQ(rows(), 1);
}

TEST_F(RecordProtocol, AFailingWriteChangesNothingAndHandsTheErrorOnUnchanged) {
    Proef kept = filled("blijft");
    kept.Opslaan();
    db.exec(
        "CREATE TRIGGER nee BEFORE UPDATE ON Proef BEGIN SELECT RAISE(ABORT, 'geweigerd'); END;"
        "CREATE TRIGGER neen BEFORE INSERT ON Proef BEGIN SELECT RAISE(ABORT, 'geweigerd'); END");

    for (auto write : {&Proef::Bijwerken, &Proef::Opslaan}) {
        Proef p = filled("anders");
        if (write == &Proef::Bijwerken) {
            p.SetID(kept.GetID());
        }
        const Error error = errorFrom([&] { (p.*write)(); });
        EXPECT_NE(error.number(), 0);
        EXPECT_TRUE(error.description().contains("geweigerd"));
        EXPECT_EQ(clsFoutCodeVertaler().GebruikerMelding(error),
                  "Er is een fout opgetreden bij de verwerking van uw opdracht.\r\nDetails: " +
                      QString::number(error.number()) + " - " + error.description());
        EXPECT_FALSE(gConnectie->inTransaction());
    }
    EXPECT_EQ(db.scalar("SELECT group_concat(Naam) FROM Proef").toString(), "blijft");
    EXPECT_TRUE(ui.messages.isEmpty());
}

TEST_F(RecordProtocol, ReadingFailsOnAMissingColumnOrASmallNumberTooLargeForItsField) {
    db.exec("INSERT INTO Proef (ProefID, Klein) VALUES (1, 32767), (2, 32768)");
    clsDatabase().MaakConnectie();
    Proef p;
    EXPECT_EQ(errorOf([&] { p.CopyData(*gConnectie->openReadSet("SELECT ProefID FROM Proef")); }),
              Error::ItemNotFound);
    p.SetID(1);
    p.Ophalen();
    EXPECT_EQ(p.klein, 32767);
    p.SetID(2);
    EXPECT_EQ(errorOf([&] { p.Ophalen(); }), Error::Overflow);
}

TEST_F(RecordProtocol, TheSharedConnectionIsOpenedAgainAfterCloseAndReportsAMissingFile) {
    filled("eerst").Opslaan();
    closeSharedConnections();
    filled("daarna").Opslaan();
    EXPECT_EQ(rows(), 2);
    EXPECT_TRUE(ui.messages.isEmpty());

    closeSharedConnections();
    QFile::remove(db.path());
    EXPECT_THROW(filled("nergens").Opslaan(), Error);
    EXPECT_FALSE(QFile::exists(db.path()));
    ASSERT_EQ(ui.messages.size(), 1);
    EXPECT_TRUE(ui.lastMessage().text.startsWith("Error "));
    EXPECT_TRUE(
        ui.lastMessage().text.endsWith(") in procedure MaakConnectie of Class Module clsDatabase"));
}

}  // namespace
