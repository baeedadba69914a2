#pragma once

#include <QString>
#include <QStringList>

// Invoices and overviews as PDF files, without a screen (lindebrug-cli). Each routine tells
// the user what went wrong through the UI service and returns true only when the file was
// written and checked.

// The invoices with these invoice numbers in the template of the settings.
bool FacturenAlsPdf(const QStringList& nummers, const QString& path);
// The overview of the selector (1 articles, 3 customers).
bool OverzichtAlsPdf(qint16 keuze, const QString& path);
