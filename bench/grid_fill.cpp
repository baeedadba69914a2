// How long the list grid takes to show 100,000 rows the way a list screen fills it:
// redraw off, one addRow per record with its row data, redraw on, and the view painted.
// Also the refill of a full grid (clear and fill again), a search that finds nothing
// (every row tested) and a sort by a column. The texts are made before the clock starts,
// so the figures are the grid's own.

#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <cstdio>

#include "Timing.h"
#include "views/ListGrid.h"
#include "views/clsFlexgrid.h"

namespace {

constexpr int rowCount = 100'000;
constexpr int runs = 5;

QStringList makeRows() {
    QStringList rows;
    rows.reserve(rowCount);
    for (int i = 1; i <= rowCount; ++i) {
        rows.append(QStringLiteral("%1\tKlant %2 B.V.\t%3-02-2026\t€ %4,%5")
                        .arg(i)
                        .arg((i * 7919) % rowCount)
                        .arg(1 + i % 28, 2, 10, QChar('0'))
                        .arg(i % 5000)
                        .arg(i % 100, 2, 10, QChar('0')));
    }
    return rows;
}

void fill(ListGrid& grid, const QStringList& rows) {
    grid.setRedraw(false);
    grid.clear();
    grid.setRows(1);
    grid.setHeaders({"Factuurnummer", "Klantnaam", "Datum", "Totaal prijs"});
    for (int i = 0; i < rows.size(); ++i) {
        grid.addRow(rows[i]);
        grid.setRowData(grid.rows() - 1, i + 1);
    }
    grid.setRedraw(true);
    QCoreApplication::processEvents();
    grid.viewport()->repaint();
}

void report(const char* what, QList<double> times) {
    std::sort(times.begin(), times.end());
    std::printf("%-34s median %8.1f ms   best %8.1f ms   (%d runs)\n", what,
                times[times.size() / 2], times.first(), int(times.size()));
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    const QStringList rows = makeRows();

    QList<double> firstFill, refill, search, sort;
    for (int run = 0; run < runs; ++run) {
        ListGrid grid;
        grid.resize(900, 600);
        grid.show();
        QCoreApplication::processEvents();
        firstFill.append(milliseconds([&] { fill(grid, rows); }));
        refill.append(milliseconds([&] { fill(grid, rows); }));

        QLineEdit searchBox(QStringLiteral("niet aanwezig"));
        clsFlexgrid flexgrid(grid, searchBox);
        search.append(milliseconds([&] { flexgrid.search(clsFlexgrid::Direction::Forward); }));
        sort.append(milliseconds([&] {
            flexgrid.sortByColumn(1);
            QCoreApplication::processEvents();
        }));
    }
    std::printf("List grid, %d rows, 4 columns\n", rowCount);
    report("fill (redraw off, add, redraw on)", firstFill);
    report("refill of the full grid", refill);
    report("search without a match", search);
    report("sort by the name column", sort);
    return 0;
}
