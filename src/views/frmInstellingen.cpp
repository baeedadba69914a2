#include "views/frmInstellingen.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QPixmap>
#include <utility>

#include "controllers/clsContrInstellingen.h"
#include "platform/HelpKey.h"
#include "ui_frmInstellingen.h"
#include "views/FieldBehaviour.h"
#include "views/WindowGeometry.h"
#include "views/frmFactuur.h"

namespace {

const QString kPageColour = QStringLiteral("background-color: #C0C0C0;");
const QString kCurrentPageColour = QStringLiteral("background-color: #FFFFFF;");

}  // namespace

frmInstellingen::frmInstellingen(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmInstellingen>()) {
    ui_->setupUi(this);
    ui_->cmbSjabloon->addItems(clsContrInstellingen::sjablonen());
    // The pages are frames named after their control array; the page buttons share a name.
    const QList<QWidget*> pages = {ui_->fraInstellingen0, ui_->fraInstellingen1,
                                   ui_->fraInstellingen2};
    const QList<QPushButton*> buttons = {ui_->cmdInstellingen0, ui_->cmdInstellingen1,
                                         ui_->cmdInstellingen2};
    for (int i = 0; i < buttons.size(); ++i) {
        pages[i]->setObjectName(QStringLiteral("fraInstellingen"));
        pages[i]->setProperty("index", i);
        buttons[i]->setObjectName(QStringLiteral("cmdInstellingen"));
        buttons[i]->setProperty("index", i);
        connect(buttons[i], &QPushButton::clicked, this, [this, i] { showPage(i); });
    }
    ui_->imgBedrijfslogo->hide();
    connectButtons();
    setUpFields();
    showPage(0);
    rememberGeometry(this);
}

frmInstellingen::~frmInstellingen() = default;

template <class Action>
void frmInstellingen::forward(QPushButton* button, Action action) {
    connect(button, &QPushButton::clicked, this, [this, action] {
        if (controller_) {
            (controller_->*action)();
        }
    });
}

void frmInstellingen::connectButtons() {
    forward(ui_->cmdOK, &clsContrInstellingen::Opslaan);
    forward(ui_->cmdAnnuleren, &clsContrInstellingen::Annuleren);
    forward(ui_->cmdLogo, &clsContrInstellingen::OphalenLogo);
    forward(ui_->cmdMarges, &clsContrInstellingen::ToonMarges);
    forward(ui_->cmbVb, &clsContrInstellingen::ToonTekstvoorbeeld);
    forward(ui_->cmdExReport, &clsContrInstellingen::ToonVoorbeeldFactuur);
    forward(ui_->cmdKlantOverzicht, &clsContrInstellingen::PrintKlantOverzicht);
    forward(ui_->cmdArtOverzicht, &clsContrInstellingen::PrintArtikelOverzicht);
}

void frmInstellingen::setUpFields() {
    for (QLineEdit* each : findChildren<QLineEdit*>()) {
        field::selectAllOnFocus(each);
    }
    const QString rateKeys = field::kDigits + QStringLiteral(",.");
    field::acceptOnly(ui_->txtBTWTarief1, rateKeys);
    field::acceptOnly(ui_->txtBTWTarief2, rateKeys);
    field::acceptOnly(ui_->txtDagen, field::kDigits);
    field::checkOnLeave(ui_->txtBTWTarief1, &clsContrInstellingen::isGetal,
                        QStringLiteral("BTW tarief 1"));
    field::checkOnLeave(ui_->txtBTWTarief2, &clsContrInstellingen::isGetal,
                        QStringLiteral("BTW tarief 2"));
    field::checkOnLeave(ui_->txtDagen, &clsContrInstellingen::isGetal,
                        QStringLiteral("Dagen betalingstermijn"));
    connect(ui_->txtLogo, &QLineEdit::editingFinished, this, [this] {
        if (controller_) {
            controller_->InstellenLogo(ui_->txtLogo->text());
        }
    });
}

void frmInstellingen::showPage(int index) {
    const QList<QPushButton*> buttons = {ui_->cmdInstellingen0, ui_->cmdInstellingen1,
                                         ui_->cmdInstellingen2};
    for (QPushButton* button : buttons) {
        button->setStyleSheet(kPageColour);
    }
    buttons.value(index)->setStyleSheet(kCurrentPageColour);
    ui_->stkPaginas->setCurrentIndex(index);
}

void frmInstellingen::SetInstellingenController(clsContrInstellingen* controller) {
    controller_ = controller;
}

QLineEdit* frmInstellingen::edit(const QString& control) const {
    auto* found = findChild<QLineEdit*>(control);
    Q_ASSERT_X(found, "frmInstellingen", qPrintable(control));
    return found;
}

QString frmInstellingen::text(const QString& control) const {
    return edit(control)->text();
}

void frmInstellingen::setText(const QString& control, const QString& text) {
    edit(control)->setText(text);
}

QStringList frmInstellingen::installedFonts() const {
    return QFontDatabase::families();
}

void frmInstellingen::setFonts(const QStringList& names, int selected) {
    ui_->cboFont->clear();
    ui_->cboFont->addItems(names);
    ui_->cboFont->setCurrentIndex(selected);
}

int frmInstellingen::fontIndex() const {
    return ui_->cboFont->currentIndex();
}

QString frmInstellingen::fontText() const {
    return ui_->cboFont->currentText();
}

void frmInstellingen::setPoints(const QStringList& sizes, int selected) {
    ui_->cboPoint->clear();
    ui_->cboPoint->addItems(sizes);
    ui_->cboPoint->setCurrentIndex(selected);
}

QString frmInstellingen::pointText() const {
    return ui_->cboPoint->currentText();
}

int frmInstellingen::Sjabloon() const {
    return ui_->cmbSjabloon->currentIndex();
}

void frmInstellingen::setSjabloon(int position) {
    ui_->cmbSjabloon->setCurrentIndex(position);
}

bool frmInstellingen::NoSound() const {
    return ui_->chkNoSound->isChecked();
}

void frmInstellingen::setNoSound(bool checked) {
    ui_->chkNoSound->setChecked(checked);
}

void frmInstellingen::showLogo(const QString& path) {
    QPixmap picture;
    if (!path.isEmpty()) {
        picture.load(path);
    }
    // A file that is no picture shows as a missing one.
    const bool shown = !picture.isNull();
    if (shown) {
        const int height = fontMetrics().height() * 4;
        ui_->imgBedrijfslogo->setPixmap(
            picture.scaled(height * 3, height, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    }
    ui_->imgBedrijfslogo->setVisible(shown);
    ui_->lblGeenAfbeelding->setVisible(!shown);
}

void frmInstellingen::show() {
    frmFactuur::showInside(this);
    raise();
    activateWindow();
}

void frmInstellingen::close() {
    controller_ = nullptr;
    QDialog::close();
    if (parentWidget()) {
        parentWidget()->close();  // the frame's sub-window around the screen
    }
}

void frmInstellingen::keyPressEvent(QKeyEvent* event) {
    if (HelpKey::showPageOnHelpKey(event->key(), HelpPage::Instellingen)) {
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmInstellingen::closeEvent(QCloseEvent* event) {
    // The close box (of the screen or of its sub-window) cancels, as Annuleren does.
    if (clsContrInstellingen* controller = std::exchange(controller_, nullptr)) {
        controller->Annuleren();
    }
    QDialog::closeEvent(event);
}

void frmInstellingen::reject() {
    if (controller_) {
        controller_->Annuleren();
    } else {
        QDialog::reject();
    }
}
