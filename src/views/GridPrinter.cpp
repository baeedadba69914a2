#include "views/GridPrinter.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include "base/UiService.h"
#include "views/ListGrid.h"

GridPrinter::GridPrinter(const ListGrid& grid, const QString& title, const QDate& date)
    : grid_(grid), title_(title), date_(date) {}

bool GridPrinter::print() const {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title_);
    if (!ui::service().choosePrinter(printer))
        return false;
    if (render(printer))
        return true;
    ui::message(QStringLiteral("De lijst kon niet worden afgedrukt."), QStringLiteral("Afdrukken"),
                ui::Icon::Exclamation);
    return false;
}

void GridPrinter::preview(QWidget* parent) const {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title_);
    QPrintPreviewDialog dialog(&printer, parent);
    dialog.setWindowTitle(title_);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested,
                     [this](QPrinter* target) { render(*target); });
    dialog.exec();
}

bool GridPrinter::render(QPagedPaintDevice& device) const {
    device.setPageMargins(QMarginsF(margin_, margin_, margin_, margin_), QPageLayout::Millimeter);
    const Layout layout = measure(device);
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    for (int page = 0; page < layout.pages; ++page) {
        if (page > 0 && !device.newPage())
            return false;
        drawPage(painter, layout, page);
    }
    return painter.end();
}

GridPrinter::Layout GridPrinter::measure(QPagedPaintDevice& device) const {
    Layout layout;
    const int dpi = device.logicalDpiX();
    layout.page = device.pageLayout().paintRectPixels(dpi).size();

    layout.cellFont = grid_.font();
    if (layout.cellFont.pointSizeF() <= 0)
        layout.cellFont.setPointSizeF(9);
    layout.headerFont = layout.cellFont;
    layout.headerFont.setBold(true);
    layout.titleFont = layout.headerFont;
    layout.titleFont.setPointSizeF(layout.cellFont.pointSizeF() * 1.6);

    const QFontMetricsF cell(layout.cellFont, &device);
    layout.padding = cell.height() * 0.3;
    layout.rowHeight = cell.height() * 1.4;
    layout.titleHeight = QFontMetricsF(layout.titleFont, &device).height() * 1.6;
    layout.lineWidth = dpi / 150.0;

    // Columns keep their on-screen proportions; a grid wider than the paper is narrowed.
    const double toDevice = double(dpi) / grid_.logicalDpiX();
    double total = 0;
    for (int col = 0; col < grid_.cols(); ++col) total += grid_.colWidth(col) * toDevice;
    const double scale = total > layout.page.width() ? layout.page.width() / total : 1.0;
    double x = 0;
    for (int col = 0; col < grid_.cols(); ++col) {
        const double width = grid_.colWidth(col) * toDevice * scale;
        layout.columns.append({x, width});
        x += width;
    }

    // Below the title: the header row, the rows, and a line for the page number.
    const double forRows = layout.page.height() - layout.titleHeight - 2 * layout.rowHeight;
    layout.rowsPerPage = qMax(1, int(forRows / layout.rowHeight));
    const int dataRows = grid_.rows() - 1;
    layout.pages = qMax(1, (dataRows + layout.rowsPerPage - 1) / layout.rowsPerPage);
    return layout;
}

void GridPrinter::drawPage(QPainter& painter, const Layout& layout, int page) const {
    const double width = layout.page.width();
    painter.setPen(Qt::black);
    painter.setFont(layout.titleFont);
    painter.drawText(QRectF(0, 0, width, layout.titleHeight), Qt::AlignLeft | Qt::AlignTop, title_);
    painter.setFont(layout.cellFont);
    painter.drawText(QRectF(0, 0, width, layout.titleHeight), Qt::AlignRight | Qt::AlignTop,
                     date_.toString(QStringLiteral("dd-MM-yy")));

    double y = layout.titleHeight;
    const double tableWidth =
        layout.columns.isEmpty() ? 0 : layout.columns.last().x + layout.columns.last().width;
    drawRow(painter, layout, y, 0, layout.headerFont);
    y += layout.rowHeight;
    painter.setPen(QPen(Qt::black, layout.lineWidth));
    painter.drawLine(QPointF(0, y), QPointF(tableWidth, y));

    const int first = page * layout.rowsPerPage + 1;
    const int last = qMin(first + layout.rowsPerPage, grid_.rows());
    for (int row = first; row < last; ++row) {
        drawRow(painter, layout, y, row, layout.cellFont);
        y += layout.rowHeight;
        painter.setPen(QPen(QColor(200, 200, 200), layout.lineWidth));
        painter.drawLine(QPointF(0, y), QPointF(tableWidth, y));
    }

    painter.setPen(Qt::black);
    painter.setFont(layout.cellFont);
    painter.drawText(QRectF(0, layout.page.height() - layout.rowHeight, width, layout.rowHeight),
                     Qt::AlignRight | Qt::AlignBottom,
                     QStringLiteral("Pagina %1 van %2").arg(page + 1).arg(layout.pages));
}

void GridPrinter::drawRow(QPainter& painter, const Layout& layout, double y, int row,
                          const QFont& font) const {
    painter.setPen(Qt::black);
    painter.setFont(font);
    const QFontMetricsF metrics(font, painter.device());
    for (int col = 0; col < layout.columns.size(); ++col) {
        const Column& column = layout.columns[col];
        const QRectF cell(column.x + layout.padding, y, column.width - 2 * layout.padding,
                          layout.rowHeight);
        if (cell.width() <= 0)
            continue;
        const Qt::Alignment horizontal = grid_.colAlignment(col) & Qt::AlignHorizontal_Mask;
        painter.drawText(
            cell, (horizontal ? horizontal : Qt::AlignLeft) | Qt::AlignVCenter,
            metrics.elidedText(grid_.textMatrix(row, col), Qt::ElideRight, cell.width()));
    }
}
