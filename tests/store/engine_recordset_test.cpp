#include <gtest/gtest.h>

#include "engine_fixture.h"

namespace {

class RecordsetTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        db.execute(
            QStringLiteral("CREATE TABLE Klant (KlantID AUTOINCREMENT, Naam TEXT(50), "
                           "Adres TEXT(50), Zichtbaar YESNO, PRIMARY KEY (KlantID))"));
        db.execute(
            QStringLiteral("CREATE TABLE Instellingen (InstellingenId AUTOINCREMENT, "
                           "Adres TEXT(50), PRIMARY KEY (InstellingenId))"));
    }

    qint32 addCustomer(const QString& naam, const QString& adres = QString()) {
        auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Klant WHERE KlantID=0"));
        set->addNew();
        set->setValue(QStringLiteral("Naam"), naam);
        set->setValue(QStringLiteral("Adres"), adres);
        set->setValue(QStringLiteral("Zichtbaar"), true);
        set->update();
        return set->value(QStringLiteral("KlantID")).toInt();
    }

    QStringList names() {
        QStringList result;
        for (auto set = db.openReadSet(QStringLiteral("SELECT Naam FROM Klant ORDER BY KlantID"));
             !set->isEOF(); set->moveNext()) {
            result.append(set->value(0).toString());
        }
        return result;
    }
};

TEST_F(RecordsetTest, InsertHandsBackTheEnginesKey) {
    EXPECT_EQ(addCustomer(QStringLiteral("Jansen")), 1);
    EXPECT_EQ(db.lastInsertId(), 1);
    db.execute(QStringLiteral("DELETE FROM Klant"));
    // Keys are never handed out twice, not even after the last row is gone.
    EXPECT_EQ(addCustomer(QStringLiteral("Pietersen")), 2);
    EXPECT_EQ(db.lastInsertId(), 2);
    EXPECT_EQ(names(), QStringList{QStringLiteral("Pietersen")});
}

TEST_F(RecordsetTest, UpdateAndDeleteTouchOnlyTheirRowByKey) {
    addCustomer(QStringLiteral("Aal"));
    const qint32 middle = addCustomer(QStringLiteral("Aal"));
    addCustomer(QStringLiteral("Aal"));

    auto set =
        db.openUpdatableSet(QStringLiteral("SELECT * FROM Klant WHERE KlantID=%1").arg(middle));
    set->setValue(QStringLiteral("naam"), QStringLiteral("Baars"));
    set->update();
    EXPECT_EQ(names(), (QStringList{"Aal", "Baars", "Aal"}));

    set->deleteCurrent();
    EXPECT_EQ(names(), (QStringList{"Aal", "Aal"}));
    EXPECT_EQ(set->recordCount(), 0);
    EXPECT_EQ(errorOf([&] { set->value(0); }), 3021);
}

TEST_F(RecordsetTest, DeletingAnUnsavedNewRowOnlyDropsIt) {
    addCustomer(QStringLiteral("Aal"));
    auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Klant"));
    set->addNew();
    set->setValue(QStringLiteral("Naam"), QStringLiteral("Baars"));
    set->deleteCurrent();
    EXPECT_EQ(names(), QStringList{"Aal"});
    EXPECT_EQ(set->value(QStringLiteral("Naam")), QVariant(QStringLiteral("Aal")));
}

TEST_F(RecordsetTest, WithoutTheKeyARowIsFoundByAllItsValues) {
    addCustomer(QStringLiteral("Aal"), QStringLiteral("Dijk 1"));
    addCustomer(QStringLiteral("Aal"), QStringLiteral("Dijk 2"));
    auto set =
        db.openUpdatableSet(QStringLiteral("SELECT Naam, Adres FROM Klant ORDER BY Adres DESC"));
    set->setValue(0, QStringLiteral("Baars"));
    set->moveNext();  // moving on writes the pending change, as the classic sets do
    EXPECT_EQ(names(), (QStringList{"Aal", "Baars"}));
    set->deleteCurrent();
    EXPECT_EQ(names(), QStringList{"Baars"});
}

TEST_F(RecordsetTest, WithoutACurrentRowNothingIsWritten) {
    addCustomer(QStringLiteral("Aal"));
    auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Klant WHERE KlantID=0"));
    EXPECT_TRUE(set->isEOF());
    EXPECT_TRUE(set->isBOF());
    EXPECT_EQ(errorOf([&] { set->setValue(QStringLiteral("Naam"), QStringLiteral("x")); }), 3021);
    EXPECT_EQ(errorOf([&] { set->deleteCurrent(); }), 3021);
    EXPECT_EQ(errorOf([&] { set->moveNext(); }), 3021);
    EXPECT_EQ(names(), QStringList{"Aal"});
}

TEST_F(RecordsetTest, ARowChangedMeanwhileIsNotOverwritten) {
    const qint32 id = addCustomer(QStringLiteral("Aal"));
    auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Klant"));
    db.execute(QStringLiteral("DELETE FROM Klant WHERE KlantID=%1").arg(id));
    set->setValue(QStringLiteral("Naam"), QStringLiteral("Baars"));
    EXPECT_EQ(errorOf([&] { set->update(); }), 3197);
    EXPECT_TRUE(names().isEmpty());
}

TEST_F(RecordsetTest, AFailedWriteLeavesTheEditForTheCaller) {
    db.execute(
        QStringLiteral("CREATE TABLE Uniek (Id AUTOINCREMENT, Code TEXT(5) UNIQUE, "
                       "PRIMARY KEY (Id))"));
    db.execute(QStringLiteral("INSERT INTO Uniek (Code) VALUES ('A')"));
    auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Uniek WHERE 1=2"));
    set->addNew();
    set->setValue(1, QStringLiteral("A"));
    EXPECT_EQ(errorOf([&] { set->update(); }), 19);
    set->setValue(1, QStringLiteral("B"));
    set->update();
    EXPECT_EQ(set->value(0), QVariant(2));
    EXPECT_EQ(set->recordCount(), 1);
}

TEST_F(RecordsetTest, ReadSetStreamsForwardOnly) {
    for (const char* naam : {"Aal", "Baars", "Carper"}) {
        addCustomer(QString::fromUtf8(naam));
    }
    auto set = db.openReadSet(QStringLiteral("SELECT * FROM Klant WHERE Zichtbaar = true"));
    EXPECT_FALSE(set->isUpdatable());
    EXPECT_EQ(set->recordCount(), -1);
    EXPECT_EQ(set->field(0).type, FieldType::Long);
    EXPECT_TRUE(set->field(0).primaryKey);
    EXPECT_TRUE(set->field(0).autoIncrement);
    EXPECT_EQ(set->value(QStringLiteral("ZICHTBAAR")), QVariant(true));
    int rows = 0;
    for (; !set->isEOF(); set->moveNext()) {
        ++rows;
    }
    EXPECT_EQ(rows, 3);
    EXPECT_FALSE(set->isBOF());
    EXPECT_EQ(errorOf([&] { set->value(0); }), 3021);
    EXPECT_EQ(errorOf([&] { set->moveFirst(); }), 3219);
    EXPECT_EQ(errorOf([&] { set->addNew(); }), 3251);
    // Having read to the end, the set no longer holds the file: another connection writes.
    Connection other;
    other.open(odbcString(path));
    EXPECT_EQ(other.execute(QStringLiteral("UPDATE Klant SET Naam='Dorade'")), 3);
}

TEST_F(RecordsetTest, UnknownFieldIsItemNotFound) {
    addCustomer(QStringLiteral("Aal"));
    auto set = db.openReadSet(QStringLiteral("SELECT * FROM Klant"));
    EXPECT_EQ(set->fieldIndex(QStringLiteral("Bestaatniet")), -1);
    EXPECT_EQ(errorOf([&] { set->value(QStringLiteral("Bestaatniet")); }), 3265);
    EXPECT_EQ(errorOf([&] { set->value(99); }), 3265);
}

TEST_F(RecordsetTest, AColumnOfTwoTablesIsReachedAsTableColumn) {
    addCustomer(QStringLiteral("Aal"), QStringLiteral("Klantstraat 1"));
    db.execute(QStringLiteral("INSERT INTO Instellingen (Adres) VALUES ('Bedrijfsweg 2')"));
    for (auto open : {&Connection::openReadSet, &Connection::openUpdatableSet}) {
        auto set = (db.*open)(QStringLiteral("SELECT * FROM Klant, Instellingen"));
        EXPECT_EQ(set->value(QStringLiteral("Klant.Adres")),
                  QVariant(QStringLiteral("Klantstraat 1")));
        EXPECT_EQ(set->value(QStringLiteral("instellingen.adres")),
                  QVariant(QStringLiteral("Bedrijfsweg 2")));
        EXPECT_EQ(set->value(QStringLiteral("[Instellingen].[Adres]")),
                  QVariant(QStringLiteral("Bedrijfsweg 2")));
        EXPECT_EQ(set->field(set->fieldIndex(QStringLiteral("Instellingen.Adres"))).table,
                  QStringLiteral("Instellingen"));
    }
}

TEST_F(RecordsetTest, AJoinedRowIsWrittenToTheTableOfTheChangedFields) {
    addCustomer(QStringLiteral("Aal"), QStringLiteral("Klantstraat 1"));
    db.execute(QStringLiteral("INSERT INTO Instellingen (Adres) VALUES ('Bedrijfsweg 2')"));
    auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Klant, Instellingen"));
    set->setValue(QStringLiteral("Instellingen.Adres"), QStringLiteral("Nieuwe weg 3"));
    set->update();
    EXPECT_EQ(scalar(QStringLiteral("SELECT Adres FROM Instellingen")),
              QVariant(QStringLiteral("Nieuwe weg 3")));
    EXPECT_EQ(scalar(QStringLiteral("SELECT Adres FROM Klant")),
              QVariant(QStringLiteral("Klantstraat 1")));
    EXPECT_EQ(errorOf([&] { set->deleteCurrent(); }), 3027);
}

TEST_F(RecordsetTest, AnExpressionCannotBeAssigned) {
    addCustomer(QStringLiteral("Aal"));
    auto set = db.openUpdatableSet(QStringLiteral("SELECT Naam + '!' AS Roep FROM Klant"));
    EXPECT_EQ(set->value(0), QVariant(QStringLiteral("Aal!")));
    EXPECT_EQ(errorOf([&] { set->setValue(0, QStringLiteral("x")); }), 3164);
}

}  // namespace
