#include "printing/clsPrinter.h"

#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>

#include "base/UiService.h"
#include "printing/ReportRenderer.h"

namespace {
QString& current() {
    static QString name;
    return name;
}
}  // namespace

QString clsPrinter::comparedName(const QString& deviceName) {
    const bool redirected = deviceName.contains(QLatin1String("omgeleid")) ||
                            deviceName.contains(QLatin1String("redirected"));
    if (!redirected || !deviceName.contains(u'(') || !deviceName.contains(u')')) {
        return deviceName;
    }
    qsizetype open = deviceName.indexOf(u'(');
    qsizetype close = deviceName.indexOf(u')');
    const qsizetype nextOpen = deviceName.indexOf(u'(', open + 1);
    if (nextOpen >= 0) {
        open = nextOpen;
        const qsizetype nextClose = deviceName.indexOf(u')', close + 1);
        close = nextClose >= 0 ? nextClose : -1;  // none: nothing is removed
    }
    if (open >= close) {
        return deviceName;
    }
    return QString(deviceName.left(open) + deviceName.mid(close + 1)).trimmed();
}

QString clsPrinter::matchPrinter(const QString& chosen, const QStringList& installed) {
    const QString wanted = chosen.toUpper();
    for (const QString& name : installed) {
        if (comparedName(name).toUpper() == wanted) {
            return name;
        }
    }
    return QString();
}

bool clsPrinter::ShowPrinter(QPrinter& printer) {
    if (!ui::service().choosePrinter(printer)) {
        return false;
    }
    const QString match =
        matchPrinter(printer.printerName(), QPrinterInfo::availablePrinterNames());
    if (!match.isEmpty()) {
        setCurrentPrinterName(match);
    }
    return true;
}

QString clsPrinter::currentPrinterName() {
    return current().isEmpty() ? QPrinterInfo::defaultPrinterName() : current();
}

void clsPrinter::setCurrentPrinterName(const QString& name) {
    current() = name;
}

double clsPrinter::currentPageWidth() {
    const QPrinterInfo info = QPrinterInfo::printerInfo(currentPrinterName());
    QPageSize size = info.isNull() ? QPageSize() : info.defaultPageSize();
    if (!size.isValid()) {
        size = QPageSize(QPageSize::A4);
    }
    return size.sizePoints().width() * 20.0;
}

void clsPrinter::prepare(QPrinter& printer, const QString& documentName) {
    const QString name = currentPrinterName();
    if (!name.isEmpty()) {
        printer.setPrinterName(name);
    }
    printer.setDocName(documentName);
}

clsPrinter::Printed clsPrinter::print(const report::Document& document) {
    QPrinter printer(QPrinter::HighResolution);
    prepare(printer, document.title);
    if (!ShowPrinter(printer)) {
        return Printed::Cancelled;
    }
    return report::render(document, printer) ? Printed::Yes : Printed::Failed;
}

bool papierBreedGenoeg(double paginaBreedte, double reportWidth) {
    return reportWidth < paginaBreedte;
}
