#include "views/frmMarges.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "platform/HelpKey.h"
#include "ui_frmMarges.h"
#include "views/FieldBehaviour.h"
#include "views/WindowGeometry.h"

frmMarges::frmMarges(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmMarges>()) {
    ui_->setupUi(this);
    for (QLineEdit* edit : findChildren<QLineEdit*>()) {
        field::acceptOnly(edit, field::kDigits);
        field::selectAllOnFocus(edit);
        field::zeroWhenLeftEmpty(edit);
    }
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::hide);
    rememberGeometry(this);
}

frmMarges::~frmMarges() = default;

QString frmMarges::text(const QString& control) const {
    return findChild<QLineEdit*>(control)->text();
}

void frmMarges::setText(const QString& control, const QString& text) {
    findChild<QLineEdit*>(control)->setText(text);
}

void frmMarges::showModal() {
    exec();
}

void frmMarges::keyPressEvent(QKeyEvent* event) {
    // The envelope margins are explained with the customers, where envelopes are printed.
    if (HelpKey::showPageOnHelpKey(event->key(), HelpPage::Klanten)) {
        return;
    }
    QDialog::keyPressEvent(event);
}
