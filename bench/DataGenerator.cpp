#include "DataGenerator.h"

#include <sqlite3.h>

#include <QFile>
#include <algorithm>
#include <concepts>
#include <random>
#include <stdexcept>
#include <vector>

#include "records/clsObjArtikelPerFactuur.h"

namespace {

const char* const firstInitials[] = {"J.",   "P.", "A.M.", "H.", "K.",
                                     "W.J.", "E.", "M.",   "C.", "R.T."};
const char* const infixes[] = {"",        "",        "",    "van", "de",
                               "van der", "van den", "ter", "den", "van de"};
const char* const surnames[] = {"Jansen",  "de Vries", "Bakker", "Visser", "Smit",      "Meijer",
                                "Mulder",  "Bos",      "Vos",    "Peters", "Hendriks",  "Dekker",
                                "Brouwer", "Dijkstra", "Kok",    "Jacobs", "Vermeulen", "Willems"};
const char* const companyKinds[] = {
    "Bakkerij",         "Garage", "Kapsalon",  "Installatiebedrijf", "Schildersbedrijf",
    "Hoveniersbedrijf", "Café",   "Drukkerij", "Timmerwerkplaats",   "Administratiekantoor"};
const char* const streets[] = {"Kerkstraat",    "Dorpsstraat",  "Molenweg",      "Stationsweg",
                               "Schoolstraat",  "Julianalaan",  "Beatrixstraat", "Nieuwstraat",
                               "Raadhuisplein", "Industrieweg", "Veldweg",       "Kanaaldijk"};
const char* const towns[] = {"Amsterdam", "Zwolle",     "Utrecht",   "Groningen",
                             "Deventer",  "Leeuwarden", "Apeldoorn", "Meppel",
                             "Kampen",    "Assen",      "Emmen",     "Haarlem",
                             "Delft",     "Breda",      "Tilburg",   "Nijmegen"};
const char* const goods[] = {"Schroeven", "Spijkers", "Plank", "Verf",      "Kwast", "Lijm",
                             "Tegel",     "Kabel",    "Buis",  "Scharnier", "Slot",  "Lamp"};
const char* const qualities[] = {"eiken",    "grenen", "wit",   "zwart", "RVS",
                                 "verzinkt", "40 mm",  "2,5 m", "klein", "groot"};
const char* const units[] = {"stuk", "doos", "m", "m²", "liter", "uur"};

class Database {
public:
    explicit Database(const QString& file) {
        if (sqlite3_open(file.toUtf8().constData(), &db_) != SQLITE_OK) {
            fail("open");
        }
    }
    ~Database() { sqlite3_close(db_); }

    void exec(const QByteArray& sql) {
        if (sqlite3_exec(db_, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            fail(sql);
        }
    }
    sqlite3_stmt* prepare(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr) != SQLITE_OK) {
            fail(sql);
        }
        return statement;
    }
    // Binds the values in order, runs the insert and hands back the new key.
    template <class... Values>
    qint64 insert(sqlite3_stmt* statement, const Values&... values) {
        int index = 0;
        (bindValue(statement, ++index, values), ...);
        if (sqlite3_step(statement) != SQLITE_DONE) {
            fail("insert");
        }
        sqlite3_reset(statement);
        return sqlite3_last_insert_rowid(db_);
    }

private:
    static void bindValue(sqlite3_stmt* s, int i, const QString& v) {
        const QByteArray utf8 = v.toUtf8();
        sqlite3_bind_text(s, i, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
    }
    template <std::integral T>
    static void bindValue(sqlite3_stmt* s, int i, T v) {
        sqlite3_bind_int64(s, i, v);
    }
    static void bindValue(sqlite3_stmt* s, int i, double v) { sqlite3_bind_double(s, i, v); }
    [[noreturn]] void fail(const QByteArray& what) {
        throw std::runtime_error(what.toStdString() + ": " + sqlite3_errmsg(db_));
    }

    sqlite3* db_ = nullptr;
};

class Generator {
public:
    Generator(Database& db, unsigned seed) : db_(db), random_(seed) {}

    void articles(int count);
    void customers(int count);
    void invoices(int count);

private:
    template <class T, std::size_t N>
    const char* pick(T (&list)[N]) {
        return list[std::uniform_int_distribution<std::size_t>(0, N - 1)(random_)];
    }
    int between(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random_);
    }
    QString postcode() {
        return QString::number(between(1000, 9999)) + ' ' + QChar('A' + between(0, 25)) +
               QChar('A' + between(0, 25));
    }

    struct Article {
        qint64 id;
        Currency prijs;
        double tarief;
    };
    struct Customer {
        qint64 id;
        QString name;
        bool zeroRated;
    };

    Database& db_;
    std::mt19937 random_;
    std::vector<Article> articles_;
    std::vector<Customer> customers_;
};

void Generator::articles(int count) {
    sqlite3_stmt* insert = db_.prepare(
        "INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad, Prijs, NegVoorToestaan, "
        "BTWTarief, Zichtbaar, GeenVoorraad) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (int i = 1; i <= count; ++i) {
        const QString unit = pick(units);
        const Currency prijs = Currency::fromRaw(qint64(between(50, 250000)) * 100);
        const int tarief = between(1, 10) <= 7 ? 1 : 2;
        const qint64 id =
            db_.insert(insert, QString::number(i), QString(pick(goods)) + ' ' + pick(qualities),
                       unit, between(-5, 500), prijs.raw(), between(0, 4) == 0 ? 1 : 0, tarief,
                       between(0, 20) == 0 ? 0 : 1, unit == "uur" ? 1 : 0);
        articles_.push_back({id, prijs, tarief == 1 ? 21.0 : 9.0});
    }
    sqlite3_finalize(insert);
}

void Generator::customers(int count) {
    sqlite3_stmt* insert = db_.prepare(
        "INSERT INTO Klant (DebiteurNummer, Bedrijfsnaam, Fax, Email, Voorletters, "
        "Tussenvoegsel, Achternaam, Adres, Postcode, Plaats, Land, Telefoon, Zichtbaar, BTW, "
        "Dhr, Extra) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (int i = 1; i <= count; ++i) {
        const QString surname = pick(surnames);
        const QString company = QString(pick(companyKinds)) + ' ' + surname;
        const QString phone = "0" + QString::number(between(10, 599)) + "-" +
                              QString::number(between(100000, 999999));
        const bool zeroRated = between(0, 30) == 0;
        const qint64 id =
            db_.insert(insert, 10000 + i, company, between(0, 3) == 0 ? phone : QString(),
                       "info@" + surname.toLower().remove(' ') + QString::number(i) + ".example",
                       QString(pick(firstInitials)), QString(pick(infixes)), surname,
                       QString(pick(streets)) + ' ' + QString::number(between(1, 250)), postcode(),
                       QString(pick(towns)), QString("Nederland"), phone,
                       between(0, 25) == 0 ? 0 : 1, zeroRated ? 1 : 0, between(0, 1),
                       "NL" + QString::number(between(100000000, 999999999)) + "B01");
        customers_.push_back({id, company, zeroRated});
    }
    sqlite3_finalize(insert);
}

void Generator::invoices(int count) {
    sqlite3_stmt* head = db_.prepare(
        "INSERT INTO Factuur (Nummer, Datum, KlantId, Klantnaam, TotaalPrijs, TotaalPrijsExBTW, "
        "BTWId) VALUES (?, ?, ?, ?, ?, ?, 1)");
    sqlite3_stmt* line = db_.prepare(
        "INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal, Prijs, TotaalPrijs, "
        "BTWTarief, BTWBedragTarief1, BTWBedragTarief2, Korting, Kortingsbedrag) "
        "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    struct Line {
        const Article* article;
        double aantal, korting;
        Currency total, vat, discount;
    };
    // A line holds its article key in 16 bits, so invoices use the first 32767 articles.
    const int articleLimit = std::min<int>(int(articles_.size()), 32767);
    const QDate first(2021, 1, 4);
    for (int i = 1; i <= count; ++i) {
        const Customer& customer = customers_[between(0, int(customers_.size()) - 1)];
        std::vector<int> used;
        std::vector<Line> lines;
        Currency exclusive, inclusive;
        const int lineCount = std::min(between(1, 30), articleLimit);
        while (int(lines.size()) < lineCount) {
            const int index = between(0, articleLimit - 1);
            if (std::find(used.begin(), used.end(), index) != used.end()) {
                continue;
            }
            used.push_back(index);
            const Article& a = articles_[index];
            Line l{&a, double(between(1, 40)), between(0, 5) == 0 ? 10.0 : 0.0, {}, {}, {}};
            l.total = clsObjArtikelPerFactuur::lineTotal(a.prijs, l.aantal, l.korting);
            l.discount = clsObjArtikelPerFactuur::discountAmount(a.prijs, l.aantal, l.korting);
            l.vat = customer.zeroRated ? Currency()
                                       : clsObjArtikelPerFactuur::vatAmount(l.total, a.tarief);
            exclusive += l.total;
            inclusive += l.total + l.vat;
            lines.push_back(l);
        }
        const QString date =
            first.addDays(qint64(i) * 1000 / std::max(count, 1)).toString(Qt::ISODate) +
            "T00:00:00";
        const qint64 id = db_.insert(head, 2021000 + i, date, customer.id, customer.name,
                                     inclusive.raw(), exclusive.raw());
        for (const Line& l : lines) {
            const bool firstRate = l.article->tarief == 21;
            db_.insert(line, id, l.article->id, l.aantal, l.article->prijs.raw(), l.total.raw(),
                       l.article->tarief, firstRate ? l.vat.raw() : 0, firstRate ? 0 : l.vat.raw(),
                       l.korting, l.discount.raw());
        }
    }
    sqlite3_finalize(head);
    sqlite3_finalize(line);
}

}  // namespace

void generateDatabase(const QString& file, const GeneratorCounts& counts, unsigned seed) {
    QFile::remove(file);
    QFile schema(QStringLiteral(LINDEBRUG_SCHEMA_SCRIPT));
    if (!schema.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read the schema");
    }
    Database db(file);
    db.exec(schema.readAll());
    db.exec("BEGIN");
    Generator generator(db, seed);
    generator.articles(counts.articles);
    generator.customers(counts.customers);
    generator.invoices(counts.invoices);
    db.exec("COMMIT");
}
