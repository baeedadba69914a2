#include "controllers/DataExchangeController.h"

#include "controllers/ImportController.h"
#include "exchange/ExchangeRoutines.h"

DataExchangeController::DataExchangeController() = default;

DataExchangeController::~DataExchangeController() = default;

void DataExchangeController::exportRegister(const QString& toolName, const QString& extension) {
    exchange::exportRegister(exchange::exportBaseName(toolName), extension);
}

void DataExchangeController::backup() {
    exchange::backup();
}

void DataExchangeController::restore() {
    exchange::restore();
}

void DataExchangeController::showImport() {
    if (!import_)
        import_ = std::make_unique<ImportController>();
    import_->show();
}
