#include "views/QtImportViews.h"

#include "views/frmFactuur.h"
#include "views/frmHelpImport.h"
#include "views/frmImport.h"

std::unique_ptr<IImportView> QtImportViews::createImport() {
    return std::make_unique<frmImport>(frmFactuur::frame());
}

std::unique_ptr<IHelpImportView> QtImportViews::createHelpImport() {
    return std::make_unique<frmHelpImport>(frmFactuur::frame());
}
