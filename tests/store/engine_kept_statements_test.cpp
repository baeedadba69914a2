#include <gtest/gtest.h>

#include <QFile>

#include "engine_fixture.h"

// The engine keeps the statements it writes rows with prepared on the connection. What is
// written must not depend on that: not after the table changed under a kept statement, not
// after the connection was closed or opened on another file, not when more texts come by
// than are kept.
namespace {

class KeptStatementsTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        db.execute(
            QStringLiteral("CREATE TABLE Artikel (ArtikelID AUTOINCREMENT, Code LONG, "
                           "Naam TEXT(20), PRIMARY KEY (ArtikelID))"));
    }

    void addArticle(const QVariant& code, const QString& naam) {
        auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Artikel WHERE 1=2"));
        set->addNew();
        set->setValue(QStringLiteral("Code"), code);
        set->setValue(QStringLiteral("Naam"), naam);
        set->update();
    }

    // Each stored value with SQLite's kind of it, row by row.
    QStringList stored(const QString& columns) {
        QStringList result;
        auto set = db.openReadSet(
            QStringLiteral("SELECT %1 FROM Artikel ORDER BY ArtikelID").arg(columns));
        for (; !set->isEOF(); set->moveNext()) {
            QStringList row;
            for (int i = 0; i < set->fieldCount(); ++i) {
                row.append(set->value(i).toString());
            }
            result.append(row.join(u'|'));
        }
        return result;
    }
};

TEST_F(KeptStatementsTest, AnInsertAfterAlterColumnStoresByTheNewType) {
    addArticle(5, QStringLiteral("Bout"));
    db.execute(QStringLiteral("ALTER TABLE Artikel ALTER COLUMN Code Text(10)"));
    // The same INSERT text as before: a statement prepared for a number column would
    // store "007" as the number 7.
    addArticle(QStringLiteral("007"), QStringLiteral("Moer"));
    EXPECT_EQ(stored(QStringLiteral("Code, typeof(Code), Naam")),
              (QStringList{"5|text|Bout", "007|text|Moer"}));
}

TEST_F(KeptStatementsTest, AnInsertIntoARebuiltTableFindsItsColumnsAnew) {
    addArticle(5, QStringLiteral("Bout"));
    db.execute(QStringLiteral("DROP TABLE Artikel"));
    db.execute(
        QStringLiteral("CREATE TABLE Artikel (Naam TEXT(20), Extra TEXT(5), Code TEXT(10), "
                       "ArtikelID AUTOINCREMENT, PRIMARY KEY (ArtikelID))"));
    addArticle(QStringLiteral("007"), QStringLiteral("Moer"));
    EXPECT_EQ(stored(QStringLiteral("ArtikelID, Code, typeof(Code), Naam, typeof(Extra)")),
              QStringList{"1|007|text|Moer|null"});
}

TEST_F(KeptStatementsTest, AfterCloseASetNeverWritesToTheFileOpenedNext) {
    addArticle(1, QStringLiteral("Bout"));
    auto old = db.openUpdatableSet(QStringLiteral("SELECT * FROM Artikel"));
    db.close();

    const QString other = dir.filePath(QStringLiteral("ander.daa"));
    ASSERT_TRUE(QFile::copy(path, other));
    db.open(connectionString(other));
    db.execute(QStringLiteral("DELETE FROM Artikel"));
    old->setValue(QStringLiteral("Naam"), QStringLiteral("Moer"));
    EXPECT_EQ(errorOf([&] { old->update(); }), 3704);
    addArticle(2, QStringLiteral("Ring"));
    EXPECT_EQ(stored(QStringLiteral("Code, Naam")), QStringList{"2|Ring"});

    db.close();
    db.open(connectionString(path));
    EXPECT_EQ(stored(QStringLiteral("Code, Naam")), QStringList{"1|Bout"});
}

TEST_F(KeptStatementsTest, MoreTextsThanAreKeptAreAllWrittenRight) {
    db.execute(
        QStringLiteral("CREATE TABLE Velden (Id AUTOINCREMENT, A LONG, B LONG, C LONG, "
                       "D LONG, E LONG, F LONG, PRIMARY KEY (Id))"));
    const QStringList names{"A", "B", "C", "D", "E", "F"};
    QStringList expected;
    auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Velden WHERE 1=2"));
    // Every choice of assigned fields gives its own INSERT; twice over, so texts that were
    // let go are prepared again.
    for (int round = 0; round < 2; ++round) {
        for (int chosen = 1; chosen < 64; ++chosen) {
            SCOPED_TRACE(chosen);
            set->addNew();
            QStringList row;
            for (int bit = 0; bit < names.size(); ++bit) {
                const bool assigned = (chosen & (1 << bit)) != 0;
                if (assigned) {
                    set->setValue(names[bit], chosen * 10 + bit);
                }
                row.append(assigned ? QString::number(chosen * 10 + bit) : QStringLiteral("-"));
            }
            set->update();
            expected.append(row.join(u'|'));
        }
    }
    QStringList actual;
    for (auto rows = db.openReadSet(QStringLiteral(
             "SELECT ifnull(A,'-') || '|' || ifnull(B,'-') || '|' || ifnull(C,'-') || '|' || "
             "ifnull(D,'-') || '|' || ifnull(E,'-') || '|' || ifnull(F,'-') FROM Velden "
             "ORDER BY Id"));
         !rows->isEOF(); rows->moveNext()) {
        actual.append(rows->value(0).toString());
    }
    EXPECT_EQ(actual, expected);
}

TEST_F(KeptStatementsTest, UpdatesAndDeletesThroughKeptStatementsFindTheirRows) {
    for (int code = 1; code <= 3; ++code) {
        addArticle(code, QStringLiteral("Bout"));
    }
    auto set = db.openUpdatableSet(QStringLiteral("SELECT * FROM Artikel ORDER BY ArtikelID"));
    for (; !set->isEOF(); set->moveNext()) {
        set->setValue(QStringLiteral("Naam"), QStringLiteral("Moer %1").arg(set->value(1).toInt()));
        set->update();
    }
    set->moveFirst();
    set->deleteCurrent();
    set->moveNext();
    set->deleteCurrent();
    EXPECT_EQ(stored(QStringLiteral("Code, Naam")), QStringList{"3|Moer 3"});
}

}  // namespace
