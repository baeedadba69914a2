#include "views/QtInvoiceViews.h"

#include "views/frmFacturen.h"
#include "views/frmFactuurBewerken.h"

std::unique_ptr<IFacturenView> QtInvoiceViews::createFacturen() {
    return std::make_unique<frmFacturen>();
}

std::unique_ptr<IFactuurBewerkenView> QtInvoiceViews::createFactuurBewerken() {
    return std::make_unique<frmFactuurBewerken>();
}
