#pragma once

#include <QDate>
#include <QString>

#include "printing/ReportLayout.h"

class ListGrid;
class QPagedPaintDevice;
class QWidget;

// Prints a list grid as it is shown: the title and the date ("dd-mm-yy") above, then the
// header row and the rows in the grid's order, over as many pages as needed, with the
// header row repeated on each page. A table report on the program's report engine (the
// report file Lijst), so the preview, the paper and a PDF come from one routine.
class GridPrinter {
public:
    GridPrinter(const ListGrid& grid, const QString& title, const QDate& date);

    void setMargin(double millimetres) { margin_ = millimetres; }

    // The pages of the printout.
    report::Document document() const;
    // False when the device cannot be painted on (no printer, a file that cannot be written).
    bool render(QPagedPaintDevice& device) const;
    // Asks for a printer through the UI service, then prints; false when the user
    // cancelled or printing failed (the user has been told).
    bool print() const;
    // Shows the pages in a print preview, from which the user can print them.
    void preview(QWidget* parent) const;

private:
    const ListGrid& grid_;
    QString title_;
    QDate date_;
    double margin_ = 5.0;
};
