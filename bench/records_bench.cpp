// records_bench <folder holding db.daa> [benchmark flags]
// Our record lists and invoice save, each beside what plain SQLite takes for the same rows
// on the same file, and the ratio of the two.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QProcess>
#include <cstdio>
#include <map>
#include <string>

#include "base/Paths.h"
#include "base/ProgramFolder.h"
#include "records/clsObjArtikelPerFactuur.h"
#include "records/clsObjBTW.h"
#include "records/clsObjFactuur.h"
#include "records/clsObjKlant.h"

namespace {

QString databaseFile() {
    return paths::withSeparator(ProgramFolder::path()) + "db.daa";
}

// The sqlite3 command-line shell printing every row of a table to nowhere.
void cliReadsAllRows(benchmark::State& state, const char* table) {
    for (auto _ : state) {
        QProcess cli;
        cli.setStandardOutputFile(QProcess::nullDevice());
        cli.start("sqlite3", {databaseFile(), QString("SELECT * FROM %1").arg(table)});
        if (!cli.waitForFinished(-1) || cli.exitCode() != 0) {
            state.SkipWithError("sqlite3 failed");
            return;
        }
    }
}

template <class Record>
void ourListOfAllRows(benchmark::State& state) {
    qsizetype rows = 0;
    for (auto _ : state) {
        rows = Record().OphalenLijst("").size();
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = double(rows);
}

template <class Record>
void ourTypedListOfAllRows(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(Record().Lijst("").size());
    }
}

constexpr int kLines = 30;

clsObjFactuur newInvoice(const clsObjKlant& klant, qint32 btwId) {
    clsObjFactuur invoice;
    invoice.setKlant(klant);
    invoice.setNummer("9000000");
    invoice.setDatum(QDateTime::currentDateTime());
    invoice.setBTWId(btwId);
    for (int artikel = 1; artikel <= kLines; ++artikel) {
        clsObjArtikelPerFactuur line;
        line.setArtikelID(artikel);
        line.setPrijs(Currency::fromRaw(123450 + artikel));
        line.setAantal(artikel % 7 + 1);
        line.setKorting(artikel % 3 == 0 ? 10 : 0);
        line.setBTWTarief(artikel % 4 == 0 ? 9 : 21);
        line.setTotaalPrijs(
            clsObjArtikelPerFactuur::lineTotal(line.Prijs(), line.Aantal(), line.Korting()));
        invoice.ArtikelenPerFactuur().append(line);
    }
    return invoice;
}

void ourInvoiceSave(benchmark::State& state) {
    clsObjKlant klant;
    klant.setKlantID(1);
    klant.Ophalen();
    const qint32 btwId = clsObjBTW::rowInUse().BTWId();
    for (auto _ : state) {
        state.PauseTiming();
        clsObjFactuur invoice = newInvoice(klant, btwId);
        state.ResumeTiming();
        invoice.OpslaanFactuur();
    }
}

// The same head and lines, each row inserted in a transaction of its own.
void plainInvoiceInserts(benchmark::State& state) {
    sqlite3* db = nullptr;
    sqlite3_open(databaseFile().toUtf8().constData(), &db);
    sqlite3_exec(db, "PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL; PRAGMA foreign_keys=ON",
                 nullptr, nullptr, nullptr);
    sqlite3_stmt* head = nullptr;
    sqlite3_stmt* line = nullptr;
    sqlite3_prepare_v2(db,
                       "INSERT INTO Factuur (Nummer, Datum, KlantId, Klantnaam, TotaalPrijs, "
                       "TotaalPrijsExBTW, BTWId) VALUES (9000000, '2024-05-01T10:00:00', 1, "
                       "'Klant', 0, 0, 1)",
                       -1, &head, nullptr);
    sqlite3_prepare_v2(db,
                       "INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal, Prijs, "
                       "TotaalPrijs, BTWTarief, BTWBedragTarief1, BTWBedragTarief2, Korting, "
                       "Kortingsbedrag) VALUES (?, ?, 2, 123450, 246900, 21, 51849, 0, 0, 0)",
                       -1, &line, nullptr);
    auto inTransaction = [&](sqlite3_stmt* statement) {
        sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
        if (sqlite3_step(statement) != SQLITE_DONE) {
            state.SkipWithError(sqlite3_errmsg(db));
        }
        sqlite3_reset(statement);
        sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    };
    for (auto _ : state) {
        inTransaction(head);
        const sqlite3_int64 id = sqlite3_last_insert_rowid(db);
        for (int artikel = 1; artikel <= kLines; ++artikel) {
            sqlite3_bind_int64(line, 1, id);
            sqlite3_bind_int(line, 2, artikel);
            inTransaction(line);
        }
    }
    sqlite3_finalize(head);
    sqlite3_finalize(line);
    sqlite3_close(db);
}

// Prints the usual table, then each of our figures beside its reference and the ratio.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        // With repetitions the median stands for the benchmark.
        for (const Run& run : runs) {
            const bool otherAggregate =
                run.run_type == Run::RT_Aggregate && run.aggregate_name != "median";
            if (!run.error_occurred && !otherAggregate) {
                milliseconds_[run.run_name.str()] = run.GetAdjustedRealTime();
            }
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        std::printf("\n%-44s %12s %12s %8s\n", "", "ours (ms)", "ref (ms)", "ratio");
        for (const auto& [ours, reference] : pairs_) {
            const auto o = milliseconds_.find(ours);
            const auto r = milliseconds_.find(reference);
            if (o != milliseconds_.end() && r != milliseconds_.end()) {
                std::printf("%-44s %12.1f %12.1f %7.2fx\n", ours.c_str(), o->second, r->second,
                            o->second / r->second);
            }
        }
    }

private:
    std::map<std::string, double> milliseconds_;
    const std::vector<std::pair<std::string, std::string>> pairs_{
        {"Klant/OphalenLijst", "Klant/sqlite3 CLI"},
        {"Klant/Lijst", "Klant/sqlite3 CLI"},
        {"Factuur/OphalenLijst", "Factuur/sqlite3 CLI"},
        {"Factuur/Lijst", "Factuur/sqlite3 CLI"},
        {"Factuur/OpslaanFactuur 30 lines", "Factuur/plain SQLite 31 rows"},
    };
};

void registerAll() {
    using benchmark::RegisterBenchmark;
    const auto ms = benchmark::kMillisecond;
    RegisterBenchmark("Klant/OphalenLijst", ourListOfAllRows<clsObjKlant>)->Unit(ms);
    RegisterBenchmark("Klant/Lijst", ourTypedListOfAllRows<clsObjKlant>)->Unit(ms);
    RegisterBenchmark("Klant/sqlite3 CLI", cliReadsAllRows, "Klant")->Unit(ms);
    RegisterBenchmark("Factuur/OphalenLijst", ourListOfAllRows<clsObjFactuur>)->Unit(ms);
    RegisterBenchmark("Factuur/Lijst", ourTypedListOfAllRows<clsObjFactuur>)->Unit(ms);
    RegisterBenchmark("Factuur/sqlite3 CLI", cliReadsAllRows, "Factuur")->Unit(ms);
    RegisterBenchmark("Factuur/OpslaanFactuur 30 lines", ourInvoiceSave)->Unit(ms);
    RegisterBenchmark("Factuur/plain SQLite 31 rows", plainInvoiceInserts)->Unit(ms);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: records_bench <folder holding db.daa> [benchmark flags]\n");
        return 2;
    }
    ProgramFolder::setForTests(QString::fromLocal8Bit(argv[1]));
    registerAll();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
