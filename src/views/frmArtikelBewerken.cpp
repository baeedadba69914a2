#include "views/frmArtikelBewerken.h"

#include <QShortcut>

#include "base/Conversions.h"
#include "base/Currency.h"
#include "base/Regional.h"
#include "controllers/clsContrArtikelBewerken.h"
#include "platform/HelpKey.h"
#include "ui_frmArtikelBewerken.h"
#include "views/FieldRules.h"
#include "views/WindowGeometry.h"

namespace {

const QString kInvalid = QStringLiteral("Ongeldige waarde");

bool emptyOrNumeric(const QString& text) {
    return text.isEmpty() || conv::isNumeric(text);
}

}  // namespace

frmArtikelBewerken::frmArtikelBewerken(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmArtikelBewerken>()) {
    ui_->setupUi(this);
    QFont title = ui_->lblTitel->font();
    title.setPointSizeF(title.pointSizeF() * 1.3);
    title.setBold(true);
    ui_->lblTitel->setFont(title);
    ui_->cmbBTWTarief->addItem(QStringLiteral("Tarief 1"), 1);
    ui_->cmbBTWTarief->addItem(QStringLiteral("Tarief 2"), 2);
    ui_->cmbBTWTarief->addItem(QStringLiteral("Geen BTW"), 0);
    // A new article has no class until the user picks one.
    ui_->cmbBTWTarief->setCurrentIndex(-1);
    setWindowModality(Qt::ApplicationModal);
    addFieldRules();

    const auto call = [this](void (clsContrArtikelBewerken::*operation)()) {
        return [this, operation] {
            if (controller_) {
                (controller_->*operation)();
            }
        };
    };
    connect(ui_->cmdOK, &QPushButton::clicked, this, call(&clsContrArtikelBewerken::Opslaan));
    connect(ui_->cmdAnnuleren, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->cmdBewerkVoorraad, &QPushButton::clicked, this,
            call(&clsContrArtikelBewerken::BewerkVoorraad));
    connect(ui_->cmbBTWTarief, &QComboBox::currentIndexChanged, this,
            call(&clsContrArtikelBewerken::PasPercentageLabelAan));
    auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(help, &QShortcut::activated, this,
            [] { HelpKey::showPageOnHelpKey(Qt::Key_F1, HelpPage::Artikelen); });
    rememberGeometry(this);
}

frmArtikelBewerken::~frmArtikelBewerken() = default;

void frmArtikelBewerken::addFieldRules() {
    fieldrules::filterKeys(ui_->txtNummer, fieldrules::kDigits, false);
    fieldrules::filterKeys(ui_->txtPrijs, fieldrules::kDigits + QStringLiteral(",."), true);
    fieldrules::checkOnLeave(ui_->txtNummer, emptyOrNumeric,
                             QStringLiteral("Het programma verwacht hier alleen cijfers!"),
                             kInvalid);
    fieldrules::checkOnLeave(
        ui_->txtPrijs, emptyOrNumeric, QStringLiteral("Ongeldige waarde voor prijs ingevuld"),
        kInvalid, [this] {
            const QString text = ui_->txtPrijs->text();
            if (!text.isEmpty()) {
                ui_->txtPrijs->setText(
                    Regional::amountText(Currency::fromDouble(conv::toDouble(text))));
            }
        });
    fieldrules::keepsInvalidInput(ui_->cmdAnnuleren);
}

void frmArtikelBewerken::SetArtikelBewerkenController(clsContrArtikelBewerken* controller) {
    controller_ = controller;
}

void frmArtikelBewerken::setCaptions(const QString& caption, const QString& title) {
    setWindowTitle(caption);
    ui_->lblTitel->setText(title);
}

QString frmArtikelBewerken::Nummer() const {
    return ui_->txtNummer->text();
}

void frmArtikelBewerken::setNummer(const QString& text) {
    ui_->txtNummer->setText(text);
}

QString frmArtikelBewerken::Omschrijving() const {
    return ui_->txtOmschrijving->text();
}

void frmArtikelBewerken::setOmschrijving(const QString& text) {
    ui_->txtOmschrijving->setText(text);
}

QString frmArtikelBewerken::Eenheid() const {
    return ui_->txtEenheid->text();
}

void frmArtikelBewerken::setEenheid(const QString& text) {
    ui_->txtEenheid->setText(text);
}

QString frmArtikelBewerken::Prijs() const {
    return ui_->txtPrijs->text();
}

void frmArtikelBewerken::setPrijs(const QString& text) {
    ui_->txtPrijs->setText(text);
}

QString frmArtikelBewerken::Voorraad() const {
    return ui_->txtVoorraad->text();
}

void frmArtikelBewerken::VulVoorraadIn(qint32 voorraad) {
    ui_->txtVoorraad->setText(QString::number(voorraad));
}

qint16 frmArtikelBewerken::BTWTarief() const {
    return static_cast<qint16>(ui_->cmbBTWTarief->currentData().toInt());
}

void frmArtikelBewerken::setBTWTarief(qint16 tarief) {
    QComboBox& box = *ui_->cmbBTWTarief;
    int index = box.findData(tarief);
    // A class from an import or an older version keeps its value.
    if (index < 0) {
        box.addItem(QStringLiteral("Tarief %1").arg(tarief), tarief);
        index = box.count() - 1;
    }
    box.setCurrentIndex(index);
}

bool frmArtikelBewerken::Negatief() const {
    return ui_->chkNegatief->isChecked();
}

void frmArtikelBewerken::setNegatief(bool allowed) {
    ui_->chkNegatief->setChecked(allowed);
}

bool frmArtikelBewerken::GeenVoorraad() const {
    return ui_->chkGeenVoorraad->isChecked();
}

void frmArtikelBewerken::setGeenVoorraad(bool noStock) {
    ui_->chkGeenVoorraad->setChecked(noStock);
}

void frmArtikelBewerken::setPercentageLabel(const QString& text) {
    ui_->lblPercentage->setText(text);
}

void frmArtikelBewerken::show() {
    QDialog::show();
    raise();
    activateWindow();
    ui_->txtNummer->setFocus();
}

void frmArtikelBewerken::close() {
    QDialog::done(Rejected);
}

void frmArtikelBewerken::reject() {
    if (controller_) {
        controller_->Annuleren();
    } else {
        QDialog::reject();
    }
}
