#include "views/frmKlantBewerken.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "controllers/clsContrKlantBewerken.h"
#include "platform/HelpKey.h"
#include "ui_frmKlantBewerken.h"
#include "views/WindowGeometry.h"

frmKlantBewerken::frmKlantBewerken(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmKlantBewerken>()) {
    ui_->setupUi(this);
    // The edit stays in front of the list it came from until it is saved or cancelled.
    setWindowModality(Qt::ApplicationModal);
    // Room for an ordinary company name or e-mail address without scrolling inside the box.
    const int fieldWidth = fontMetrics().averageCharWidth() * 40;
    for (QLineEdit* field : findChildren<QLineEdit*>()) {
        field->setMinimumWidth(fieldWidth);
    }
    QFont title = ui_->lblTitel->font();
    title.setBold(true);
    title.setPointSizeF(title.pointSizeF() * 1.4);
    ui_->lblTitel->setFont(title);
    connect(ui_->cmdOK, &QPushButton::clicked, this, [this] {
        if (controller_) {
            controller_->Opslaan();
        }
    });
    connect(ui_->cmdAnnuleren, &QPushButton::clicked, this, &frmKlantBewerken::reject);
    rememberGeometry(this);
}

frmKlantBewerken::~frmKlantBewerken() = default;

void frmKlantBewerken::SetKlantBewerkenController(clsContrKlantBewerken* controller) {
    controller_ = controller;
}

void frmKlantBewerken::setCaptions(const QString& caption, const QString& title) {
    setWindowTitle(caption);
    ui_->lblTitel->setText(title);
}

QLineEdit* frmKlantBewerken::field(KlantVeld which) const {
    switch (which) {
        case KlantVeld::Bedrijfsnaam:
            return ui_->txtBedrijfsnaam;
        case KlantVeld::Voorletters:
            return ui_->txtVoorletters;
        case KlantVeld::Tussenvoegsel:
            return ui_->txtTussenvoegsel;
        case KlantVeld::Achternaam:
            return ui_->txtAchternaam;
        case KlantVeld::Adres:
            return ui_->txtAdres;
        case KlantVeld::Postcode:
            return ui_->txtPostcode;
        case KlantVeld::Plaats:
            return ui_->txtPlaats;
        case KlantVeld::Land:
            return ui_->txtLand;
        case KlantVeld::Telefoon:
            return ui_->txtTelefoon;
        case KlantVeld::Email:
            return ui_->txtEmail;
    }
    return ui_->txtBedrijfsnaam;
}

QString frmKlantBewerken::text(KlantVeld which) const {
    return field(which)->text();
}

void frmKlantBewerken::setText(KlantVeld which, const QString& text) {
    field(which)->setText(text);
}

bool frmKlantBewerken::Dhr() const {
    return ui_->optDhr->isChecked();
}

void frmKlantBewerken::setDhr(bool dhr) {
    (dhr ? ui_->optDhr : ui_->optMevr)->setChecked(true);
}

bool frmKlantBewerken::BTW() const {
    return ui_->chkBTW->isChecked();
}

void frmKlantBewerken::setBTW(bool nulProcent) {
    ui_->chkBTW->setChecked(nulProcent);
}

void frmKlantBewerken::show() {
    QDialog::show();
    raise();
    activateWindow();
    ui_->txtBedrijfsnaam->setFocus();
}

void frmKlantBewerken::close() {
    QDialog::done(QDialog::Rejected);
}

void frmKlantBewerken::reject() {
    if (controller_) {
        controller_->Annuleren();
    } else {
        QDialog::reject();
    }
}

void frmKlantBewerken::keyPressEvent(QKeyEvent* event) {
    if (HelpKey::showPageOnHelpKey(event->key(), QString::fromLatin1(HelpPage::Klanten))) {
        return;
    }
    QDialog::keyPressEvent(event);
}
