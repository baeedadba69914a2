#pragma once

#include <QImage>
#include <QList>
#include <QRectF>
#include <QString>

#include "printing/ReportData.h"
#include "printing/ReportModel.h"

// The second step of a report: its bands laid out over pages. Each page is a list of what
// is drawn on it, at its place on the paper in twips; nothing here needs a device, so
// page breaks can be checked without printing.
namespace report {

struct DrawItem {
    enum class Kind { Text, Line, Box, Image };
    Kind kind = Kind::Text;
    QRectF rect;  // on the paper; a line runs from its top left to its bottom right
    QString text;
    FontSpec font;
    Qt::Alignment alignment = Qt::AlignLeft;
    bool wrap = false;
    double penWidth = 0;
    QString fill;
    QString color;
    QImage image;
    bool zoom = false;
    bool pageNumber = false;  // text holds {} for the page number and {count} for the pages
};

struct Page {
    QList<DrawItem> items;
};

struct Document {
    QString title;
    QSizeF paper;  // twips
    QList<Page> pages;
};

// Lays the data out in the report's bands. Raises Error 3265 when a field names a column
// the data does not have.
Document layOut(const Report& report, const ReportData& data);

}  // namespace report
