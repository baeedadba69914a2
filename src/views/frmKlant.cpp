#include "views/frmKlant.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPushButton>
#include <iterator>

#include "controllers/clsControllerKlant.h"
#include "platform/HelpKey.h"
#include "ui_frmKlant.h"
#include "views/GridPrinter.h"
#include "views/WindowGeometry.h"
#include "views/clsFlexgrid.h"
#include "views/frmFactuur.h"

namespace {

// The width of each column in average characters: room for an ordinary name, address and
// telephone number, so the list reads without widening a column first.
constexpr int kColumnCharacters[] = {26, 24, 22, 11, 16, 14, 8};

}  // namespace

frmKlant::frmKlant(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::frmKlant>()) {
    ui_->setupUi(this);
    flexgrid_ = std::make_unique<clsFlexgrid>(*ui_->fgrKlanten, *ui_->txtZoek);
    tmrZoek_.setObjectName(QStringLiteral("tmrZoek"));
    flexgrid_->connectSearchTimer(tmrZoek_);
    flexgrid_->connectSearchButtons(*ui_->cmdVerder, *ui_->cmdTerug);
    flexgrid_->connectSorting();
    QFont title = ui_->lblTitel->font();
    title.setBold(true);
    title.setPointSizeF(title.pointSizeF() * 1.4);
    ui_->lblTitel->setFont(title);
    connectButtons();
    rememberGeometry(this);
}

frmKlant::~frmKlant() = default;

template <typename Action>
void frmKlant::onClick(QWidget* button, Action action) {
    connect(static_cast<QPushButton*>(button), &QPushButton::clicked, this, [this, action] {
        if (controller_) {
            action(*controller_);
        }
    });
}

void frmKlant::connectButtons() {
    onClick(ui_->cmdNieuw, [](clsControllerKlant& c) { c.NieuwKlant(); });
    onClick(ui_->cmdBewerk, [](clsControllerKlant& c) { c.BewerkenKlant(); });
    onClick(ui_->cmdVerwijder, [](clsControllerKlant& c) { c.VerwijderGeselecteerdeKlanten(); });
    onClick(ui_->cmdOK, [](clsControllerKlant& c) { c.Bevestigen(); });
    onClick(ui_->cmdAnnuleren, [](clsControllerKlant& c) { c.Annuleren(true); });
    onClick(ui_->cmdAfdrukken, [](clsControllerKlant& c) { c.AfdrukkenLijst(); });
    onClick(ui_->cmdAfdrukkenEnveloppe, [](clsControllerKlant& c) { c.AfdrukkenEnveloppe(); });
    connect(ui_->fgrKlanten, &ListGrid::gridDoubleClicked, this, [this] {
        if (controller_) {
            controller_->DubbelKlik();
        }
    });
}

void frmKlant::SetKlantController(clsControllerKlant* controller) {
    controller_ = controller;
}

void frmKlant::setVoorSelecteren(bool selecting) {
    selecting_ = selecting;
    ui_->lblTitel->setText(selecting ? QStringLiteral("Selecteer een klant")
                                     : QStringLiteral("Klanten"));
    setWindowTitle(ui_->lblTitel->text());
    ui_->cmdNieuw->setVisible(!selecting);
    ui_->cmdBewerk->setVisible(!selecting);
    ui_->cmdVerwijder->setVisible(!selecting);
    // Without cmdAnnuleren, cmdOK is the one button that closes the list, in its place.
    ui_->cmdAnnuleren->setVisible(selecting);
}

void frmKlant::beginFill(const QList<GridColumn>& columns) {
    ListGrid& grid = *ui_->fgrKlanten;
    grid.setRedraw(false);
    grid.clear();
    grid.setRows(1);
    QStringList headers;
    for (const GridColumn& column : columns) {
        headers << column.header;
    }
    grid.setHeaders(headers);
    for (int col = 0; col < columns.size(); ++col) {
        grid.setColAlignment(col, columns.at(col).alignment);
    }
    if (!columnsSized_) {
        // Once: afterwards the grid keeps the widths the user gives the columns.
        columnsSized_ = true;
        const int character = grid.fontMetrics().averageCharWidth();
        for (int col = 0; col < columns.size() && col < int(std::size(kColumnCharacters)); ++col) {
            grid.setColWidth(col, kColumnCharacters[col] * character);
        }
    }
}

void frmKlant::addRow(const QString& cells, qint32 klantID) {
    ListGrid& grid = *ui_->fgrKlanten;
    grid.addRow(cells);
    grid.setRowData(grid.rows() - 1, klantID);
}

void frmKlant::endFill() {
    ui_->fgrKlanten->setRedraw(true);
}

std::optional<qint32> frmKlant::currentID() const {
    const ListGrid& grid = *ui_->fgrKlanten;
    const int row = grid.currentRow();
    if (row < 1 || row >= grid.rows()) {
        return std::nullopt;
    }
    return grid.rowData(row);
}

QList<qint32> frmKlant::selectedIDs() const {
    return ui_->fgrKlanten->selectedRowData();
}

void frmKlant::printList(const QString& title, double margins) {
    GridPrinter printer(*ui_->fgrKlanten, title, QDate::currentDate());
    printer.setMargin(margins);
    printer.print();
}

void frmKlant::show() {
    frmFactuur::showInside(this);
    ui_->fgrKlanten->setFocus();
}

void frmKlant::close() {
    closing_ = true;
    QWidget::close();
    closing_ = false;
    if (auto* subWindow = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        subWindow->hide();
    }
}

QSize frmKlant::sizeHint() const {
    // The list opens 700 by 460, or larger when the fonts need it.
    return QWidget::sizeHint().expandedTo(QSize(700, 460));
}

ListGrid& frmKlant::grid() {
    return *ui_->fgrKlanten;
}

void frmKlant::keyPressEvent(QKeyEvent* event) {
    if (HelpKey::showPageOnHelpKey(event->key(), QString::fromLatin1(HelpPage::Klanten))) {
        return;
    }
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            // In the search box Enter finds the next match; elsewhere it acts on the row,
            // as a double click does.
            if (ui_->txtZoek->hasFocus()) {
                ui_->cmdVerder->click();
            } else if (controller_) {
                controller_->DubbelKlik();
            }
            return;
        case Qt::Key_Escape:
            if (selecting_) {
                ui_->cmdAnnuleren->click();
                return;
            }
            break;
        default:
            break;
    }
    QWidget::keyPressEvent(event);
}

void frmKlant::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    // Qt is closing the screen already: the controller's own close of it adds nothing.
    if (closing_ || !controller_) {
        return;
    }
    closing_ = true;
    controller_->Annuleren(true);
    closing_ = false;
}
