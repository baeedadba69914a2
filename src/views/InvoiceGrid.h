#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class ListGrid;
class QWidget;

// What the invoice list and the invoice editor do alike with their grid and window.
namespace invoiceGrid {

// The manual's page on invoices, opened by F1 on both screens.
inline constexpr char kHelpPage[] = "facturen.htm";

// Clears the grid with redraw off and writes the headers into row 0.
void begin(ListGrid& grid, const QStringList& headers);
// Appends a row of tab-joined cells carrying the key as row datum.
void add(ListGrid& grid, const QString& cells, qint32 key);
// The key of the current row; none while the header or an empty grid is current.
std::optional<qint32> currentKey(const ListGrid& grid);
// Closes the screen on its controller's word, telling its close event so by the flag.
void closeBy(QWidget& screen, bool& closingByController);

}  // namespace invoiceGrid
