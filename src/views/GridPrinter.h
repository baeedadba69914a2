#pragma once

#include <QDate>
#include <QFont>
#include <QList>
#include <QSizeF>
#include <QString>

class ListGrid;
class QPagedPaintDevice;
class QPainter;
class QWidget;

// Prints a list grid as it is shown: the title and the date ("dd-mm-yy") above, then the
// header row and the rows in the grid's order, over as many pages as needed, with the
// header row repeated on each page. One routine draws the preview, the paper and a PDF.
class GridPrinter {
public:
    GridPrinter(const ListGrid& grid, const QString& title, const QDate& date);

    void setMargin(double millimetres) { margin_ = millimetres; }

    // False when the device cannot be painted on (no printer, a file that cannot be written).
    bool render(QPagedPaintDevice& device) const;
    // Asks for a printer through the UI service, then prints; false when the user
    // cancelled or printing failed (the user has been told).
    bool print() const;
    // Shows the pages in a print preview, from which the user can print them.
    void preview(QWidget* parent) const;

private:
    struct Column {
        double x = 0;
        double width = 0;
    };
    struct Layout {
        QSizeF page;
        QFont cellFont, headerFont, titleFont;
        QList<Column> columns;
        double padding = 0, rowHeight = 0, titleHeight = 0, lineWidth = 0;
        int rowsPerPage = 1, pages = 1;
    };

    Layout measure(QPagedPaintDevice& device) const;
    void drawPage(QPainter& painter, const Layout& layout, int page) const;
    void drawRow(QPainter& painter, const Layout& layout, double y, int row,
                 const QFont& font) const;

    const ListGrid& grid_;
    QString title_;
    QDate date_;
    double margin_ = 5.0;
};
