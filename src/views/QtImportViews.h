#pragma once

#include "controllers/ImportViews.h"

class QtImportViews : public ImportViewFactory {
public:
    std::unique_ptr<IImportView> createImport() override;
    std::unique_ptr<IHelpImportView> createHelpImport() override;
};
