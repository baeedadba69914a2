#pragma once

#include "controllers/CustomerViews.h"

class QtCustomerViews : public CustomerViewFactory {
public:
    std::unique_ptr<IKlantView> createKlantList() override;
    std::unique_ptr<IKlantBewerkenView> createKlantBewerken() override;
};
