#pragma once

#include <QColor>
#include <QDate>
#include <QObject>
#include <QString>

class ListGrid;
class QAbstractButton;
class QLineEdit;
class QPagedPaintDevice;
class QTimer;

// The grid routines every list screen shares: sorting by a column, searching the rows for
// the text of the screen's search box, and printing the grid. One object per list screen;
// it remembers the last search text and the row of the last match.
class clsFlexgrid : public QObject {
    Q_OBJECT
public:
    enum class Direction { Forward, Backward };

    static constexpr int searchDelay = 350;  // milliseconds after the last keystroke
    static const QColor notFoundBackground;

    clsFlexgrid(ListGrid& grid, QLineEdit& searchBox, QObject* parent = nullptr);

    // Selects the next (or previous) row containing the search text and scrolls it to
    // the top. True when a new match was found; otherwise the last match stays selected
    // and the search box turns pale pink.
    bool search(Direction direction);
    int searchPosition() const { return position_; }

    // A first click on a column sorts it ascending, a second click on it descending.
    void sortByColumn(int col);

    // Prints the grid as shown, with the title and the date ("dd-mm-yy") above it.
    bool print(QPagedPaintDevice& device, const QString& title, const QDate& date,
               double marginMillimetres = 5.0) const;

    // The wiring of a list screen: each change of the search box restarts the timer,
    // which searches forward once when typing pauses.
    void connectSearchTimer(QTimer& tmrZoek);
    void connectSearchButtons(QAbstractButton& cmdVerder, QAbstractButton& cmdTerug);
    // A click on a header sorts by that column.
    void connectSorting();

private:
    bool matches(int row) const;
    int findForward() const;
    int findBackward() const;
    void showFound(bool found);

    ListGrid& grid_;
    QLineEdit& searchBox_;
    QColor normalBackground_;
    QString text_;
    int position_ = 0;
};
