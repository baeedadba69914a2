#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QStringList>
#include <QTableView>

// The rows of a list grid. Row numbers follow the classic grid: row 0 is the fixed header
// row, data rows count from 1. Model indexes are 0-based data rows (grid row - 1).
class GridModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    int rows() const { return static_cast<int>(rows_.size()) + 1; }
    void setRows(int rows);
    int cols() const { return cols_; }
    void setCols(int cols);

    QString text(int row, int col) const;
    // A cell never holds a tab: one in the text becomes a blank.
    void setText(int row, int col, const QString& text);
    // The row's cells joined by tabs.
    QString rowText(int row) const;
    void addRow(const QString& cells);
    int rowData(int row) const;
    void setRowData(int row, int data);
    void clearTexts();

    Qt::Alignment alignment(int col) const;
    void setAlignment(int col, Qt::Alignment alignment);

    // The data rows (grid numbers) in the order a sort by the column's text would give.
    QList<int> sortedOrder(int col, Qt::SortOrder order) const;
    // Puts the data rows in the given order (a permutation of 1 .. rows() - 1).
    void reorder(const QList<int>& order);

    // While batched, a change of the rows is announced as one reset when the batch ends,
    // so filling 100,000 rows costs the view one relayout.
    void setBatched(bool batched);
    bool resetPending() const { return resetPending_; }

private:
    // A row is kept as the line it was added as, its cells separated by tabs: a list of
    // 100,000 rows then costs one string per row, and the cells are found when asked for.
    struct Row {
        QString line;
        int data = 0;
    };

    template <typename Change>
    void changeRows(Change change);
    bool valid(int row, int col) const;
    void announceChange(int row, int col);

    QList<Row> rows_;
    QStringList headers_;
    QList<Qt::Alignment> alignments_;
    int cols_ = 0;
    bool batched_ = false;
    bool resetPending_ = false;
};

// The one grid of every list screen, with the interface of the classic grid: row numbers
// count the header row as row 0, each row carries a hidden identifier (row data), and the
// selection is a range of whole rows from the current row to the selection's end row.
class ListGrid : public QTableView {
    Q_OBJECT
public:
    explicit ListGrid(QWidget* parent = nullptr);

    // Including the header row: rows() == 1 is an empty list.
    int rows() const { return model_.rows(); }
    void setRows(int rows);
    int cols() const { return model_.cols(); }
    void setCols(int cols);
    // Sets the column count to the number of headers and writes them into row 0.
    void setHeaders(const QStringList& headers);
    // Appends a row; the cells are joined by "\t".
    void addRow(const QString& cells);
    // Empties every cell, the header row included; rows, columns and row data stay.
    void clear();

    QString textMatrix(int row, int col) const { return model_.text(row, col); }
    void setTextMatrix(int row, int col, const QString& text);
    QString rowText(int row) const { return model_.rowText(row); }
    int rowData(int row) const { return model_.rowData(row); }
    void setRowData(int row, int data) { model_.setRowData(row, data); }

    // Widths in pixels; they survive refills of the grid.
    int colWidth(int col) const;
    void setColWidth(int col, int width);
    Qt::Alignment colAlignment(int col) const { return model_.alignment(col); }
    void setColAlignment(int col, Qt::Alignment alignment);

    // Row 0 means no current row. Setting the current row selects it across all columns
    // and ends the selection there.
    int currentRow() const { return row_; }
    void setCurrentRow(int row);
    int selectionEndRow() const { return rowSel_; }
    void setSelectionEndRow(int row);
    // The rows from the current row to the selection's end row, lowest first, whichever
    // way the user dragged; none when the current row is 0 or the grid has no data rows.
    QList<int> selectedRows() const;
    QList<int> selectedRowData() const;

    // The first data row in view; setting it scrolls that row to the top.
    int topRow() const;
    void setTopRow(int row);

    // With redraw off the grid neither paints nor tells its view of each change.
    bool redraw() const { return redraw_; }
    void setRedraw(bool redraw);

    // Sorts the data rows by the column's text; each row keeps its row data.
    void sortRows(int col, Qt::SortOrder order);
    int sortColumn() const { return sortColumn_; }
    Qt::SortOrder sortOrder() const { return sortOrder_; }

Q_SIGNALS:
    void headerClicked(int col);
    void gridDoubleClicked();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool viewInSync() const { return !model_.resetPending(); }
    int clampRow(int row) const;
    void takeSelectionFromView();
    void showSelection();
    void restoreViewState();
    void scrollToTop(int row);
    void showSortIndicator();

    GridModel model_;
    int row_ = 0;
    int rowSel_ = 0;
    int pendingTopRow_ = 0;
    QList<int> colWidths_;  // -1: the default width
    bool redraw_ = true;
    bool showingSelection_ = false;
    int sortColumn_ = -1;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};
