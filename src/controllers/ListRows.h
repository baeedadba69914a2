#pragma once

#include <QString>
#include <initializer_list>

// What every list screen's controller does the same way: the text of a grid row and the one
// question before rows are removed.

// A grid row: the cells joined by tabs. A tab inside a cell's text would split the row, so it
// becomes a blank.
QString listRow(std::initializer_list<QString> cells);

// Fills a list view between its beginFill and endFill: however the fill ends (an error in the
// middle included), the grid is drawn again.
template <class View>
class ListFill {
public:
    template <class Headers>
    ListFill(View& view, const Headers& headers) : view_(view) {
        view_.beginFill(headers);
    }
    ~ListFill() { view_.endFill(); }
    ListFill(const ListFill&) = delete;
    ListFill& operator=(const ListFill&) = delete;

private:
    View& view_;
};

// Asks once, Ja/Nee with Nee as the default under "Verwijderen module(n)", whether the
// count selected rows may go: singular for one row, plural for more. True on Ja.
bool confirmRemoval(qsizetype count, const QString& singular, const QString& plural);

// The same question for articles and hour rates, whether they leave the register or an
// invoice.
bool confirmArticleRemoval(qsizetype count);
