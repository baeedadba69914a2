#include "views/ListGrid.h"

#include <QCollator>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <numeric>
#include <vector>

#include "base/Regional.h"

namespace {

constexpr Qt::Alignment defaultAlignment = Qt::AlignLeft | Qt::AlignVCenter;

Qt::Alignment withVerticalCentre(Qt::Alignment alignment) {
    return (alignment & Qt::AlignVertical_Mask) ? alignment : alignment | Qt::AlignVCenter;
}

// Where cell col of a tab-separated line starts and ends; both are -1 when the line has
// fewer cells.
struct CellSpan {
    qsizetype begin = -1;
    qsizetype end = -1;
};

CellSpan cellSpan(QStringView line, int col) {
    qsizetype begin = 0;
    for (int i = 0; i < col; ++i) {
        const qsizetype tab = line.indexOf(u'\t', begin);
        if (tab < 0) {
            return {};
        }
        begin = tab + 1;
    }
    const qsizetype tab = line.indexOf(u'\t', begin);
    return {begin, tab < 0 ? line.size() : tab};
}

// The line cut after its first cols cells.
QString firstCells(QString line, int cols) {
    if (cols == 0) {
        return QString();
    }
    const CellSpan last = cellSpan(line, cols - 1);
    if (last.end >= 0 && last.end < line.size()) {
        line.truncate(last.end);
    }
    return line;
}

}  // namespace

// ---- GridModel ----

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : cols_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !valid(index.row() + 1, index.column())) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return text(index.row() + 1, index.column());
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(withVerticalCentre(alignment(index.column())));
    }
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || !valid(0, section)) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return headers_[section];
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(withVerticalCentre(alignment(section)));
    }
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

bool GridModel::valid(int row, int col) const {
    return row >= 0 && row < rows() && col >= 0 && col < cols_;
}

template <typename Change>
void GridModel::changeRows(Change change) {
    if (!batched_) {
        beginResetModel();
        change();
        endResetModel();
        return;
    }
    if (!resetPending_) {
        beginResetModel();
        resetPending_ = true;
    }
    change();
}

void GridModel::setBatched(bool batched) {
    batched_ = batched;
    if (!batched && resetPending_) {
        resetPending_ = false;
        endResetModel();
    }
}

void GridModel::setRows(int rows) {
    const qsizetype dataRows = qMax(rows, 1) - 1;
    if (dataRows != rows_.size()) {
        changeRows([&] { rows_.resize(dataRows); });
    }
}

void GridModel::setCols(int cols) {
    cols = qMax(cols, 0);
    if (cols == cols_) {
        return;
    }
    changeRows([&] {
        const bool shrinking = cols < cols_;
        cols_ = cols;
        headers_.resize(cols);
        alignments_.resize(cols, defaultAlignment);
        if (shrinking) {
            for (Row& row : rows_) {
                row.line = firstCells(std::move(row.line), cols);
            }
        }
    });
}

QString GridModel::text(int row, int col) const {
    if (!valid(row, col)) {
        return {};
    }
    if (row == 0) {
        return headers_[col];
    }
    const QString& line = rows_[row - 1].line;
    const CellSpan cell = cellSpan(line, col);
    return cell.begin < 0 ? QString() : line.mid(cell.begin, cell.end - cell.begin);
}

void GridModel::setText(int row, int col, const QString& text) {
    if (!valid(row, col)) {
        return;
    }
    if (row == 0) {
        headers_[col] = text;
    } else {
        QString& line = rows_[row - 1].line;
        CellSpan cell = cellSpan(line, col);
        if (cell.begin < 0) {
            const qsizetype tabs = line.count(u'\t');
            line += QString(col - tabs, u'\t');
            cell = {line.size(), line.size()};
        }
        line.replace(cell.begin, cell.end - cell.begin, QString(text).replace(u'\t', u' '));
    }
    announceChange(row, col);
}

void GridModel::announceChange(int row, int col) {
    if (resetPending_) {
        return;
    }
    if (row == 0) {
        Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
    } else {
        const QModelIndex cell = index(row - 1, col);
        Q_EMIT dataChanged(cell, cell, {Qt::DisplayRole});
    }
}

// Every column's cell, also the empty ones a short line leaves out.
QString GridModel::rowText(int row) const {
    if (row < 1 || row >= rows()) {
        QStringList cells;
        for (int col = 0; col < cols_; ++col) {
            cells.append(text(row, col));
        }
        return cells.join(u'\t');
    }
    const QString& line = rows_[row - 1].line;
    const qsizetype missing = cols_ - 1 - line.count(u'\t');
    return missing > 0 ? line + QString(missing, u'\t') : line;
}

void GridModel::addRow(const QString& cells) {
    Row added{firstCells(cells, cols_), 0};
    if (batched_) {
        changeRows([&] { rows_.append(std::move(added)); });
        return;
    }
    const int at = static_cast<int>(rows_.size());
    beginInsertRows({}, at, at);
    rows_.append(std::move(added));
    endInsertRows();
}

int GridModel::rowData(int row) const {
    return row >= 1 && row < rows() ? rows_[row - 1].data : 0;
}

void GridModel::setRowData(int row, int data) {
    if (row >= 1 && row < rows()) {
        rows_[row - 1].data = data;
    }
}

void GridModel::clearTexts() {
    for (Row& row : rows_) {
        row.line.clear();
    }
    headers_.fill(QString());
    if (resetPending_ || cols_ == 0) {
        return;
    }
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
    if (!rows_.isEmpty()) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, cols_ - 1), {Qt::DisplayRole});
    }
}

Qt::Alignment GridModel::alignment(int col) const {
    return alignments_.value(col, defaultAlignment);
}

void GridModel::setAlignment(int col, Qt::Alignment alignment) {
    if (!valid(0, col)) {
        return;
    }
    alignments_[col] = alignment;
    if (resetPending_) {
        return;
    }
    Q_EMIT headerDataChanged(Qt::Horizontal, col, col);
    if (!rows_.isEmpty()) {
        Q_EMIT dataChanged(index(0, col), index(rowCount() - 1, col), {Qt::TextAlignmentRole});
    }
}

QList<int> GridModel::sortedOrder(int col, Qt::SortOrder order) const {
    QCollator collator(Regional::locale());
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> keys;
    keys.reserve(rows_.size());
    for (int row = 1; row < rows(); ++row) {
        keys.push_back(collator.sortKey(text(row, col)));
    }

    QList<int> sorted(rows_.size());
    std::iota(sorted.begin(), sorted.end(), 1);
    const bool ascending = order == Qt::AscendingOrder;
    std::stable_sort(sorted.begin(), sorted.end(), [&](int a, int b) {
        const int compared = keys[a - 1].compare(keys[b - 1]);
        return ascending ? compared < 0 : compared > 0;
    });
    return sorted;
}

void GridModel::reorder(const QList<int>& order) {
    changeRows([&] {
        QList<Row> reordered;
        reordered.reserve(order.size());
        for (int row : order) {
            reordered.append(std::move(rows_[row - 1]));
        }
        rows_ = std::move(reordered);
    });
}

// ---- ListGrid ----

ListGrid::ListGrid(QWidget* parent) : QTableView(parent) {
    setModel(&model_);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ContiguousSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setVerticalScrollMode(ScrollPerItem);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setHighlightSections(false);

    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &ListGrid::headerClicked);
    // A column the user widens keeps its width when the list is filled again.
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int col, int, int size) {
        if (col < colWidths_.size()) {
            colWidths_[col] = size;
        }
    });
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ListGrid::takeSelectionFromView);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ListGrid::takeSelectionFromView);
    connect(&model_, &QAbstractItemModel::modelReset, this, &ListGrid::restoreViewState);
}

void ListGrid::setRows(int rows) {
    model_.setRows(rows);
    row_ = clampRow(row_);
    rowSel_ = clampRow(rowSel_);
}

void ListGrid::setCols(int cols) {
    colWidths_.resize(qMax(cols, 0), -1);
    model_.setCols(cols);
}

void ListGrid::setHeaders(const QStringList& headers) {
    if (headers.size() != cols()) {
        setCols(static_cast<int>(headers.size()));
    }
    for (int col = 0; col < cols(); ++col) {
        model_.setText(0, col, headers[col]);
    }
}

void ListGrid::addRow(const QString& cells) {
    model_.addRow(cells);
}

void ListGrid::clear() {
    model_.clearTexts();
    sortColumn_ = -1;
    showSortIndicator();
}

void ListGrid::setTextMatrix(int row, int col, const QString& text) {
    model_.setText(row, col, text);
}

int ListGrid::colWidth(int col) const {
    const int width = colWidths_.value(col, -1);
    return width >= 0 ? width : horizontalHeader()->defaultSectionSize();
}

void ListGrid::setColWidth(int col, int width) {
    if (col < 0 || col >= cols()) {
        return;
    }
    colWidths_[col] = qMax(width, 0);
    if (viewInSync()) {
        setColumnWidth(col, colWidths_[col]);
    }
}

void ListGrid::setColAlignment(int col, Qt::Alignment alignment) {
    model_.setAlignment(col, alignment);
}

int ListGrid::clampRow(int row) const {
    return qBound(0, row, rows() - 1);
}

void ListGrid::setCurrentRow(int row) {
    row_ = rowSel_ = clampRow(row);
    showSelection();
}

void ListGrid::setSelectionEndRow(int row) {
    rowSel_ = clampRow(row);
    showSelection();
}

QList<int> ListGrid::selectedRows() const {
    QList<int> selected;
    if (row_ <= 0 || rows() <= 1) {
        return selected;
    }
    const int last = qMin(qMax(row_, rowSel_), rows() - 1);
    for (int row = qMax(qMin(row_, rowSel_), 1); row <= last; ++row) {
        selected.append(row);
    }
    return selected;
}

QList<int> ListGrid::selectedRowData() const {
    QList<int> data;
    for (int row : selectedRows()) {
        data.append(rowData(row));
    }
    return data;
}

// The view keeps its current index at the end of the selection the user moved to; the
// other end of the selected block is where the selection began (the classic current row).
void ListGrid::takeSelectionFromView() {
    if (showingSelection_ || !viewInSync()) {
        return;
    }
    const QModelIndex current = selectionModel()->currentIndex();
    if (!current.isValid()) {
        row_ = rowSel_ = 0;
        return;
    }
    const int row = current.row() + 1;
    if (!selectionModel()->isRowSelected(current.row())) {
        // Focus or a click beside the rows left a current row without a selection: show
        // it selected, as the classic grid always does. Queued, since the view is still
        // in the middle of changing its selection.
        row_ = rowSel_ = row;
        QMetaObject::invokeMethod(this, &ListGrid::showSelection, Qt::QueuedConnection);
        return;
    }
    int top = row;
    int bottom = row;
    while (top > 1 && selectionModel()->isRowSelected(top - 2)) {
        --top;
    }
    while (bottom < rows() - 1 && selectionModel()->isRowSelected(bottom)) {
        ++bottom;
    }
    // A current row inside the block (select all) counts as a selection downward.
    row_ = row == top ? bottom : top;
    rowSel_ = row == top ? top : bottom;
}

void ListGrid::showSelection() {
    if (!viewInSync()) {
        return;
    }
    row_ = clampRow(row_);
    rowSel_ = clampRow(rowSel_);
    const QScopedValueRollback guard(showingSelection_, true);
    if (row_ == 0 || cols() == 0) {
        selectionModel()->clear();
        return;
    }
    const int first = qMax(qMin(row_, rowSel_), 1);
    const int last = qMax(row_, rowSel_);
    const int col = qMax(selectionModel()->currentIndex().column(), 0);
    selectionModel()->setCurrentIndex(model_.index(qMax(rowSel_, 1) - 1, col),
                                      QItemSelectionModel::NoUpdate);
    selectionModel()->select(
        QItemSelection(model_.index(first - 1, 0), model_.index(last - 1, cols() - 1)),
        QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ListGrid::restoreViewState() {
    for (int col = 0; col < colWidths_.size(); ++col) {
        if (colWidths_[col] >= 0) {
            setColumnWidth(col, colWidths_[col]);
        }
    }
    showSelection();
    if (pendingTopRow_ > 0) {
        scrollToTop(pendingTopRow_);
        pendingTopRow_ = 0;
    }
}

int ListGrid::topRow() const {
    if (rows() <= 1) {
        return 0;
    }
    if (!viewInSync()) {
        return pendingTopRow_ > 0 ? pendingTopRow_ : 1;
    }
    const int row = rowAt(0);
    return row >= 0 ? row + 1 : 1;
}

void ListGrid::setTopRow(int row) {
    if (rows() <= 1) {
        return;
    }
    row = qBound(1, row, rows() - 1);
    if (viewInSync()) {
        scrollToTop(row);
    } else {
        pendingTopRow_ = row;
    }
}

void ListGrid::scrollToTop(int row) {
    if (row < 1 || row >= rows()) {
        return;
    }
    // The scroll range follows the rows only once the view has laid them out.
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(verticalHeader()->visualIndex(row - 1));
}

void ListGrid::setRedraw(bool redraw) {
    if (redraw == redraw_) {
        return;
    }
    redraw_ = redraw;
    model_.setBatched(!redraw);
    setUpdatesEnabled(redraw);
}

void ListGrid::sortRows(int col, Qt::SortOrder order) {
    if (col < 0 || col >= cols()) {
        return;
    }
    const QList<int> sorted = model_.sortedOrder(col, order);
    // The current row keeps its record; a range cannot stay a range after a sort.
    if (row_ > 0) {
        row_ = rowSel_ = static_cast<int>(sorted.indexOf(row_)) + 1;
    }
    model_.reorder(sorted);
    sortColumn_ = col;
    sortOrder_ = order;
    showSortIndicator();
    if (row_ > 0 && viewInSync()) {
        executeDelayedItemsLayout();
        scrollTo(model_.index(row_ - 1, qMax(columnAt(0), 0)));
    }
}

void ListGrid::showSortIndicator() {
    horizontalHeader()->setSortIndicatorShown(sortColumn_ >= 0);
    if (sortColumn_ >= 0) {
        horizontalHeader()->setSortIndicator(sortColumn_, sortOrder_);
    }
}

void ListGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    Q_EMIT gridDoubleClicked();
}
