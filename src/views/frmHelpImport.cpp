#include "views/frmHelpImport.h"

#include <QPushButton>

#include "ui_frmHelpImport.h"

frmHelpImport::frmHelpImport(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmHelpImport>()) {
    ui_->setupUi(this);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

frmHelpImport::~frmHelpImport() = default;

void frmHelpImport::setLabelTekst(const QString& text) {
    labelTekst_ = text;
    // The text keeps its CR LF line ends; a label breaks lines at LF alone.
    QString shown = text;
    shown.remove(QLatin1Char('\r'));
    ui_->lblTekst->setText(shown);
}

void frmHelpImport::showModal() {
    exec();
}
