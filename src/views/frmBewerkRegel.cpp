#include "views/frmBewerkRegel.h"

#include <QLineEdit>

#include "base/Conversions.h"
#include "base/UiService.h"
#include "ui_frmBewerkRegel.h"
#include "views/FieldRules.h"
#include "views/WindowGeometry.h"

namespace {

const QString kInvalid = QStringLiteral("Ongeldige waarde ingevoerd");

bool emptyOrNumeric(const QString& text) {
    return text.isEmpty() || conv::isNumeric(text);
}

// Typed digits, Backspace and the comma; an emptied field reads 0 once left.
void addRules(QLineEdit* field, const QString& caption) {
    fieldrules::filterKeys(field, fieldrules::kDigits + u',', true);
    fieldrules::checkOnLeave(field, emptyOrNumeric, kInvalid, caption, [field] {
        if (field->text().isEmpty()) {
            field->setText(QStringLiteral("0"));
        }
    });
}

}  // namespace

frmBewerkRegel::frmBewerkRegel(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmBewerkRegel>()) {
    ui_->setupUi(this);
    addRules(ui_->txtAantal, QStringLiteral("Aantal"));
    addRules(ui_->txtKorting, QStringLiteral("Korting"));
    fieldrules::keepsInvalidInput(ui_->cmdCancel);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmBewerkRegel::confirm);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    setResult(Rejected);
    rememberGeometry(this);
}

frmBewerkRegel::~frmBewerkRegel() = default;

void frmBewerkRegel::setAantal(const QString& text) {
    ui_->txtAantal->setText(text);
}

void frmBewerkRegel::setKorting(const QString& text) {
    ui_->txtKorting->setText(text);
}

QString frmBewerkRegel::Aantal() const {
    return ui_->txtAantal->text();
}

QString frmBewerkRegel::Korting() const {
    return ui_->txtKorting->text();
}

void frmBewerkRegel::confirm() {
    // Enter confirms without leaving the field: its check runs here.
    const std::pair<QLineEdit*, QString> fields[] = {{ui_->txtAantal, QStringLiteral("Aantal")},
                                                     {ui_->txtKorting, QStringLiteral("Korting")}};
    for (const auto& [field, caption] : fields) {
        if (!emptyOrNumeric(field->text())) {
            ui::message(kInvalid, caption, ui::Icon::Exclamation);
            field->setFocus();
            field->selectAll();
            return;
        }
        if (field->text().isEmpty()) {
            field->setText(QStringLiteral("0"));
        }
    }
    accept();
}

void frmBewerkRegel::showModal() {
    ui_->txtAantal->selectAll();
    exec();
}
