#include "views/QtCustomerViews.h"

#include "views/frmFactuur.h"
#include "views/frmKlant.h"
#include "views/frmKlantBewerken.h"

std::unique_ptr<IKlantView> QtCustomerViews::createKlantList() {
    return std::make_unique<frmKlant>();
}

std::unique_ptr<IKlantBewerkenView> QtCustomerViews::createKlantBewerken() {
    return std::make_unique<frmKlantBewerken>(frmFactuur::frame());
}
