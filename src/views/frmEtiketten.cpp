#include "views/frmEtiketten.h"

#include <QKeyEvent>

#include "platform/HelpKey.h"
#include "ui_frmEtiketten.h"
#include "views/WindowGeometry.h"

namespace {
const QString kHelpPage = QStringLiteral("etiketten.htm");
}

frmEtiketten::frmEtiketten(QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::frmEtiketten>()) {
    ui_->setupUi(this);
    connect(ui_->cmbVel, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (events_) {
            events_->velGekozen(index);
        }
    });
    connect(ui_->cmdToon, &QPushButton::clicked, this, [this] {
        if (events_) {
            events_->toon();
        }
    });
    connect(ui_->cmdSluiten, &QPushButton::clicked, this, &QDialog::close);
    rememberGeometry(this);
}

frmEtiketten::~frmEtiketten() = default;

void frmEtiketten::setEvents(IEtikettenEvents* events) {
    events_ = events;
}

void frmEtiketten::setOnderwerp(const QString& text) {
    ui_->lblOnderwerp->setText(text);
}

void frmEtiketten::setVellen(const QStringList& names, int selected) {
    const QSignalBlocker quiet(ui_->cmbVel);
    ui_->cmbVel->clear();
    ui_->cmbVel->addItems(names);
    ui_->cmbVel->setCurrentIndex(selected);
}

int frmEtiketten::vel() const {
    return ui_->cmbVel->currentIndex();
}

void frmEtiketten::setPosities(int last) {
    ui_->txtPositie->setMaximum(last);
    ui_->txtPositie->setEnabled(last > 1);
    ui_->lblPositie->setEnabled(last > 1);
}

int frmEtiketten::positie() const {
    return ui_->txtPositie->value();
}

void frmEtiketten::show() {
    QDialog::show();
    raise();
    activateWindow();
}

void frmEtiketten::close() {
    QDialog::close();
}

void frmEtiketten::keyPressEvent(QKeyEvent* event) {
    if (HelpKey::showPageOnHelpKey(event->key(), kHelpPage)) {
        return;
    }
    QDialog::keyPressEvent(event);
}
