#include "controllers/ImportController.h"

#include <QStringList>

#include "base/Error.h"
#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "exchange/ExchangeRoutines.h"

ImportController::ImportController() = default;

ImportController::~ImportController() = default;

void ImportController::show() {
    trapped([this] {
        if (!view_) {
            view_ = views<ImportViewFactory>().createImport();
            view_->setEvents(this);
        }
        view_->show();
    });
}

void ImportController::importeer(const QString& table) {
    trapped([&] { exchange::importTable(table); });
}

void ImportController::toonVelden(int index) {
    static const QStringList kTables = {QStringLiteral("klant"), QStringLiteral("artikel"),
                                        QStringLiteral("tarief")};
    if (index < 0 || index >= kTables.size()) {
        return;
    }
    trapped([&] {
        QString text;
        try {
            text = exchange::importHelpText(kTables[index]);
        } catch (const Error&) {
            // A table the database does not have: the import of it would fail alike.
            exchange::reportImportFailure();
            return;
        }
        const auto help = views<ImportViewFactory>().createHelpImport();
        help->setLabelTekst(text);
        help->showModal();
    });
}

void ImportController::sluiten() {
    trapped([this] {
        if (view_) {
            view_->close();
        }
    });
}
