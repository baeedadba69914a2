#pragma once

#include "controllers/ViewFactory.h"

// The program's screens. Each screen's own .cpp file defines its creator here.
class QtViewFactory : public ViewFactory {
public:
    ~QtViewFactory() override;

    std::unique_ptr<ISplashView> createSplash() override;
    std::unique_ptr<IAboutView> createAbout() override;
    std::unique_ptr<IImportView> createImport() override;
    std::unique_ptr<IHelpImportView> createHelpImport() override;
};
