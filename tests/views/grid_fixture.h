#pragma once

#include <gtest/gtest.h>

#include "grid_qstring.h"
#include "views/ListGrid.h"

// A grid on the (offscreen) screen, filled the way the list screens fill it: redraw off,
// cleared, headers, one row per record with its identifier (1000 + row) as row data.
class GridTest : public ::testing::Test {
protected:
    GridTest() {
        grid.resize(400, 200);
        grid.show();
    }

    void fill(const QStringList& rows, const QStringList& headers = {"Nummer", "Naam", "Plaats"}) {
        grid.setRedraw(false);
        grid.clear();
        grid.setRows(1);
        grid.setHeaders(headers);
        for (const QString& row : rows) {
            grid.addRow(row);
            grid.setRowData(grid.rows() - 1, 1000 + grid.rows() - 1);
        }
        grid.setRedraw(true);
    }

    // Where a user's hand clicks a row: its first cell.
    QPoint cell(int row) const { return grid.visualRect(grid.model()->index(row - 1, 0)).center(); }

    ListGrid grid;
    const QStringList customers{"1001\tJansen\tAmsterdam", "1002\tde Vries\tUtrecht",
                                "1003\tBakker\tAmsterdam", "1004\tJanssen\tRotterdam",
                                "1005\tVisser\tamsterdam-Noord"};
};
