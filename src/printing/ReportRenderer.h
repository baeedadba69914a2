#pragma once

#include <QString>

#include "printing/ReportLayout.h"

class QPagedPaintDevice;
class QPainter;

// The third step of a report: its pages drawn on any paged device (the preview, a printer,
// a PDF file), the paper set to the report's and the device's margins to none, as every
// position of a page is measured from the paper's edge.
namespace report {

// False when the device could not be painted on or a page could not be added.
bool render(const Document& document, QPagedPaintDevice& device);

// Writes the document to a PDF file (fonts embedded, text selectable) under a temporary
// name beside it and then renames it over path: a reader never finds half a file there.
// False when anything failed; the file at path is then untouched.
bool writePdf(const Document& document, const QString& path);

}  // namespace report
