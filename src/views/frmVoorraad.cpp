#include "views/frmVoorraad.h"

#include "controllers/clsContrArtikelBewerken.h"
#include "ui_frmVoorraad.h"
#include "views/FieldRules.h"
#include "views/WindowGeometry.h"

frmVoorraad::frmVoorraad(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmVoorraad>()) {
    ui_->setupUi(this);
    // Wide enough for its title and a large count, at any scale.
    setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    fieldrules::filterKeys(ui_->txtVoorraad, fieldrules::kDigits + u'-', true);
    connect(ui_->cmdOK, &QPushButton::clicked, this, [this] {
        if (controller_) {
            controller_->VoorraadBevestigen();
        }
    });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    rememberGeometry(this);
}

frmVoorraad::~frmVoorraad() = default;

void frmVoorraad::Controller(clsContrArtikelBewerken* controller) {
    controller_ = controller;
}

void frmVoorraad::Invullen(const QString& voorraad) {
    ui_->txtVoorraad->setText(voorraad);
    ui_->txtVoorraad->selectAll();
}

QString frmVoorraad::Voorraad() const {
    return ui_->txtVoorraad->text();
}

void frmVoorraad::showModal() {
    exec();
}

void frmVoorraad::close() {
    accept();
}
