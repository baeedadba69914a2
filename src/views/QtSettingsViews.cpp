#include "views/QtSettingsViews.h"

#include "views/frmFactuur.h"
#include "views/frmInstellingen.h"
#include "views/frmMarges.h"
#include "views/frmTekst.h"

std::unique_ptr<IInstellingenView> QtSettingsViews::createInstellingen() {
    // A register screen: placed in the frame's MDI area when it is shown.
    return std::make_unique<frmInstellingen>();
}

std::unique_ptr<IMargesView> QtSettingsViews::createMarges() {
    return std::make_unique<frmMarges>(frmFactuur::frame());
}

std::unique_ptr<ITekstView> QtSettingsViews::createTekst() {
    return std::make_unique<frmTekst>(frmFactuur::frame());
}
