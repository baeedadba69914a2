#include <gtest/gtest.h>

#include <QDateTime>

#include "base/Currency.h"
#include "engine_fixture.h"

namespace {

QVariant money(qint64 raw) {
    return QVariant::fromValue(Currency::fromRaw(raw));
}

QVariant when(int y, int m, int d, int h = 0, int min = 0, int s = 0) {
    return QVariant(QDateTime(QDate(y, m, d), QTime(h, min, s)));
}

class TypedColumn : public EngineTest {
protected:
    // A table T anew, with one row holding Null in its column Waarde of the declared type.
    std::unique_ptr<Recordset> createWith(const char* declared) {
        run({"DROP TABLE IF EXISTS T"});
        db.execute(QString("CREATE TABLE T (Id AUTOINCREMENT, Waarde %1, PRIMARY KEY (Id))")
                       .arg(declared));
        db.execute("INSERT INTO T (Waarde) VALUES (NULL)");
        return db.openUpdatableSet("SELECT * FROM T");
    }

    QVariant stored() { return scalar("SELECT Waarde FROM T"); }
};

TEST_F(TypedColumn, AValueReadsBackAsTheColumnsKind) {
    const struct {
        const char* declared;
        FieldType type;
        QVariant assigned;
        QVariant expected;
    } cases[] = {
        {"CURRENCY", FieldType::Currency, money(123456789012345), money(123456789012345)},
        {"CURRENCY", FieldType::Currency, 0.1 + 0.2, money(3000)},
        {"CURRENCY", FieldType::Currency, "1.234,5678", money(12345678)},
        {"CURRENCY", FieldType::Currency, 7, money(70000)},
        {"CURRENCY", FieldType::Currency, QVariant(), QVariant()},
        {"YESNO", FieldType::Boolean, true, true},
        {"YESNO", FieldType::Boolean, "Waar", true},
        {"YESNO", FieldType::Boolean, "Onwaar", false},
        {"INTEGER", FieldType::Integer, 2.5, 2},
        {"INTEGER", FieldType::Integer, 3.5, 4},
        {"INTEGER", FieldType::Integer, "-12,5", -12},
        {"INTEGER", FieldType::Integer, true, -1},
        {"LONG", FieldType::Long, " 1.000 ", 1000},
        {"LONG", FieldType::Long, "0012345", 12345},
        {"DOUBLE", FieldType::Double, "3,25", 3.25},
        {"NUMBER", FieldType::Double, 19, 19.0},
        {"SINGLE", FieldType::Single, 1.5, 1.5f},
        {"DATETIME", FieldType::DateTime, "05-03-2024", when(2024, 3, 5)},
        {"DATETIME", FieldType::DateTime, "2024-03-05", when(2024, 3, 5)},
        {"DATETIME", FieldType::DateTime, when(2024, 12, 31, 14, 30, 15),
         when(2024, 12, 31, 14, 30, 15)},
        {"DATETIME", FieldType::DateTime, QDate(2023, 1, 2), when(2023, 1, 2)},
        {"TEXT(10)", FieldType::Text, 12, "12"},
        {"TEXT(10)", FieldType::Text, 2.5, "2,5"},
        {"TEXT(10)", FieldType::Text, true, "True"},
        {"TEXT(10)", FieldType::Text, QString(), QString()},
        {"TEXT(10)", FieldType::Text, "0123", "0123"},
        {"MEMO", FieldType::Text, "Dé Korf € 😀 ß", "Dé Korf € 😀 ß"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(QString("%1 <- %2").arg(c.declared, c.assigned.toString()).toStdString());
        auto set = createWith(c.declared);
        EXPECT_EQ(set->field(1).type, c.type);
        EXPECT_EQ(db.openReadSet("SELECT * FROM T")->text(1), std::nullopt);
        set->setValue("waarde", c.assigned);
        set->update();
        EXPECT_EQ(stored().metaType(), c.expected.metaType());
        EXPECT_EQ(stored(), c.expected);
        EXPECT_EQ(db.openUpdatableSet("SELECT * FROM T")->value(1), c.expected);
        // Text straight from either kind of set, as the value turned into text.
        const auto asText =
            c.expected.isNull() ? std::nullopt : std::optional(c.expected.toString());
        EXPECT_EQ(db.openReadSet("SELECT * FROM T")->text(1), asText);
        EXPECT_EQ(db.openUpdatableSet("SELECT * FROM T")->text(1), asText);
    }
}

TEST_F(TypedColumn, MoneyIsStoredExactlyAndTextsAsTextUpToTheirLength) {
    const std::tuple<const char*, QVariant, const char*> cases[] = {
        {"CURRENCY", money(33332), "integer:33332"},
        {"TEXT(10)", "", "text:"},
        {"TEXT(5)", "vijf!", "text:vijf!"},
    };
    for (const auto& [declared, assigned, expected] : cases) {
        auto set = createWith(declared);
        set->setValue(1, assigned);
        set->update();
        EXPECT_EQ(scalar("SELECT typeof(Waarde) || ':' || Waarde FROM T"), QVariant(expected));
    }
}

TEST_F(TypedColumn, ARefusedValueRaisesItsErrorAndLeavesTheTableUnchanged) {
    const std::tuple<const char*, QVariant, long> cases[] = {
        {"INTEGER", 32768, Error::Overflow},
        {"INTEGER", 32767.5, Error::Overflow},
        {"LONG", 3e9, Error::Overflow},
        {"LONG", "2147483648", Error::Overflow},
        {"LONG", "12a", Error::TypeMismatch},
        {"INTEGER", "abc", Error::TypeMismatch},
        {"INTEGER", QString(), Error::TypeMismatch},
        {"CURRENCY", "twaalf", Error::TypeMismatch},
        {"CURRENCY", 1e300, Error::Overflow},
        {"YESNO", "misschien", Error::TypeMismatch},
        {"DATETIME", "31-02-2024", Error::TypeMismatch},
        {"DOUBLE", QDate(2024, 1, 1), Error::TypeMismatch},
        {"TEXT(5)", "zesjes", Error::FieldTooSmall},
    };
    for (const auto& [declared, assigned, number] : cases) {
        SCOPED_TRACE(QString("%1 <- %2").arg(declared, assigned.toString()).toStdString());
        createWith(declared);
        db.execute("UPDATE T SET Waarde = 1");
        auto set = db.openUpdatableSet("SELECT * FROM T");
        const QVariant before = stored();
        const Error error = errorFrom([&] { set->setValue(1, assigned); });
        EXPECT_EQ(error.number(), number);
        EXPECT_TRUE(error.description().contains("Waarde")) << error.what();
        set->update();
        set->addNew();
        EXPECT_THROW(set->setValue(1, assigned), Error);
        set->cancelUpdate();
        EXPECT_EQ(rows("SELECT Waarde FROM T"), QStringList{before.toString()});
    }
}

TEST_F(TypedColumn, EveryRowReadsItsOwnDateAlsoWhereTextsRepeat) {
    createWith("DATETIME");
    db.execute("DELETE FROM T");
    // Stored texts in row order, and what each row reads back as.
    const std::pair<const char*, QVariant> stored[] = {
        {"2024-03-05T00:00:00", when(2024, 3, 5)},
        {"2024-03-05T00:00:00", when(2024, 3, 5)},
        {"2024-03-05 14:30:00", when(2024, 3, 5, 14, 30)},
        {"2024-03-05", when(2024, 3, 5)},
        {"2024-03-06T00:00:00", when(2024, 3, 6)},
        {"geen datum", "geen datum"},
        {"2024-03-05T00:00:00", when(2024, 3, 5)},
        {"geen datum", "geen datum"},
    };
    for (const auto& [text, expected] : stored) {
        db.execute(QString("INSERT INTO T (Waarde) VALUES ('%1')").arg(text));
    }
    auto readSet = db.openReadSet("SELECT Waarde FROM T ORDER BY Id");
    auto updatable = db.openUpdatableSet("SELECT Waarde FROM T ORDER BY Id");
    for (const auto& [text, expected] : stored) {
        SCOPED_TRACE(text);
        ASSERT_FALSE(readSet->isEOF());
        EXPECT_EQ(readSet->value(0), expected);
        EXPECT_EQ(updatable->value(0), expected);
        readSet->moveNext();
        updatable->moveNext();
    }
}

TEST_F(EngineTest, ExpressionsAreTypedFromTheirValueAndCannotBeAssigned) {
    db.execute("INSERT INTO Factuur (Nummer, Klantnaam) VALUES (41, 'Aal')");
    auto set = db.openUpdatableSet(
        "SELECT Max(Nummer), 'x' AS t, 1.5 AS d, TotaalPrijs AS b, Klantnaam + '!' AS n FROM "
        "Factuur");
    EXPECT_EQ(set->field(0).type, FieldType::Variant);
    EXPECT_EQ(set->value(0), QVariant(41));
    EXPECT_EQ(set->value("T"), QVariant("x"));
    EXPECT_EQ(set->value("d"), QVariant(1.5));
    EXPECT_EQ(set->field(3).type, FieldType::Currency);
    EXPECT_FALSE(set->value("b").isValid());
    EXPECT_EQ(set->value("n"), QVariant("Aal!"));
    EXPECT_EQ(errorOf([&] { set->setValue("n", "x"); }), 3164);
}

}  // namespace
