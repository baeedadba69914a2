#include "views/frmImport.h"

#include <QPushButton>

#include "ui_frmImport.h"

frmImport::frmImport(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmImport>()) {
    ui_->setupUi(this);
    const auto importInto = [this](const QString& table) {
        return [this, table] {
            if (events_) {
                events_->importeer(table);
            }
        };
    };
    connect(ui_->cmdKlanten, &QPushButton::clicked, this, importInto(QStringLiteral("Klant")));
    connect(ui_->cmdArtikelen, &QPushButton::clicked, this, importInto(QStringLiteral("Artikel")));
    connect(ui_->cmdTarieven, &QPushButton::clicked, this, importInto(QStringLiteral("Tarief")));
    connectHelpButton(ui_->cmdHelpKlanten0, 0);
    connectHelpButton(ui_->cmdHelpKlanten1, 1);
    connectHelpButton(ui_->cmdHelpKlanten2, 2);
    connect(ui_->cmdOK, &QPushButton::clicked, this, [this] {
        if (events_) {
            events_->sluiten();
        }
    });
}

frmImport::~frmImport() = default;

void frmImport::connectHelpButton(QWidget* button, int index) {
    button->setObjectName(QStringLiteral("cmdHelpKlanten"));
    button->setProperty("index", index);
    connect(static_cast<QPushButton*>(button), &QPushButton::clicked, this, [this, index] {
        if (events_) {
            events_->toonVelden(index);
        }
    });
}

void frmImport::setEvents(IImportEvents* events) {
    events_ = events;
}

void frmImport::show() {
    QDialog::show();
    raise();
    activateWindow();
}

void frmImport::close() {
    QDialog::close();
}
