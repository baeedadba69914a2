#pragma once

#include "controllers/InvoiceViews.h"

class QtInvoiceViews : public InvoiceViewFactory {
public:
    std::unique_ptr<IFacturenView> createFacturen() override;
    std::unique_ptr<IFactuurBewerkenView> createFactuurBewerken() override;
};
