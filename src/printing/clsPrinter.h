#pragma once

#include <QString>
#include <QStringList>

#include "printing/ReportLayout.h"

class QPrinter;

// The program's current printer: chosen through the system's print dialog, used by every
// printout until another is chosen. Until then it is the system's default printer.
class clsPrinter {
public:
    // Shows the print dialog for printer; on OK the installed printer whose name matches the
    // choice becomes the current printer. False when the user cancelled.
    static bool ShowPrinter(QPrinter& printer);

    // The printer the name rule matches with the chosen name (upper case), among the
    // installed ones in their order; empty when none matches.
    static QString matchPrinter(const QString& chosen, const QStringList& installed);
    // An installed printer's name as it is compared: a redirected printer ("omgeleid",
    // "redirected") loses a bracketed part.
    static QString comparedName(const QString& deviceName);

    static QString currentPrinterName();
    static void setCurrentPrinterName(const QString& name);
    // The page width of the current printer's paper, in twips; A4 when there is no printer.
    static double currentPageWidth();

    enum class Printed { Yes, Cancelled, Failed };
    // Shows the print dialog, starting at the current printer, and prints the pages as the
    // user set them up there: the printer, the copies, or a file to print to.
    static Printed print(const report::Document& document);
    // Sets a printer up for the current printer (preview, print dialog).
    static void prepare(QPrinter& printer, const QString& documentName);
};

// Whether a report fits the paper: only a page area strictly narrower than the paper does.
bool papierBreedGenoeg(double paginaBreedte, double reportWidth);
