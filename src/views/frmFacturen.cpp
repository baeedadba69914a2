#include "views/frmFacturen.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>

#include "controllers/clsControllerFacturen.h"
#include "platform/HelpKey.h"
#include "ui_frmFacturen.h"
#include "views/InvoiceGrid.h"
#include "views/WindowGeometry.h"
#include "views/clsFlexgrid.h"
#include "views/frmFactuur.h"

frmFacturen::frmFacturen(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::frmFacturen>()) {
    ui_->setupUi(this);
    tmrZoek_.setObjectName(QStringLiteral("tmrZoek"));
    flexgrid_ = std::make_unique<clsFlexgrid>(*ui_->fgrFacturen, *ui_->txtZoek);
    flexgrid_->connectSearchTimer(tmrZoek_);
    flexgrid_->connectSearchButtons(*ui_->cmdVerder, *ui_->cmdTerug);
    flexgrid_->connectSorting();
    const auto forward = [this](QPushButton* button, void (clsControllerFacturen::*action)()) {
        connect(button, &QPushButton::clicked, this, [this, action] {
            if (controller_) {
                (controller_->*action)();
            }
        });
    };
    forward(ui_->cmdNieuw, &clsControllerFacturen::NieuwFactuur);
    forward(ui_->cmdBewerk, &clsControllerFacturen::BewerkGeselecteerde);
    forward(ui_->cmdVerwijder, &clsControllerFacturen::VerwijderGeselecteerde);
    forward(ui_->cmdToon, &clsControllerFacturen::ToonGeselecteerde);
    forward(ui_->cmdEFactuur, &clsControllerFacturen::EFactuurGeselecteerde);
    forward(ui_->cmdOK, &clsControllerFacturen::Annuleren);
    connect(ui_->fgrFacturen, &ListGrid::gridDoubleClicked, this, [this] {
        if (controller_) {
            controller_->BewerkGeselecteerde();
        }
    });
    rememberGeometry(this);
}

frmFacturen::~frmFacturen() = default;

void frmFacturen::SetFacturenController(clsControllerFacturen* controller) {
    controller_ = controller;
}

void frmFacturen::beginFill(const QStringList& headers) {
    invoiceGrid::begin(*ui_->fgrFacturen, headers);
}

void frmFacturen::addRow(const QString& cells, qint32 key) {
    invoiceGrid::add(*ui_->fgrFacturen, cells, key);
}

void frmFacturen::endFill() {
    ListGrid& grid = *ui_->fgrFacturen;
    grid.setColWidth(0, 110);
    grid.setColWidth(1, 220);
    grid.setColWidth(2, 100);
    grid.setColWidth(3, 120);
    grid.setColAlignment(3, Qt::AlignRight | Qt::AlignVCenter);
    grid.setRedraw(true);
}

QList<qint32> frmFacturen::selectedIDs() const {
    return ui_->fgrFacturen->selectedRowData();
}

std::optional<qint32> frmFacturen::currentID() const {
    return invoiceGrid::currentKey(*ui_->fgrFacturen);
}

void frmFacturen::show() {
    frmFactuur::showInside(this);
    raise();
    activateWindow();
}

void frmFacturen::close() {
    invoiceGrid::closeBy(*this, closingByController_);
}

void frmFacturen::closeEvent(QCloseEvent* event) {
    // The close box asks the controller, which closes the screen through close().
    if (closingByController_ || !controller_) {
        return QWidget::closeEvent(event);
    }
    event->ignore();
    controller_->Annuleren();
}

void frmFacturen::keyPressEvent(QKeyEvent* event) {
    if (HelpKey::showPageOnHelpKey(event->key(), invoiceGrid::kHelpPage)) {
        return;
    }
    // Enter opens the selected invoice (the one a search found, say); Escape closes.
    if (controller_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        controller_->BewerkGeselecteerde();
        return;
    }
    if (controller_ && event->key() == Qt::Key_Escape) {
        controller_->Annuleren();
        return;
    }
    QWidget::keyPressEvent(event);
}
