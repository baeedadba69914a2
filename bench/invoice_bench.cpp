// invoice_bench <folder holding db.daa>
// The invoice list opened and filled on screen (offscreen) beside the sqlite3 shell running
// the same query, and one line added to an invoice of 30 lines in the editor (the article
// read, the stock written, the grid and totals refilled). Medians of several runs.

#include <QApplication>
#include <QProcess>
#include <algorithm>
#include <cstdio>

#include "Timing.h"
#include "base/Paths.h"
#include "base/ProgramFolder.h"
#include "controllers/ArticleViews.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrFactuurBewerken.h"
#include "controllers/clsControllerArtikel.h"
#include "controllers/clsControllerFacturen.h"
#include "records/clsObjFactuur.h"
#include "store/clsDatabase.h"
#include "views/QtInvoiceViews.h"

namespace {

constexpr int kRuns = 7;

// Keeps a result alive so the work producing it is not optimised away.
void benchmark_sink(qsizetype value) {
    static volatile qsizetype sink;
    sink = value;
}

qint32 scalar(const QString& sql) {
    const auto set = clsDatabase().openReadSet(sql);
    return set->isEOF() ? 0 : set->value(0).toInt();
}

// The list opened as the menu opens it: the screen made, shown and filled, and painted.
double openInvoiceList() {
    return milliseconds([] {
        clsControllerFacturen list;
        list.StartFacturen();
        QCoreApplication::processEvents();
    });
}

// The part of the open that reads the invoices into records.
double readInvoices() {
    return milliseconds([] { benchmark_sink(clsObjFactuur().Lijst(QString()).size()); });
}

double sqliteShell() {
    return milliseconds([] {
        QProcess cli;
        cli.setStandardOutputFile(QProcess::nullDevice());
        cli.start("sqlite3", {paths::withSeparator(ProgramFolder::path()) + "db.daa",
                              "SELECT * FROM Factuur"});
        cli.waitForFinished(-1);
    });
}

// The article list in selection mode, with the user's choice already made.
struct ChosenArticle : IArtikelView {
    qint32 artikelID = 0;
    void SetArtikelController(clsControllerArtikel*) override {}
    bool VoorSelecteren() const override { return true; }
    void setVoorSelecteren(bool) override {}
    void setCaption(const QString&) override {}
    void beginFill(const QStringList&) override {}
    void addRow(const QString&, qint32) override {}
    void endFill() override {}
    QList<qint32> selectedIDs() const override { return {artikelID}; }
    QString Aantal() const override { return QStringLiteral("2"); }
    QString Korting() const override { return QStringLiteral("5"); }
    void printList(const QString&) override {}
    void show() override {}
    void close() override {}
};

struct ArticleChoice : ArticleViewFactory {
    qint32 artikelID = 0;
    std::unique_ptr<IArtikelView> createArtikelList() override {
        auto list = std::make_unique<ChosenArticle>();
        list->artikelID = artikelID;
        return list;
    }
    std::unique_ptr<IArtikelBewerkenView> createArtikelBewerken() override { return nullptr; }
    std::unique_ptr<IVoorraadView> createVoorraad() override { return nullptr; }
    std::unique_ptr<IBewerkRegelView> createBewerkRegel() override { return nullptr; }
};

// The line is added as a user adds it: the article chosen in the article list in selection
// mode (the article read), the line checked and made, the stock written, and the grid and
// totals refilled.
double addLineToInvoiceOf30(qint32 factuurId, qint32 artikelID) {
    ArticleChoice choice;
    choice.artikelID = artikelID;
    ScopedViews<ArticleViewFactory> installed(&choice);
    clsObjFactuur factuur;
    factuur.setFactuurId(factuurId);
    clsContrFactuurBewerken editor;
    editor.StartFactuurBewerken(factuur);
    QCoreApplication::processEvents();
    // The article list (every article of the database) is opened before the clock starts:
    // what is timed is the editor taking the chosen line.
    editor.ArtikelToevoegen();
    const double time = milliseconds([&] { editor.artikelController()->Selecteren(); });
    if (editor.Factuur().ArtikelenPerFactuur().size() != 31) {
        std::fprintf(stderr, "invoice_bench: the line was not added\n");
    }
    return time;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: invoice_bench <folder holding db.daa>\n");
        return 2;
    }
    ProgramFolder::setForTests(QString::fromLocal8Bit(argv[1]));
    static QtInvoiceViews screens;
    installViews<InvoiceViewFactory>(&screens);

    QList<double> ours, shell, reading, adding;
    for (int run = 0; run < kRuns; ++run) {
        ours << openInvoiceList();
        shell << sqliteShell();
        reading << readInvoices();
    }
    const double list = median(ours), reference = median(shell);
    std::printf(
        "invoice list opened and filled (%d invoices): %8.1f ms   sqlite3: %8.1f ms   "
        "ratio %.2fx\n",
        scalar("SELECT COUNT(*) FROM Factuur"), list, reference, list / reference);
    std::printf("  of which reading the invoices into records: %8.1f ms\n", median(reading));

    const qint32 factuurId = scalar(
        "SELECT FactuurID FROM ArtikelPerFactuur GROUP BY FactuurID HAVING COUNT(*)=30 LIMIT 1");
    const qint32 artikelID = scalar(QString("SELECT MIN(ArtikelID) FROM Artikel WHERE ArtikelID "
                                            "NOT IN (SELECT ArtikelId FROM ArtikelPerFactuur "
                                            "WHERE FactuurID=%1)")
                                        .arg(factuurId));
    if (factuurId == 0 || artikelID == 0) {
        std::fprintf(stderr, "invoice_bench: no invoice of 30 lines in the database\n");
        return 1;
    }
    for (int run = 0; run < kRuns; ++run) {
        adding << addLineToInvoiceOf30(factuurId, artikelID);
    }
    std::printf("one line added to an invoice of 30 lines:       %8.2f ms (median of %d)\n",
                median(adding), kRuns);
    return 0;
}
