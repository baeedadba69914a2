#include "ExchangeFixture.h"

#include <QDateTime>
#include <QFile>
#include <QLocale>

#include "base/Currency.h"
#include "base/Regional.h"
#include "store/Recordset.h"
#include "store/clsDatabase.h"

ExchangeTest::ExchangeTest() {
    Regional::setLocaleForTests(QLocale(QLocale::Dutch, QLocale::Netherlands));
}

ExchangeTest::~ExchangeTest() {
    closeSharedConnections();
}

void ExchangeTest::addRow(const QString& table, const Values& values) {
    auto set = clsDatabase().ExecuteQuery(QStringLiteral("SELECT * FROM ") + table +
                                          QStringLiteral(" WHERE 1=2"));
    set->addNew();
    for (const auto& [name, value] : values) set->setValue(name, value);
    set->update();
}

qint64 ExchangeTest::count(const QString& table) const {
    return database.scalar(QStringLiteral("SELECT COUNT(*) FROM ") + table).toLongLong();
}

QVariantList ExchangeTest::column(const QString& table, const QString& name) const {
    QVariantList values;
    auto set = clsDatabase().ExecuteQuery(QStringLiteral("SELECT * FROM ") + table);
    for (; !set->isEOF(); set->moveNext()) values.append(set->value(name));
    return values;
}

void ExchangeTest::addCustomers() {
    addRow(QStringLiteral("Klant"), {{"DebiteurNummer", 1001},
                                     {"Bedrijfsnaam", QStringLiteral("Bakkerij Dé Korf")},
                                     {"Email", "info@dekorf.nl"},
                                     {"Voorletters", "J."},
                                     {"Tussenvoegsel", "van"},
                                     {"Achternaam", "Dijk; Zonen"},
                                     {"Adres", "Kerkstraat 1"},
                                     {"Postcode", "1234 AB"},
                                     {"Plaats", "Ede"},
                                     {"Land", "Nederland"},
                                     {"Telefoon", "0318-123456"},
                                     {"Zichtbaar", true},
                                     {"BTW", false},
                                     {"Dhr", true},
                                     {"Extra", QStringLiteral("NL€1")}});
    addRow(QStringLiteral("Klant"), {{"Bedrijfsnaam", "Jansen"}, {"Zichtbaar", false}});
}

void ExchangeTest::addArticles() {
    addRow(QStringLiteral("Artikel"), {{"Nummer", "A-01"},
                                       {"Omschrijving", QStringLiteral("Crème brûlée")},
                                       {"Eenheid", "stuk"},
                                       {"Voorraad", -3},
                                       {"Prijs", QVariant::fromValue(Currency::fromRaw(12345678))},
                                       {"NegVoorToestaan", true},
                                       {"BTWTarief", 1},
                                       {"Zichtbaar", true}});
    addRow(QStringLiteral("Artikel"), {{"Nummer", "U-02"},
                                       {"Omschrijving", QStringLiteral("Uurtarief “spoed”")},
                                       {"Eenheid", "uur"},
                                       {"Voorraad", 0},
                                       {"Prijs", QVariant::fromValue(Currency::fromRaw(-125000))},
                                       {"NegVoorToestaan", false},
                                       {"BTWTarief", 2},
                                       {"Zichtbaar", false},
                                       {"GeenVoorraad", true}});
}

void ExchangeTest::addInvoices() {
    addRow(QStringLiteral("Factuur"),
           {{"Nummer", 2026001},
            {"Datum", QDateTime(QDate(2026, 11, 15), QTime(0, 0))},
            {"KlantId", 1},
            {"Klantnaam", QStringLiteral("Bakkerij Dé Korf")},
            {"TotaalPrijs", QVariant::fromValue(Currency::fromRaw(12345600))},
            {"TotaalPrijsExBTW", QVariant::fromValue(Currency::fromRaw(10203000))},
            {"BTWId", 1}});
    addRow(QStringLiteral("Factuur"),
           {{"Nummer", 2026002},
            {"Datum", QDateTime(QDate(2026, 12, 1), QTime(0, 0))},
            {"KlantId", 2},
            {"Klantnaam", "Jansen; Zn"},
            {"TotaalPrijs", QVariant::fromValue(Currency::fromRaw(-1210000))},
            {"TotaalPrijsExBTW", QVariant::fromValue(Currency::fromRaw(-1000000))},
            {"BTWId", 1}});
}

QByteArray readBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<ontbreekt>");
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray expectedFile(const QString& name) {
    return readBytes(TestDatabase::testData(QStringLiteral("exchange/") + name));
}
