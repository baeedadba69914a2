#include "views/GridPrinter.h"

#include <QPrintPreviewDialog>
#include <QPrinter>

#include "base/UiService.h"
#include "printing/ReportFile.h"
#include "printing/ReportRenderer.h"
#include "views/ListGrid.h"

namespace {

using namespace report;

// Keeps the title, the date, the page number and the rules as wide as the table area.
void fitToMargin(Report& design, double marginTwips) {
    design.leftMargin = design.rightMargin = marginTwips;
    design.topMargin = design.bottomMargin = marginTwips;
    design.reportWidth = design.paper.width() - 2 * marginTwips;
    for (Band& band : design.bands) {
        for (Item& item : band.items) {
            if (item.kind == ItemKind::Line) {
                item.rect.setWidth(design.reportWidth);
            } else if (item.alignment & Qt::AlignRight) {
                item.rect.moveRight(design.reportWidth);
            }
        }
    }
}

Item cell(const QRectF& rect, const QString& text, Qt::Alignment alignment, FontSpec font) {
    Item item;
    item.kind = text.isNull() ? ItemKind::Field : ItemKind::Label;
    item.rect = rect;
    item.text = text;
    item.alignment = alignment;
    item.font = font;
    return item;
}

}  // namespace

GridPrinter::GridPrinter(const ListGrid& grid, const QString& title, const QDate& date)
    : grid_(grid), title_(title), date_(date) {}

report::Document GridPrinter::document() const {
    Report design = loadReport(QStringLiteral("Lijst"));
    design.name = title_;
    fitToMargin(design, margin_ * kTwipsPerMillimetre);
    design.item(QStringLiteral("lblTitel"))->text = title_;
    design.item(QStringLiteral("lblDatum"))->text = date_.toString(QStringLiteral("dd-MM-yy"));

    // Columns keep their on-screen widths; a grid wider than the paper is narrowed.
    const double twipsPerPixel = 1440.0 / grid_.logicalDpiX();
    double total = 0;
    for (int col = 0; col < grid_.cols(); ++col) {
        total += grid_.colWidth(col) * twipsPerPixel;
    }
    const double scale = total > design.reportWidth ? design.reportWidth / total : 1.0;

    Band& header = design.band(BandKind::ColumnHeader);
    Band& detail = design.band(BandKind::Detail);
    FontSpec bold = design.baseFont;
    bold.bold = true;
    const double padding = 1.2 * kTwipsPerMillimetre;
    auto columns = std::make_shared<Columns>();
    double x = 0;
    for (int col = 0; col < grid_.cols(); ++col) {
        const double width = grid_.colWidth(col) * twipsPerPixel * scale;
        const Qt::Alignment horizontal = grid_.colAlignment(col) & Qt::AlignHorizontal_Mask;
        const Qt::Alignment alignment = horizontal ? horizontal : Qt::AlignLeft;
        const double inner = qMax(0.0, width - 2 * padding);
        header.items.append(cell(QRectF(x + padding, 0, inner, header.height - 0.5),
                                 grid_.textMatrix(0, col), alignment, bold));
        Item field = cell(QRectF(x + padding, 0, inner, detail.height), QString(), alignment,
                          design.baseFont);
        field.source = QString::number(col);
        detail.items.append(field);
        columns->add(field.source, QString());
        x += width;
    }
    for (BandKind kind : {BandKind::ColumnHeader, BandKind::Detail}) {
        for (Item& item : design.band(kind).items) {
            if (item.kind == ItemKind::Line) {
                item.rect.setWidth(qMin(x, design.reportWidth));
            }
        }
    }

    ReportData data;
    data.detailColumns = columns;
    Group rows;
    for (int row = 1; row < grid_.rows(); ++row) {
        Row values;
        values.reserve(grid_.cols());
        for (int col = 0; col < grid_.cols(); ++col) {
            values.append(grid_.textMatrix(row, col));
        }
        rows.details.append(std::move(values));
    }
    data.groups.append(std::move(rows));
    return layOut(design, data);
}

bool GridPrinter::render(QPagedPaintDevice& device) const {
    return report::render(document(), device);
}

bool GridPrinter::print() const {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title_);
    if (!ui::service().choosePrinter(printer)) {
        return false;
    }
    if (render(printer)) {
        return true;
    }
    ui::message(QStringLiteral("De lijst kon niet worden afgedrukt."), QStringLiteral("Afdrukken"),
                ui::Icon::Exclamation);
    return false;
}

void GridPrinter::preview(QWidget* parent) const {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title_);
    QPrintPreviewDialog dialog(&printer, parent);
    dialog.setWindowTitle(title_);
    const report::Document pages = document();
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested,
                     [&pages](QPrinter* target) { report::render(pages, *target); });
    dialog.exec();
}
