#include "views/clsFlexgrid.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTimer>

#include "views/GridPrinter.h"
#include "views/ListGrid.h"

const QColor clsFlexgrid::notFoundBackground = QColor(255, 224, 255);

clsFlexgrid::clsFlexgrid(ListGrid& grid, QLineEdit& searchBox, QObject* parent)
    : QObject(parent),
      grid_(grid),
      searchBox_(searchBox),
      normalBackground_(searchBox.palette().color(QPalette::Base)) {}

bool clsFlexgrid::search(Direction direction) {
    grid_.setRedraw(false);
    const QString text = searchBox_.text().toLower();
    if (text != text_) {
        text_ = text;
        position_ = 0;
    }
    // The list may have been filled again with fewer rows since the last match.
    if (position_ >= grid_.rows()) {
        position_ = 0;
    }

    const int found = direction == Direction::Forward ? findForward() : findBackward();
    if (found > 0) {
        position_ = found;
    }
    grid_.setCurrentRow(position_);
    if (position_ > 0 && grid_.topRow() != position_) {
        grid_.setTopRow(position_);
    }
    showFound(found > 0);
    grid_.setRedraw(true);
    return found > 0;
}

// The row's line as the grid keeps it: a text without a tab can only match within one cell.
bool clsFlexgrid::matches(int row) const {
    return grid_.rowText(row).toLower().contains(text_);
}

int clsFlexgrid::findForward() const {
    for (int row = position_ + 1; row < grid_.rows(); ++row) {
        if (matches(row)) {
            return row;
        }
    }
    return 0;
}

int clsFlexgrid::findBackward() const {
    for (int row = position_ - 1; row >= 1; --row) {
        if (matches(row)) {
            return row;
        }
    }
    return 0;
}

void clsFlexgrid::showFound(bool found) {
    QPalette palette = searchBox_.palette();
    palette.setColor(QPalette::Base, found ? normalBackground_ : notFoundBackground);
    searchBox_.setPalette(palette);
}

void clsFlexgrid::sortByColumn(int col) {
    const bool again = grid_.sortColumn() == col && grid_.sortOrder() == Qt::AscendingOrder;
    grid_.sortRows(col, again ? Qt::DescendingOrder : Qt::AscendingOrder);
}

bool clsFlexgrid::print(QPagedPaintDevice& device, const QString& title, const QDate& date,
                        double marginMillimetres) const {
    GridPrinter printer(grid_, title, date);
    printer.setMargin(marginMillimetres);
    return printer.render(device);
}

void clsFlexgrid::connectSearchTimer(QTimer& tmrZoek) {
    tmrZoek.setInterval(searchDelay);
    tmrZoek.setSingleShot(true);
    connect(&searchBox_, &QLineEdit::textChanged, &tmrZoek, qOverload<>(&QTimer::start));
    connect(&tmrZoek, &QTimer::timeout, this, [this] { search(Direction::Forward); });
}

void clsFlexgrid::connectSearchButtons(QAbstractButton& cmdVerder, QAbstractButton& cmdTerug) {
    connect(&cmdVerder, &QAbstractButton::clicked, this, [this] { search(Direction::Forward); });
    connect(&cmdTerug, &QAbstractButton::clicked, this, [this] { search(Direction::Backward); });
}

void clsFlexgrid::connectSorting() {
    connect(&grid_, &ListGrid::headerClicked, this, &clsFlexgrid::sortByColumn);
}
