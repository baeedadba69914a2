#include <gtest/gtest.h>

#include <QFile>

#include "engine_fixture.h"

namespace {

class RecordsetTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        run({"DROP TABLE Klant",
             "CREATE TABLE Klant (KlantID AUTOINCREMENT, Naam TEXT(50), Adres TEXT(50), Code LONG "
             "UNIQUE, Zichtbaar YESNO, PRIMARY KEY (KlantID))"});
    }

    qint32 addCustomer(const QString& naam, const QString& adres = "", const QVariant& code = {}) {
        auto set = db.openUpdatableSet("SELECT * FROM Klant WHERE 1=2");
        set->addNew();
        set->setValue("Naam", naam);
        set->setValue("Adres", adres);
        set->setValue("Code", code);
        set->setValue("Zichtbaar", true);
        set->update();
        return set->value("KlantID").toInt();
    }

    QStringList names() { return rows("SELECT Naam FROM Klant ORDER BY KlantID"); }
};

TEST_F(RecordsetTest, InsertHandsBackTheEnginesKeyAndUpdateAndDeleteTouchOnlyTheirRow) {
    for (int key = 1; key <= 4; ++key) {
        EXPECT_EQ(addCustomer("Aal"), key);
    }
    auto set = db.openUpdatableSet("SELECT * FROM Klant WHERE KlantID>1 ORDER BY KlantID");
    for (; !set->isEOF(); set->moveNext()) {
        set->setValue("naam", QString("Baars " + set->value(0).toString()));
        set->update();
    }
    EXPECT_EQ(names(), (QStringList{"Aal", "Baars 2", "Baars 3", "Baars 4"}));
    set->moveFirst();
    set->deleteCurrent();
    set->moveNext();
    set->deleteCurrent();
    EXPECT_EQ(names(), (QStringList{"Aal", "Baars 4"}));
    EXPECT_EQ(set->recordCount(), 1);

    auto one = db.openUpdatableSet("SELECT * FROM Klant WHERE KlantID=1");
    one->deleteCurrent();
    EXPECT_EQ(one->recordCount(), 0);
    EXPECT_EQ(errorOf([&] { one->value(0); }), 3021);
    EXPECT_EQ(names(), QStringList{"Baars 4"});
    db.execute("DELETE FROM Klant");
    // Keys are never handed out twice, not even after the last row is gone.
    EXPECT_EQ(addCustomer("Pietersen"), 5);
    EXPECT_EQ(db.lastInsertId(), 5);
}

TEST_F(RecordsetTest, WithoutTheKeyARowIsFoundByAllItsValues) {
    addCustomer("Aal", "Dijk 1");
    addCustomer("Aal", "Dijk 2");
    auto set = db.openUpdatableSet("SELECT Naam, Adres FROM Klant ORDER BY Adres DESC");
    set->setValue(0, "Baars");
    set->moveNext();  // moving on writes the pending change, as the classic sets do
    EXPECT_EQ(names(), (QStringList{"Aal", "Baars"}));
    set->deleteCurrent();
    EXPECT_EQ(names(), QStringList{"Baars"});
}

TEST_F(RecordsetTest, WithoutACurrentRowOrWithTheRowGoneNothingIsWritten) {
    addCustomer("Aal");
    auto empty = db.openUpdatableSet("SELECT * FROM Klant WHERE KlantID=0");
    EXPECT_TRUE(empty->isEOF() && empty->isBOF());
    EXPECT_EQ(errorOf([&] { empty->setValue("Adres", "x"); }), 3021);
    EXPECT_EQ(errorOf([&] { empty->deleteCurrent(); }), 3021);
    EXPECT_EQ(errorOf([&] { empty->moveNext(); }), 3021);

    auto set = db.openUpdatableSet("SELECT * FROM Klant");
    db.execute("DELETE FROM Klant");
    set->setValue("Adres", "Dijk");
    EXPECT_EQ(errorOf([&] { set->update(); }), 3197);
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(RecordsetTest, ANewRowStaysWithTheCallerAfterAFailedWriteUntilDropped) {
    addCustomer("Aal", "", 1);
    auto set = db.openUpdatableSet("SELECT * FROM Klant");
    set->addNew();
    set->setValue("Naam", "Baars");
    set->setValue("Code", 1);
    EXPECT_EQ(errorOf([&] { set->update(); }), 19);
    set->setValue("Code", 2);
    set->update();
    EXPECT_EQ(set->value(0), QVariant(2));
    EXPECT_EQ(set->recordCount(), 2);

    set->addNew();
    set->setValue("Naam", "Carper");
    set->deleteCurrent();
    EXPECT_EQ(names(), (QStringList{"Aal", "Baars"}));
    EXPECT_EQ(set->value("Naam"), QVariant("Baars"));
}

TEST_F(RecordsetTest, ReadSetStreamsForwardOnly) {
    for (const char* naam : {"Aal", "Baars", "Carper"}) {
        addCustomer(naam);
    }
    auto set = db.openReadSet("SELECT * FROM Klant WHERE Zichtbaar = true");
    EXPECT_FALSE(set->isUpdatable());
    EXPECT_EQ(set->recordCount(), -1);
    EXPECT_EQ(set->field(0).type, FieldType::Long);
    EXPECT_TRUE(set->field(0).primaryKey);
    EXPECT_TRUE(set->field(0).autoIncrement);
    EXPECT_EQ(set->value("ZICHTBAAR"), QVariant(true));
    EXPECT_EQ(set->fieldIndex("Bestaatniet"), -1);
    EXPECT_EQ(errorOf([&] { set->value("Bestaatniet"); }), 3265);
    EXPECT_EQ(errorOf([&] { set->value(99); }), 3265);
    int count = 0;
    for (; !set->isEOF(); set->moveNext()) {
        ++count;
    }
    EXPECT_EQ(count, 3);
    EXPECT_FALSE(set->isBOF());
    EXPECT_EQ(errorOf([&] { set->value(0); }), 3021);
    EXPECT_EQ(errorOf([&] { set->moveFirst(); }), 3219);
    EXPECT_EQ(errorOf([&] { set->addNew(); }), 3251);
    // Having read to the end, the set no longer holds the file: another connection writes.
    Connection other;
    other.open(odbcString(path));
    EXPECT_EQ(other.execute("UPDATE Klant SET Adres='Dijk'"), 3);
}

TEST_F(RecordsetTest, AColumnOfTwoTablesIsReachedAndWrittenAsTableColumn) {
    addCustomer("Aal", "Klantstraat 1");
    db.execute("UPDATE Instellingen SET Adres = 'Bedrijfsweg 2'");
    for (auto open : {&Connection::openReadSet, &Connection::openUpdatableSet}) {
        auto set = (db.*open)("SELECT * FROM Klant, Instellingen");
        EXPECT_EQ(set->value("Klant.Adres"), QVariant("Klantstraat 1"));
        EXPECT_EQ(set->value("instellingen.adres"), QVariant("Bedrijfsweg 2"));
        EXPECT_EQ(set->value("[Instellingen].[Adres]"), QVariant("Bedrijfsweg 2"));
        EXPECT_EQ(set->field(set->fieldIndex("Instellingen.Adres")).table, "Instellingen");
    }
    auto set = db.openUpdatableSet("SELECT * FROM Klant, Instellingen");
    set->setValue("Instellingen.Adres", "Nieuwe weg 3");
    set->update();
    EXPECT_EQ(rows("SELECT Klant.Adres, Instellingen.Adres FROM Klant, Instellingen"),
              QStringList{"Klantstraat 1|Nieuwe weg 3"});
    EXPECT_EQ(errorOf([&] { set->deleteCurrent(); }), 3027);
}

// The engine keeps the statements it writes rows with prepared on the connection. What is
// written must not depend on that: not after the table changed under a kept statement, not
// after the connection was closed or opened on another file, not when more texts come by
// than are kept.
TEST_F(RecordsetTest, AKeptInsertAfterTheTableChangedStoresByItsNewLayout) {
    addCustomer("Bout", "", 5);
    db.execute("ALTER TABLE Klant ALTER COLUMN Code Text(10)");
    // The same INSERT text as before: a statement prepared for a number column would
    // store "007" as the number 7.
    addCustomer("Moer", "", "007");
    EXPECT_EQ(db.openReadSet("SELECT Code FROM Klant")->field(0).type, FieldType::Text);
    EXPECT_EQ(rows("SELECT Code, typeof(Code), Naam FROM Klant"),
              (QStringList{"5|text|Bout", "007|text|Moer"}));

    run({"DROP TABLE Klant",
         "CREATE TABLE Klant (Naam TEXT(20), Extra TEXT(5), Code LONG, Zichtbaar YESNO, Adres "
         "TEXT(9), KlantID AUTOINCREMENT, PRIMARY KEY (KlantID))"});
    addCustomer("Ring", "", "008");
    EXPECT_EQ(rows("SELECT KlantID, Code, typeof(Code), Naam, typeof(Extra) FROM Klant"),
              QStringList{"1|8|integer|Ring|null"});
}

TEST_F(RecordsetTest, AfterCloseASetNeverWritesToTheFileOpenedNext) {
    addCustomer("Bout");
    auto old = db.openUpdatableSet("SELECT * FROM Klant");
    db.close();

    const QString other = data.file("ander.daa");
    ASSERT_TRUE(QFile::copy(path, other));
    db.open(connectionString(other));
    db.execute("DELETE FROM Klant");
    old->setValue("Adres", "Dijk");
    EXPECT_EQ(errorOf([&] { old->update(); }), 3704);
    addCustomer("Ring");
    EXPECT_EQ(names(), QStringList{"Ring"});

    db.close();
    db.open(connectionString(path));
    EXPECT_EQ(names(), QStringList{"Bout"});
}

TEST_F(RecordsetTest, MoreTextsThanAreKeptAreAllWrittenRight) {
    db.execute(
        "CREATE TABLE Velden (Id AUTOINCREMENT, A LONG, B LONG, C LONG, D LONG, E LONG, F LONG, "
        "PRIMARY KEY (Id))");
    QStringList expected;
    auto set = db.openUpdatableSet("SELECT * FROM Velden WHERE 1=2");
    // Every choice of assigned fields gives its own INSERT; twice over, so texts that were
    // let go are prepared again.
    for (int n = 0; n < 126; ++n) {
        const int chosen = n % 63 + 1;
        set->addNew();
        QStringList row;
        for (int field = 1; field <= 6; ++field) {
            const bool assigned = (chosen & (1 << (field - 1))) != 0;
            if (assigned) {
                set->setValue(field, n * 10 + field);
            }
            row.append(assigned ? QString::number(n * 10 + field) : "<Null>");
        }
        set->update();
        expected.append(row.join(u'|'));
    }
    EXPECT_EQ(rows("SELECT A, B, C, D, E, F FROM Velden ORDER BY Id"), expected);
}

}  // namespace
