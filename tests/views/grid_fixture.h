#pragma once

#include <gtest/gtest.h>
#include <QApplication>
#include <QMouseEvent>

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

    void fillNumbered(int count) {  // "Rij 001", "Rij 002", ...
        QStringList rows;
        for (int i = 1; i <= count; ++i)
            rows.append(QStringLiteral("Rij %1").arg(i, 3, 10, QLatin1Char('0')));
        fill(rows, {"Omschrijving"});
    }

    // A mouse event on a row's first cell, as a user's hand would send it.
    void mouse(QEvent::Type type, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QPoint at = grid.visualRect(grid.model()->index(row - 1, 0)).center();
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, grid.viewport()->mapToGlobal(at), button, held, modifiers);
        QApplication::sendEvent(grid.viewport(), &event);
    }

    ListGrid grid;
    const QStringList customers{"1001\tJansen\tAmsterdam", "1002\tde Vries\tUtrecht",
                                "1003\tBakker\tAmsterdam", "1004\tJanssen\tRotterdam",
                                "1005\tVisser\tamsterdam-Noord"};
};
