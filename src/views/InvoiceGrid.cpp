#include "views/InvoiceGrid.h"

#include <QMdiSubWindow>
#include <QWidget>

#include "views/ListGrid.h"

namespace invoiceGrid {

void begin(ListGrid& grid, const QStringList& headers) {
    grid.setRedraw(false);
    grid.clear();
    grid.setRows(1);
    grid.setHeaders(headers);
}

void add(ListGrid& grid, const QString& cells, qint32 key) {
    grid.addRow(cells);
    grid.setRowData(grid.rows() - 1, key);
}

std::optional<qint32> currentKey(const ListGrid& grid) {
    if (grid.currentRow() < 1 || grid.rows() <= 1) {
        return std::nullopt;
    }
    return grid.rowData(grid.currentRow());
}

void closeBy(QWidget& screen, bool& closingByController) {
    closingByController = true;
    screen.close();
    closingByController = false;
    // In the frame the sub-window goes with the screen, not only its contents.
    if (auto* sub = qobject_cast<QMdiSubWindow*>(screen.parentWidget())) {
        sub->hide();
    }
}

}  // namespace invoiceGrid
