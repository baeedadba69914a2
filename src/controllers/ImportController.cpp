#include "controllers/ImportController.h"

#include <QStringList>

#include "base/Error.h"
#include "controllers/ViewFactory.h"
#include "exchange/ExchangeRoutines.h"

ImportController::ImportController() = default;

ImportController::~ImportController() = default;

void ImportController::show() {
    if (!view_) {
        view_ = viewFactory().createImport();
        view_->setEvents(this);
    }
    view_->show();
}

void ImportController::importeer(const QString& table) {
    exchange::importTable(table);
}

void ImportController::toonVelden(int index) {
    static const QStringList kTables = {QStringLiteral("klant"), QStringLiteral("artikel"),
                                        QStringLiteral("tarief")};
    if (index < 0 || index >= kTables.size())
        return;
    QString text;
    try {
        text = exchange::importHelpText(kTables[index]);
    } catch (const Error&) {
        exchange::reportImportFailure();
        return;
    }
    const auto help = viewFactory().createHelpImport();
    help->setLabelTekst(text);
    help->showModal();
}

void ImportController::sluiten() {
    if (view_)
        view_->close();
}
