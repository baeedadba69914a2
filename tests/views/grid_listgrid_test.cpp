#include <QHeaderView>
#include <QTest>

#include "grid_fixture.h"

namespace {

QList<int> rowsSelectedInView(const ListGrid& grid) {
    QList<int> rows;
    for (const QModelIndex& index : grid.selectionModel()->selectedRows()) {
        rows.append(index.row() + 1);
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

TEST_F(GridTest, RowZeroIsTheHeaderAndCellsComeFromTabs) {
    fill({"1001\tJansen\tAmsterdam\tover", "1002\tde Vries"});
    EXPECT_EQ(grid.rows(), 3);
    EXPECT_EQ(grid.textMatrix(0, 1), "Naam");
    EXPECT_EQ(grid.rowText(1), "1001\tJansen\tAmsterdam");  // a cell beyond the columns is dropped
    EXPECT_EQ(grid.rowText(2), "1002\tde Vries\t");
    EXPECT_EQ(grid.model()->data(grid.model()->index(1, 1)).toString(), "de Vries");
}

// A cell written into a row keeps the row's other cells where they were, also in a row
// added with fewer cells; a tab in the text cannot split the row.
TEST_F(GridTest, AWrittenCellLeavesTheOtherCellsInPlace) {
    const struct {
        const char* added;
        int col;
        const char* text;
        const char* row;
    } cases[] = {
        {"1001\tJansen\tAmsterdam", 1, "Smit", "1001\tSmit\tAmsterdam"},
        {"1001\tJansen\tAmsterdam", 0, "", "\tJansen\tAmsterdam"},
        {"1001\tJansen\tAmsterdam", 2, "Den\tHaag", "1001\tJansen\tDen Haag"},
        {"1001", 2, "Utrecht", "1001\t\tUtrecht"},
        {"", 1, "Smit", "\tSmit\t"},
    };
    for (const auto& c : cases) {
        fill({QString::fromUtf8(c.added)});
        grid.setTextMatrix(1, c.col, QString::fromUtf8(c.text));
        EXPECT_EQ(grid.rowText(1), QString::fromUtf8(c.row)) << c.added << " col " << c.col;
        EXPECT_EQ(grid.textMatrix(1, c.col), QString::fromUtf8(c.text).replace(u'\t', u' '));
    }
}

TEST_F(GridTest, FewerColumnsDropTheCellsPastTheLastAndMoreShowThemEmpty) {
    fill(customers);
    grid.setCols(2);
    EXPECT_EQ(grid.rowText(1), "1001\tJansen");
    grid.setCols(3);
    EXPECT_EQ(grid.rowText(1), "1001\tJansen\t");
    EXPECT_EQ(grid.textMatrix(1, 2), "");
}

// Set through the grid's properties, or by a user dragging or shift-clicking.
enum class Way { Set, Drag, ShiftClick };
struct SelectionCase {
    const char* name;
    Way way;
    int dataRows, current, selectionEnd;
    QList<int> expected;
};
class GridSelectionRule : public GridTest, public ::testing::WithParamInterface<SelectionCase> {};

TEST_P(GridSelectionRule, RowsFromCurrentToSelectionEndLowestFirst) {
    const SelectionCase& c = GetParam();
    fill(customers.mid(0, c.dataRows));
    if (c.way == Way::Set) {
        grid.setCurrentRow(c.current);
        grid.setSelectionEndRow(c.selectionEnd);
    } else {
        QWidget* hand = grid.viewport();
        QTest::mousePress(hand, Qt::LeftButton, {}, cell(c.current));
        if (c.way == Way::Drag) {
            QTest::mouseMove(hand, cell(c.selectionEnd));
        } else {
            QTest::mouseRelease(hand, Qt::LeftButton, {}, cell(c.current));
            QTest::mousePress(hand, Qt::LeftButton, Qt::ShiftModifier, cell(c.selectionEnd));
        }
        QTest::mouseRelease(hand, Qt::LeftButton, {}, cell(c.selectionEnd));
        EXPECT_EQ(grid.currentRow(), c.current);
        EXPECT_EQ(grid.selectionEndRow(), c.selectionEnd);
    }
    EXPECT_EQ(grid.selectedRows(), c.expected);
    QList<int> ids;
    for (int row : c.expected) {
        ids << 1000 + row;
    }
    EXPECT_EQ(grid.selectedRowData(), ids);
    EXPECT_EQ(rowsSelectedInView(grid), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, GridSelectionRule,
    ::testing::Values(SelectionCase{"Down", Way::Set, 5, 2, 4, {2, 3, 4}},
                      SelectionCase{"Up", Way::Set, 5, 4, 2, {2, 3, 4}},
                      SelectionCase{"OneRow", Way::Set, 5, 3, 3, {3}},
                      SelectionCase{"CurrentIsHeader", Way::Set, 5, 0, 3, {}},
                      SelectionCase{"OnlyHeaderRow", Way::Set, 0, 1, 1, {}},
                      SelectionCase{"DragDown", Way::Drag, 5, 2, 4, {2, 3, 4}},
                      SelectionCase{"DragUp", Way::Drag, 5, 4, 2, {2, 3, 4}},
                      SelectionCase{"ShiftClickDown", Way::ShiftClick, 5, 2, 4, {2, 3, 4}},
                      SelectionCase{"ShiftClickUp", Way::ShiftClick, 5, 4, 2, {2, 3, 4}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(GridTest, SortedRowsKeepTheirRowDataAndTheCurrentRecord) {
    fill(customers);
    grid.setCurrentRow(3);  // Bakker
    for (auto [col, order, names] :
         {std::tuple{1, Qt::AscendingOrder, "Bakker de Vries Jansen Janssen Visser"},
          std::tuple{1, Qt::DescendingOrder, "Visser Janssen Jansen de Vries Bakker"},
          std::tuple{2, Qt::AscendingOrder, "Jansen Bakker Visser Janssen de Vries"}}) {
        SCOPED_TRACE(names);
        grid.sortRows(col, order);
        QStringList sorted;
        for (int row = 1; row < grid.rows(); ++row) {
            sorted.append(grid.textMatrix(row, 1));
            EXPECT_EQ(customers.indexOf(grid.rowText(row)) + 1, grid.rowData(row) - 1000);
        }
        EXPECT_EQ(sorted.join(' '), names);
        EXPECT_EQ(grid.textMatrix(grid.currentRow(), 1), "Bakker");
    }
}

TEST_F(GridTest, WhatIsSetWithRedrawOffReachesTheViewAndSurvivesARefill) {
    fill(customers);
    grid.setColWidth(1, 170);
    grid.horizontalHeader()->resizeSection(2, 90);  // as a user dragging the border

    grid.setRedraw(false);
    grid.clear();
    grid.setRows(1);
    EXPECT_EQ(grid.currentRow(), 0);
    for (int i = 1; i <= 300; ++i) {
        grid.addRow(QStringLiteral("%1\tRij %1").arg(i));
    }
    grid.setCurrentRow(120);
    grid.setTopRow(120);
    EXPECT_EQ(grid.topRow(), 120);
    grid.setRedraw(true);

    EXPECT_EQ(grid.model()->rowCount(), 300);
    EXPECT_EQ(grid.topRow(), 120);
    EXPECT_EQ(grid.rowAt(0), 119);
    EXPECT_EQ(rowsSelectedInView(grid), QList<int>{120});
    EXPECT_EQ(grid.columnWidth(1), 170);
    EXPECT_EQ(grid.columnWidth(2), 90);
}

}  // namespace
