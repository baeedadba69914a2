// How long a register takes to open with every row visible: the list controller started
// as the menu starts it, its real screen (offscreen) filled and painted, against the sqlite3
// command-line shell running the same query to nowhere, in the same run and on the same
// file. Each figure is the median of five runs; the ratio is what counts.
// Usage: register_open <folder holding db.daa>   (the rows are made visible in that file)

#include <sqlite3.h>

#include <QApplication>
#include <QProcess>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <memory>

#include "Timing.h"
#include "base/Paths.h"
#include "base/ProgramFolder.h"
#include "controllers/RegisterController.h"
#include "views/QtViews.h"

namespace {

constexpr int runs = 5;

struct RegisterCase {
    const char* name;
    Register which;
    const char* table;
    // The query the list runs, as SQLite reads it.
    const char* query;
};

const RegisterCase registers[] = {
    {"Artikelen", Register::Artikelen, "Artikel",
     "SELECT * FROM Artikel WHERE Zichtbaar = 1 ORDER BY Omschrijving"},
    {"Klanten", Register::Klanten, "Klant", "SELECT * FROM Klant WHERE Zichtbaar = 1"},
};

QString databaseFile() {
    return paths::withSeparator(ProgramFolder::path()) + "db.daa";
}

bool exec(const QString& sql) {
    sqlite3* db = nullptr;
    const bool opened = sqlite3_open(databaseFile().toUtf8().constData(), &db) == SQLITE_OK;
    const bool done = opened && sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr,
                                             nullptr) == SQLITE_OK;
    sqlite3_close(db);
    return done;
}

double cliRun(const char* query) {
    return milliseconds([&] {
        QProcess cli;
        cli.setStandardOutputFile(QProcess::nullDevice());
        cli.start(QStringLiteral("sqlite3"), {databaseFile(), QString::fromLatin1(query)});
        if (!cli.waitForFinished(-1) || cli.exitCode() != 0) {
            std::fprintf(stderr, "register_open: sqlite3 failed\n");
        }
    });
}

double programRun(Register which) {
    std::unique_ptr<RegisterController> controller = createProgramRegister(which);
    const double time = milliseconds([&] {
        controller->start();
        QCoreApplication::processEvents();
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible()) {
                window->repaint();
            }
        }
    });
    controller.reset();
    QCoreApplication::processEvents();
    return time;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: register_open <folder holding db.daa>\n");
        return 2;
    }
    ProgramFolder::setForTests(QString::fromLocal8Bit(argv[1]));
    installQtViews();

    std::printf("%-10s %8s %12s %10s %8s\n", "register", "rows", "Lindebrug", "sqlite3", "ratio");
    for (const RegisterCase& r : registers) {
        if (!exec(QStringLiteral("UPDATE %1 SET Zichtbaar = 1").arg(r.table))) {
            std::fprintf(stderr, "register_open: cannot prepare %s\n", r.table);
            return 1;
        }
        cliRun(r.query);  // both start from a warm file cache
        QList<double> ours, reference;
        for (int run = 0; run < runs; ++run) {
            reference.append(cliRun(r.query));
            ours.append(programRun(r.which));
        }
        sqlite3* db = nullptr;
        sqlite3_open(databaseFile().toUtf8().constData(), &db);
        sqlite3_stmt* count = nullptr;
        sqlite3_prepare_v2(db, QStringLiteral("SELECT COUNT(*) FROM %1").arg(r.table).toUtf8(), -1,
                           &count, nullptr);
        sqlite3_step(count);
        const long long rows = sqlite3_column_int64(count, 0);
        sqlite3_finalize(count);
        sqlite3_close(db);
        std::printf("%-10s %8lld %9.0f ms %7.0f ms %7.2fx\n", r.name, rows, median(ours),
                    median(reference), median(ours) / median(reference));
    }
    return 0;
}
