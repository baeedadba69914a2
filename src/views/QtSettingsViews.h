#pragma once

#include "controllers/SettingsViews.h"

class QtSettingsViews : public SettingsViewFactory {
public:
    std::unique_ptr<IInstellingenView> createInstellingen() override;
    std::unique_ptr<IMargesView> createMarges() override;
    std::unique_ptr<ITekstView> createTekst() override;
};
