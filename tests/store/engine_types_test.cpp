#include <gtest/gtest.h>

#include <QDateTime>

#include "base/Currency.h"
#include "engine_fixture.h"

namespace {

// One column of a declared Jet type, a value assigned to it and what reads back.
struct RoundTrip {
    const char* declared;
    FieldType type;
    QVariant assigned;
    QVariant expected;
};

void PrintTo(const RoundTrip& c, std::ostream* os) {
    *os << c.declared << " <- " << c.assigned.toString().toStdString();
}

QVariant money(qint64 raw) {
    return QVariant::fromValue(Currency::fromRaw(raw));
}

QVariant when(int y, int m, int d, int h = 0, int min = 0, int s = 0) {
    return QVariant(QDateTime(QDate(y, m, d), QTime(h, min, s)));
}

class TypedColumn : public EngineTest {
protected:
    void createWith(const char* declared) {
        db.execute(QStringLiteral("CREATE TABLE T (Id AUTOINCREMENT, Waarde %1, PRIMARY KEY (Id))")
                       .arg(QString::fromUtf8(declared)));
        db.execute(QStringLiteral("INSERT INTO T (Waarde) VALUES (NULL)"));
    }

    std::unique_ptr<Recordset> row() {
        return db.openUpdatableSet(QStringLiteral("SELECT * FROM T"));
    }

    QVariant stored() { return scalar(QStringLiteral("SELECT Waarde FROM T")); }
};

class ValueRoundTrip : public TypedColumn, public ::testing::WithParamInterface<RoundTrip> {};

TEST_P(ValueRoundTrip, ReadsBackAsTheColumnsKind) {
    createWith(GetParam().declared);
    auto set = row();
    EXPECT_EQ(set->field(1).type, GetParam().type);
    set->setValue(QStringLiteral("waarde"), GetParam().assigned);
    set->update();

    const QVariant read = stored();
    EXPECT_EQ(read.metaType(), GetParam().expected.metaType());
    EXPECT_EQ(read, GetParam().expected);
    EXPECT_EQ(row()->value(1), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, ValueRoundTrip,
    ::testing::Values(
        RoundTrip{"CURRENCY", FieldType::Currency, money(123456789012345), money(123456789012345)},
        RoundTrip{"CURRENCY", FieldType::Currency, QVariant(0.1 + 0.2), money(3000)},
        RoundTrip{"CURRENCY", FieldType::Currency, QVariant(QStringLiteral("1.234,5678")),
                  money(12345678)},
        RoundTrip{"CURRENCY", FieldType::Currency, QVariant(7), money(70000)},
        RoundTrip{"YESNO", FieldType::Boolean, QVariant(true), QVariant(true)},
        RoundTrip{"YESNO", FieldType::Boolean, QVariant(1), QVariant(true)},
        RoundTrip{"YESNO", FieldType::Boolean, QVariant(0), QVariant(false)},
        RoundTrip{"YESNO", FieldType::Boolean, QVariant(QStringLiteral("Waar")), QVariant(true)},
        RoundTrip{"YESNO", FieldType::Boolean, QVariant(QStringLiteral("false")), QVariant(false)},
        RoundTrip{"YESNO", FieldType::Boolean, QVariant(QStringLiteral("Onwaar")), QVariant(false)},
        RoundTrip{"INTEGER", FieldType::Integer, QVariant(2.5), QVariant(2)},
        RoundTrip{"INTEGER", FieldType::Integer, QVariant(3.5), QVariant(4)},
        RoundTrip{"INTEGER", FieldType::Integer, QVariant(QStringLiteral("-12,5")), QVariant(-12)},
        RoundTrip{"INTEGER", FieldType::Integer, QVariant(true), QVariant(-1)},
        RoundTrip{"LONG", FieldType::Long, QVariant(70000), QVariant(70000)},
        RoundTrip{"LONG", FieldType::Long, QVariant(QStringLiteral(" 1.000 ")), QVariant(1000)},
        RoundTrip{"LONG", FieldType::Long, QVariant(QStringLiteral("0012345")), QVariant(12345)},
        RoundTrip{"DOUBLE", FieldType::Double, QVariant(QStringLiteral("123456789012345")),
                  QVariant(123456789012345.0)},
        RoundTrip{"DOUBLE", FieldType::Double, QVariant(QStringLiteral("3,25")), QVariant(3.25)},
        RoundTrip{"NUMBER", FieldType::Double, QVariant(19), QVariant(19.0)},
        RoundTrip{"SINGLE", FieldType::Single, QVariant(1.5), QVariant(1.5f)},
        RoundTrip{"DATETIME", FieldType::DateTime, QVariant(QStringLiteral("05-03-2024")),
                  when(2024, 3, 5)},
        RoundTrip{"DATETIME", FieldType::DateTime, QVariant(QStringLiteral("2024-03-05")),
                  when(2024, 3, 5)},
        RoundTrip{"DATETIME", FieldType::DateTime, when(2024, 12, 31, 14, 30, 15),
                  when(2024, 12, 31, 14, 30, 15)},
        RoundTrip{"DATETIME", FieldType::DateTime, QVariant(QDate(2023, 1, 2)), when(2023, 1, 2)},
        RoundTrip{"TEXT(10)", FieldType::Text, QVariant(12), QVariant(QStringLiteral("12"))},
        RoundTrip{"TEXT(10)", FieldType::Text, QVariant(2.5), QVariant(QStringLiteral("2,5"))},
        RoundTrip{"TEXT(10)", FieldType::Text, QVariant(true), QVariant(QStringLiteral("True"))},
        RoundTrip{"TEXT(10)", FieldType::Text, QVariant(QString()), QVariant(QString())},
        RoundTrip{"TEXT(10)", FieldType::Text, QVariant(QStringLiteral("0123")),
                  QVariant(QStringLiteral("0123"))},
        RoundTrip{"MEMO", FieldType::Text, QVariant(QStringLiteral("0123")),
                  QVariant(QStringLiteral("0123"))},
        RoundTrip{"MEMO", FieldType::Text, QVariant(QStringLiteral("Dé Korf € 😀 ß")),
                  QVariant(QStringLiteral("Dé Korf € 😀 ß"))},
        RoundTrip{"CURRENCY", FieldType::Currency, QVariant(), QVariant()}));

TEST_F(TypedColumn, MoneyIsStoredExactlyAsTenThousandths) {
    createWith("CURRENCY");
    auto set = row();
    set->setValue(1, money(33332));
    set->update();
    EXPECT_EQ(scalar(QStringLiteral("SELECT typeof(Waarde) || ':' || Waarde FROM T")),
              QVariant(QStringLiteral("integer:33332")));
}

TEST_F(TypedColumn, EmptyTextIsStoredAsTextNotNull) {
    createWith("TEXT(10)");
    auto set = row();
    set->setValue(1, QString(""));
    set->update();
    EXPECT_EQ(scalar(QStringLiteral("SELECT typeof(Waarde) FROM T")).toString(),
              QStringLiteral("text"));
}

struct Refusal {
    const char* declared;
    QVariant assigned;
    long number;
};

void PrintTo(const Refusal& c, std::ostream* os) {
    *os << c.declared << " <- " << c.assigned.toString().toStdString();
}

class RefusedValue : public TypedColumn, public ::testing::WithParamInterface<Refusal> {};

TEST_P(RefusedValue, RaisesItsErrorAndLeavesTheTableUnchanged) {
    createWith(GetParam().declared);
    db.execute(QStringLiteral("UPDATE T SET Waarde = 1"));
    const QVariant before = stored();

    auto set = row();
    try {
        set->setValue(1, GetParam().assigned);
        FAIL() << "value accepted";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), GetParam().number);
        EXPECT_TRUE(error.description().contains(QStringLiteral("Waarde"))) << error.what();
    }
    set->update();
    set->addNew();
    EXPECT_THROW(set->setValue(1, GetParam().assigned), Error);
    set->cancelUpdate();

    EXPECT_EQ(stored(), before);
    EXPECT_EQ(scalar(QStringLiteral("SELECT count(*) FROM T")).toInt(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Values, RefusedValue,
    ::testing::Values(
        Refusal{"INTEGER", QVariant(32768), Error::Overflow},
        Refusal{"INTEGER", QVariant(32767.5), Error::Overflow},
        Refusal{"INTEGER", QVariant(-32769), Error::Overflow},
        Refusal{"LONG", QVariant(3e9), Error::Overflow},
        Refusal{"LONG", QVariant(QStringLiteral("2147483648")), Error::Overflow},
        Refusal{"LONG", QVariant(QStringLiteral("12a")), Error::TypeMismatch},
        Refusal{"INTEGER", QVariant(QStringLiteral("abc")), Error::TypeMismatch},
        Refusal{"INTEGER", QVariant(QString()), Error::TypeMismatch},
        Refusal{"CURRENCY", QVariant(QStringLiteral("twaalf")), Error::TypeMismatch},
        Refusal{"CURRENCY", QVariant(1e300), Error::Overflow},
        Refusal{"YESNO", QVariant(QStringLiteral("misschien")), Error::TypeMismatch},
        Refusal{"DATETIME", QVariant(QStringLiteral("31-02-2024")), Error::TypeMismatch},
        Refusal{"DOUBLE", QVariant(QDate(2024, 1, 1)), Error::TypeMismatch},
        Refusal{"TEXT(5)", QVariant(QStringLiteral("zesjes")), Error::FieldTooSmall}));

TEST_F(TypedColumn, TextUpToItsLengthFits) {
    createWith("TEXT(5)");
    auto set = row();
    set->setValue(1, QStringLiteral("vijf!"));
    set->update();
    EXPECT_EQ(stored(), QVariant(QStringLiteral("vijf!")));
    EXPECT_EQ(row()->field(1).size, 5);
}

TEST_F(TypedColumn, EveryRowReadsItsOwnDateAlsoWhereTextsRepeat) {
    createWith("DATETIME");
    db.execute(QStringLiteral("DELETE FROM T"));
    // Stored texts in row order, and what each row reads back as.
    const QList<std::pair<const char*, QVariant>> rows{
        {"2024-03-05T00:00:00", when(2024, 3, 5)},
        {"2024-03-05T00:00:00", when(2024, 3, 5)},
        {"2024-03-05 14:30:00", when(2024, 3, 5, 14, 30)},
        {"2024-03-05", when(2024, 3, 5)},
        {"2024-03-06T00:00:00", when(2024, 3, 6)},
        {"geen datum", QVariant(QStringLiteral("geen datum"))},
        {"2024-03-05T00:00:00", when(2024, 3, 5)},
        {"geen datum", QVariant(QStringLiteral("geen datum"))},
    };
    for (const auto& [text, expected] : rows) {
        db.execute(QStringLiteral("INSERT INTO T (Waarde) VALUES ('%1')").arg(text));
    }
    auto readSet = db.openReadSet(QStringLiteral("SELECT Waarde FROM T ORDER BY Id"));
    auto updatable = db.openUpdatableSet(QStringLiteral("SELECT Waarde FROM T ORDER BY Id"));
    for (const auto& [text, expected] : rows) {
        SCOPED_TRACE(text);
        ASSERT_FALSE(readSet->isEOF());
        EXPECT_EQ(readSet->value(0), expected);
        EXPECT_EQ(updatable->value(0), expected);
        readSet->moveNext();
        updatable->moveNext();
    }
}

TEST_F(EngineTest, ExpressionsAreTypedFromTheirValue) {
    db.execute(
        QStringLiteral("CREATE TABLE Factuur (FactuurID AUTOINCREMENT, Nummer LONG, "
                       "Bedrag CURRENCY, PRIMARY KEY (FactuurID))"));
    db.execute(QStringLiteral("INSERT INTO Factuur (Nummer) VALUES (41)"));
    auto set = db.openUpdatableSet(
        QStringLiteral("SELECT Max(Nummer), 'x' AS t, 1.5 AS d, Bedrag AS b FROM Factuur"));
    EXPECT_EQ(set->field(0).type, FieldType::Variant);
    EXPECT_EQ(set->value(0), QVariant(41));
    EXPECT_EQ(set->value(QStringLiteral("T")), QVariant(QStringLiteral("x")));
    EXPECT_EQ(set->value(QStringLiteral("d")), QVariant(1.5));
    EXPECT_EQ(set->field(3).type, FieldType::Currency);
    EXPECT_FALSE(set->value(QStringLiteral("b")).isValid());
}

}  // namespace
