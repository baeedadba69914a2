// The money of an invoice: line amounts, the VAT column of a line, and saving an invoice
// with its lines and totals.
#include <gtest/gtest.h>

#include "RecordingUiService.h"
#include "TestDatabase.h"
#include "records/clsObjArtikelPerFactuur.h"
#include "records/clsObjBTW.h"
#include "records/clsObjFactuur.h"
#include "records/clsObjKlant.h"

namespace {

Currency money(double amount) {
    return Currency::fromDouble(amount);
}

struct AmountCase {
    double prijs, aantal, korting;
    double total, discount;
};

void PrintTo(const AmountCase& c, std::ostream* out) {
    *out << c.prijs << " x " << c.aantal << " less " << c.korting << "%";
}

class LineAmounts : public ::testing::TestWithParam<AmountCase> {};

TEST_P(LineAmounts, AreEachRoundedOnceToTheTenThousandth) {
    const auto& c = GetParam();
    EXPECT_EQ(clsObjArtikelPerFactuur::lineTotal(money(c.prijs), c.aantal, c.korting),
              money(c.total));
    EXPECT_EQ(clsObjArtikelPerFactuur::discountAmount(money(c.prijs), c.aantal, c.korting),
              money(c.discount));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LineAmounts,
    ::testing::Values(
        // Together 3.7036, one ten-thousandth more than price times quantity: kept so.
        AmountCase{1.2345, 3, 10, 3.3332, 0.3704}, AmountCase{1.2345, 3, 0, 3.7035, 0},
        AmountCase{1.2345, 3, 100, 0, 3.7035}, AmountCase{19.99, 2.5, 0, 49.975, 0},
        AmountCase{0.3333, 1.5, 33, 0.335, 0.165}, AmountCase{-12.5, 2, 10, -22.5, -2.5}));

TEST(LineVat, IsTheLineTotalTimesThePercentageRoundedOnce) {
    EXPECT_EQ(clsObjArtikelPerFactuur::vatAmount(money(3.3332), 21), money(0.7));
    EXPECT_EQ(clsObjArtikelPerFactuur::vatAmount(money(100.0001), 9), money(9.0000));
    EXPECT_EQ(clsObjArtikelPerFactuur::vatAmount(money(0.0005), 10), money(0.0000))
        << "0.00005 is a half and goes to the even neighbour";
    EXPECT_EQ(clsObjArtikelPerFactuur::vatAmount(money(0.0015), 10), money(0.0002));
    EXPECT_EQ(clsObjArtikelPerFactuur::vatAmount(money(50), 0), money(0));
}

struct ColumnCase {
    double btw1, btw2, tarief;
    int column;  // 1 or 2
};

void PrintTo(const ColumnCase& c, std::ostream* out) {
    *out << c.tarief << "% against " << c.btw1 << "/" << c.btw2;
}

class VatColumn : public ::testing::TestWithParam<ColumnCase> {
protected:
    TestDatabase db;
    RecordingUiService ui;
};

TEST_P(VatColumn, FollowsTheRateThePercentageIsOrIsNearest) {
    const auto& c = GetParam();
    clsObjBTW rates;
    rates.setBTW1(c.btw1);
    rates.setBTW2(c.btw2);
    rates.Opslaan();
    clsObjFactuur head;
    head.setNummer("1");
    head.setBTWId(rates.BTWId());
    head.Opslaan();

    // Once against the invoice's own VAT record, once against the row in use.
    db.exec("UPDATE BTW SET Zichtbaar = (BTWId = " + QString::number(rates.BTWId()) + ")");
    for (qint32 factuurId : {head.FactuurId(), 0}) {
        SCOPED_TRACE(factuurId);
        clsObjArtikelPerFactuur line;
        line.setFactuurId(factuurId);
        line.setBTWTarief(c.tarief);
        line.setBTWBedrag(money(1.5));
        EXPECT_EQ(line.BTWBedragTarief1(), c.column == 1 ? money(1.5) : Currency());
        EXPECT_EQ(line.BTWBedragTarief2(), c.column == 2 ? money(1.5) : Currency());
        EXPECT_EQ(line.BTWBedrag(), money(1.5));
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, VatColumn,
                         ::testing::Values(ColumnCase{21, 9, 21, 1}, ColumnCase{21, 9, 9, 2},
                                           ColumnCase{21, 9, 19, 1}, ColumnCase{21, 9, 10, 2},
                                           ColumnCase{21, 9, 0, 2}, ColumnCase{21, 9, 15, 1},
                                           ColumnCase{9, 21, 15, 1}, ColumnCase{9, 9, 9, 1},
                                           ColumnCase{9, 9, 21, 1}, ColumnCase{9, 9, 0, 1}));

TEST(LineVatAmount, ReadsTheSecondRateWhenTheFirstIsZero) {
    TestDatabase db;
    clsObjArtikelPerFactuur line;
    line.setBTWTarief(9);  // the second rate of the shipped VAT row
    line.setBTWBedrag(money(0.81));
    EXPECT_EQ(line.BTWBedragTarief1(), Currency());
    EXPECT_EQ(line.BTWBedrag(), money(0.81));
    line.setBTWTarief(21);
    line.setBTWBedrag(Currency());
    EXPECT_EQ(line.BTWBedrag(), Currency());
}

// An invoice as the invoice editor builds it: lines with their amounts worked out.
class InvoiceSave : public ::testing::Test {
protected:
    void SetUp() override {
        customer.setBedrijfsnaam("Garage Zuid");
        customer.setZichtbaar(true);
        customer.Opslaan();
        zeroRated.setBedrijfsnaam("Stichting Nul");
        zeroRated.setBTW(true);
        zeroRated.Opslaan();
        invoice.setKlant(customer);
        invoice.setNummer("2024001");
        invoice.setDatum(QDateTime(QDate(2024, 5, 1), QTime(10, 0)));
        invoice.setBTWId(clsObjBTW::rowInUse().BTWId());
        db.exec("CREATE TABLE Log (Wat TEXT)");
        db.exec(
            "CREATE TRIGGER n AFTER INSERT ON Factuur BEGIN INSERT INTO Log VALUES ('in'); END");
        db.exec(
            "CREATE TRIGGER u AFTER UPDATE ON Factuur BEGIN INSERT INTO Log VALUES ('up'); END");
    }

    static clsObjArtikelPerFactuur line(qint32 artikelId, double prijs, double aantal,
                                        double korting, double tarief) {
        clsObjArtikelPerFactuur l;
        l.setArtikelID(artikelId);
        l.setPrijs(money(prijs));
        l.setAantal(aantal);
        l.setKorting(korting);
        l.setBTWTarief(tarief);
        l.setTotaalPrijs(clsObjArtikelPerFactuur::lineTotal(l.Prijs(), aantal, korting));
        l.setKortingsBedrag(clsObjArtikelPerFactuur::discountAmount(l.Prijs(), aantal, korting));
        return l;
    }

    clsObjFactuur reloaded() const {
        clsObjFactuur read;
        read.SetID(invoice.FactuurId());
        read.Ophalen();
        read.LaadKlant();
        read.LaadArtikelenPerFactuur();
        return read;
    }

    const clsObjArtikelPerFactuur* storedLine(const clsObjFactuur& f, qint16 artikelId) const {
        for (const auto& l : f.ArtikelenPerFactuur()) {
            if (l.artikelID() == artikelId) {
                return &l;
            }
        }
        return nullptr;
    }

    QString log() const { return db.scalar("SELECT group_concat(Wat, ',') FROM Log").toString(); }
    int lineRows() const { return db.scalar("SELECT COUNT(*) FROM ArtikelPerFactuur").toInt(); }

    TestDatabase db;
    RecordingUiService ui;
    clsObjKlant customer;
    clsObjKlant zeroRated;
    clsObjFactuur invoice;
};

TEST_F(InvoiceSave, ANewInvoiceIsWrittenThenUpdatedWithTheTotalsOfItsStoredLines) {
    invoice.ArtikelenPerFactuur() = {line(1, 1.2345, 3, 10, 21), line(2, 100, 1, 0, 9)};
    invoice.OpslaanFactuur();

    EXPECT_EQ(log(), "in,up");
    ASSERT_NE(invoice.FactuurId(), 0);
    const clsObjFactuur read = reloaded();
    EXPECT_EQ(read.KlantID(), customer.KlantID());
    EXPECT_EQ(read.Klantnaam(), "Garage Zuid");
    EXPECT_EQ(read.Nummer(), "2024001");
    ASSERT_EQ(read.ArtikelenPerFactuur().size(), 2);

    const auto* first = storedLine(read, 1);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->FactuurId(), invoice.FactuurId());
    EXPECT_EQ(first->TotaalPrijs(), money(3.3332));
    EXPECT_EQ(first->KortingsBedrag(), money(0.3704));
    EXPECT_EQ(first->BTWBedragTarief1(), money(0.7));
    const auto* second = storedLine(read, 2);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->BTWBedragTarief2(), money(9));

    EXPECT_EQ(read.TotaalPrijsExBTW(), money(103.3332));
    EXPECT_EQ(read.TotaalPrijs(), money(113.0332));
    EXPECT_EQ(invoice.TotaalPrijs(), read.TotaalPrijs());
    EXPECT_NE(invoice.ArtikelenPerFactuur()[0].FactuurArtikelID(), 0)
        << "the invoice holds the lines as stored";
}

TEST_F(InvoiceSave, AnExistingInvoiceIsUpdatedTwice) {
    invoice.ArtikelenPerFactuur() = {line(1, 10, 1, 0, 21)};
    invoice.OpslaanFactuur();
    db.exec("DELETE FROM Log");
    invoice.OpslaanFactuur();
    EXPECT_EQ(log(), "up,up");
    EXPECT_EQ(lineRows(), 1);
}

TEST_F(InvoiceSave, AStoredLineTakesTheNewQuantityAndDiscountButKeepsItsPriceAndRate) {
    invoice.ArtikelenPerFactuur() = {line(1, 10, 1, 0, 21)};
    invoice.OpslaanFactuur();
    const qint32 key = invoice.ArtikelenPerFactuur()[0].FactuurArtikelID();

    invoice.ArtikelenPerFactuur() = {line(1, 12, 3, 50, 9)};
    invoice.OpslaanFactuur();
    const auto* stored = storedLine(reloaded(), 1);
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->FactuurArtikelID(), key);
    EXPECT_EQ(stored->Aantal(), 3);
    EXPECT_EQ(stored->Korting(), 50);
    EXPECT_EQ(stored->Prijs(), money(10));
    EXPECT_EQ(stored->BTWTarief(), 21);
    EXPECT_EQ(stored->TotaalPrijs(), money(18)) << "12 x 3, half off: the edited price counts";
    EXPECT_EQ(stored->KortingsBedrag(), money(18));
    EXPECT_EQ(stored->BTWBedragTarief1(), money(3.78));
    EXPECT_EQ(invoice.TotaalPrijs(), money(21.78));
}

TEST_F(InvoiceSave, RemovingALineDeletesItsRowAndReAddingItKeepsTheRow) {
    invoice.ArtikelenPerFactuur() = {line(1, 10, 1, 0, 21), line(2, 20, 1, 0, 21)};
    invoice.OpslaanFactuur();
    const qint32 keyOfSecond = storedLine(invoice, 2)->FactuurArtikelID();

    // Removed, and added back with another quantity, before the save.
    auto& lines = invoice.ArtikelenPerFactuur();
    lines.removeIf([](const auto& l) { return l.artikelID() == 2; });
    lines.append(line(2, 20, 4, 0, 21));
    lines.removeIf([](const auto& l) { return l.artikelID() == 1; });
    invoice.OpslaanFactuur();

    EXPECT_EQ(lineRows(), 1);
    const clsObjFactuur read = reloaded();
    EXPECT_FALSE(storedLine(read, 1));
    ASSERT_TRUE(storedLine(read, 2));
    EXPECT_EQ(storedLine(read, 2)->FactuurArtikelID(), keyOfSecond);
    EXPECT_EQ(storedLine(read, 2)->Aantal(), 4);
    EXPECT_EQ(read.TotaalPrijsExBTW(), money(80));
    EXPECT_EQ(read.TotaalPrijs(), money(96.8));
}

TEST_F(InvoiceSave, AZeroRatedCustomerGetsNoVatOnNewLinesWhileOlderLinesKeepTheirs) {
    invoice.ArtikelenPerFactuur() = {line(1, 100, 1, 0, 21)};
    invoice.OpslaanFactuur();

    invoice.setKlant(zeroRated);
    invoice.ArtikelenPerFactuur().append(line(2, 50, 2, 10, 21));
    invoice.ArtikelenPerFactuur()[0].setAantal(2);
    invoice.OpslaanFactuur();

    const clsObjFactuur read = reloaded();
    EXPECT_EQ(read.Klantnaam(), "Stichting Nul");
    EXPECT_EQ(storedLine(read, 1)->BTWBedrag(), money(21)) << "kept from the first save";
    EXPECT_EQ(storedLine(read, 1)->TotaalPrijs(), money(200));
    EXPECT_EQ(storedLine(read, 2)->BTWBedrag(), Currency());
    EXPECT_EQ(read.TotaalPrijsExBTW(), money(290));
    EXPECT_EQ(read.TotaalPrijs(), money(311));
}

TEST_F(InvoiceSave, AZeroRatedCustomerPaysTheTotalExcludingVat) {
    invoice.setKlant(zeroRated);
    invoice.ArtikelenPerFactuur() = {line(1, 1.2345, 3, 10, 21), line(2, 7.5, 2, 0, 9)};
    invoice.OpslaanFactuur();
    EXPECT_EQ(invoice.TotaalPrijs(), money(18.3332));
    EXPECT_EQ(invoice.TotaalPrijsExBTW(), money(18.3332));
}

TEST_F(InvoiceSave, LoadingAnUnsavedInvoiceGivesNoLines) {
    invoice.ArtikelenPerFactuur() = {line(1, 10, 1, 0, 21)};
    invoice.LaadArtikelenPerFactuur();
    EXPECT_TRUE(invoice.ArtikelenPerFactuur().isEmpty());
}

}  // namespace
