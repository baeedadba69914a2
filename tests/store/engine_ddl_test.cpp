#include <gtest/gtest.h>

#include "engine_fixture.h"

namespace {

// The schema routines' texts, run literally on a table of the earliest layout.
class SchemaTexts : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        db.execute(
            QStringLiteral("CREATE TABLE Artikel (ArtikelID AUTOINCREMENT, Nummer TEXT(10), "
                           "Omschrijving TEXT(50), Eenheid TEXT(10), Voorraad LONG, "
                           "PRIMARY KEY (ArtikelID))"));
        db.execute(
            QStringLiteral("INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad) "
                           "VALUES ('1', 'hamer', 'stuk', 5)"));
        db.execute(
            QStringLiteral("INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad) "
                           "VALUES ('2', 'zaag', 'stuk', 7)"));
    }

    Field fieldOf(const QString& column, const QString& table = QStringLiteral("Artikel")) {
        return db.openReadSet(QStringLiteral("SELECT %1 FROM %2").arg(column, table))->field(0);
    }

    int columnCount() {
        return db.openReadSet(QStringLiteral("SELECT * FROM Artikel"))->fieldCount();
    }

    QStringList column(const QString& name) {
        QStringList values;
        for (auto set = db.openReadSet(
                 QStringLiteral("SELECT %1 FROM Artikel ORDER BY ArtikelID").arg(name));
             !set->isEOF(); set->moveNext()) {
            values.append(set->value(0).isValid() ? set->value(0).toString()
                                                  : QStringLiteral("<Null>"));
        }
        return values;
    }
};

struct NewColumn {
    const char* ddl;
    const char* column;
    FieldType type;
    int size;
};

void PrintTo(const NewColumn& c, std::ostream* os) {
    *os << c.ddl;
}

class NewColumnTexts : public SchemaTexts, public ::testing::WithParamInterface<NewColumn> {};

TEST_P(NewColumnTexts, AddTheColumnOnceWithNullInOldRows) {
    const QString ddl = QString::fromUtf8(GetParam().ddl);
    const QString name = QString::fromUtf8(GetParam().column);
    db.execute(ddl);
    const Field added = fieldOf(name);
    EXPECT_EQ(added.type, GetParam().type);
    EXPECT_EQ(added.size, GetParam().size);
    EXPECT_EQ(column(name), (QStringList{"<Null>", "<Null>"}));

    const int columns = columnCount();
    EXPECT_NE(errorOf([&] { db.execute(ddl); }), 0);  // the column is already there
    EXPECT_EQ(columnCount(), columns);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, NewColumnTexts,
    ::testing::Values(NewColumn{"ALTER TABLE Artikel ADD COLUMN Merk TEXT(25)", "Merk",
                                FieldType::Text, 25},
                      NewColumn{"ALTER TABLE Artikel ADD COLUMN (Gewicht, NUMBER(8))", "Gewicht",
                                FieldType::Double, 0},
                      NewColumn{"ALTER TABLE Artikel ADD COLUMN GeenVoorraad YESNO;",
                                "GeenVoorraad", FieldType::Boolean, 0}));

TEST_F(SchemaTexts, AlterColumnChangesTheTextLengthKeepingRows) {
    Connection other;
    other.open(odbcString(path));
    other.openReadSet(QStringLiteral("SELECT Omschrijving FROM Artikel"));

    db.execute(QStringLiteral("ALTER TABLE Artikel ALTER COLUMN Omschrijving Text(80)"));

    EXPECT_EQ(fieldOf(QStringLiteral("Omschrijving")).size, 80);
    EXPECT_EQ(other.openReadSet(QStringLiteral("SELECT Omschrijving FROM Artikel"))->field(0).size,
              80);
    EXPECT_EQ(column(QStringLiteral("Omschrijving")), (QStringList{"hamer", "zaag"}));
    EXPECT_EQ(scalar(QStringLiteral("SELECT Nummer FROM Artikel WHERE Omschrijving='HAMER'")),
              QVariant(QStringLiteral("1")));

    auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Artikel WHERE ArtikelID=1"));
    set->setValue(QStringLiteral("Omschrijving"), QString(80, u'x'));
    set->update();
    EXPECT_EQ(errorOf([&] { set->setValue(QStringLiteral("Omschrijving"), QString(81, u'x')); }),
              Error::FieldTooSmall);
}

TEST_F(SchemaTexts, AlterColumnRefusesALengthTheRowsDoNotFit) {
    EXPECT_EQ(
        errorOf([&] {
            db.execute(QStringLiteral("ALTER TABLE Artikel ALTER COLUMN Omschrijving Text(4)"));
        }),
        Error::FieldTooSmall);
    EXPECT_EQ(fieldOf(QStringLiteral("Omschrijving")).size, 50);
    EXPECT_EQ(column(QStringLiteral("Omschrijving")), (QStringList{"hamer", "zaag"}));
    EXPECT_NE(
        errorOf([&] {
            db.execute(QStringLiteral("ALTER TABLE Artikel ALTER COLUMN Bestaatniet Text(4)"));
        }),
        0);
    EXPECT_NE(errorOf([&] {
                  db.execute(QStringLiteral("ALTER TABLE Onbekend ALTER COLUMN Naam Text(4)"));
              }),
              0);
}

TEST_F(SchemaTexts, AlterColumnTurnsNumbersIntoText) {
    db.execute(QStringLiteral("ALTER TABLE Artikel ALTER COLUMN Voorraad Text(10)"));
    EXPECT_EQ(fieldOf(QStringLiteral("Voorraad")).type, FieldType::Text);
    EXPECT_EQ(scalar(QStringLiteral("SELECT Voorraad FROM Artikel WHERE ArtikelID=2")),
              QVariant(QStringLiteral("7")));
    EXPECT_EQ(scalar(QStringLiteral("SELECT typeof(Voorraad) FROM Artikel WHERE ArtikelID=2")),
              QVariant(QStringLiteral("text")));
}

TEST_F(SchemaTexts, AlterColumnOnAnInvoiceKeepsItsLinesAndTheirCascade) {
    db.execute(
        QStringLiteral("CREATE TABLE Factuur (FactuurID AUTOINCREMENT, Klantnaam TEXT(20), "
                       "PRIMARY KEY (FactuurID))"));
    db.execute(
        QStringLiteral("CREATE TABLE ArtikelPerFactuur (FactuurArtikelID AUTOINCREMENT, "
                       "FactuurID LONG REFERENCES Factuur (FactuurID) ON DELETE CASCADE, "
                       "PRIMARY KEY (FactuurArtikelID))"));
    db.execute(QStringLiteral("INSERT INTO Factuur (Klantnaam) VALUES ('Aal')"));
    db.execute(QStringLiteral("INSERT INTO ArtikelPerFactuur (FactuurID) VALUES (1)"));

    db.execute(QStringLiteral("ALTER TABLE Factuur ALTER COLUMN Klantnaam Text(100)"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT count(*) FROM ArtikelPerFactuur")).toInt(), 1);
    db.execute(QStringLiteral("DELETE FROM Factuur"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT count(*) FROM ArtikelPerFactuur")).toInt(), 0);
}

TEST_F(SchemaTexts, DropWithItsStrayParenthesisFailsAndKeepsTheColumn) {
    EXPECT_NE(errorOf([&] { db.execute(QStringLiteral("ALTER TABLE Artikel DROP Eenheid)")); }), 0);
    EXPECT_EQ(column(QStringLiteral("Eenheid")), (QStringList{"stuk", "stuk"}));
}

TEST_F(SchemaTexts, NewLookupTableHasItsFixedLayout) {
    db.execute(
        QStringLiteral("CREATE TABLE Maat(MaatID   AUTOINCREMENT, Weergeven YESNO, "
                       "Naam      TEXT(15), Lengte    NUMBER , Nummer    NUMBER , "
                       "PRIMARY KEY (MaatID))"));
    auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Maat"));
    ASSERT_EQ(set->fieldCount(), 5);
    EXPECT_EQ(set->field(0).type, FieldType::Long);
    EXPECT_TRUE(set->field(0).autoIncrement);
    EXPECT_EQ(set->field(1).type, FieldType::Boolean);
    EXPECT_EQ(set->field(2).type, FieldType::Text);
    EXPECT_EQ(set->field(2).size, 15);
    EXPECT_EQ(set->field(3).type, FieldType::Double);
    EXPECT_EQ(set->field(4).type, FieldType::Double);
    for (int expectedKey : {1, 2}) {
        set->addNew();
        set->setValue(QStringLiteral("Naam"), QStringLiteral("Maat %1").arg(expectedKey));
        set->update();
        EXPECT_EQ(set->value(QStringLiteral("MaatID")), QVariant(expectedKey));
    }
    EXPECT_EQ(errorOf([&] { set->setValue(QStringLiteral("Naam"), QString(16, u'x')); }),
              Error::FieldTooSmall);
}

}  // namespace
