#pragma once

#include <QString>

#include "printing/ReportModel.h"

// Report files: the templates and overviews are data, read from resources/reports/*.rpt.
// The format is described in resources/reports/README.md. A file is checked whole when it
// is read; the first fault raises Error InvalidReportFile naming the file, the line and
// the fault.
namespace report {

// Reads the report of that name (":/reports/<name>.rpt" among the program's resources).
Report loadReport(const QString& name);
// Reads a report from its text; fileName only names it in messages.
Report parseReport(const QString& text, const QString& fileName);

}  // namespace report
