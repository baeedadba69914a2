#include "views/QtShellViews.h"

#include "views/frmAbout.h"
#include "views/frmFactuur.h"
#include "views/frmSplash.h"

std::unique_ptr<ISplashView> QtShellViews::createSplash() {
    return std::make_unique<frmSplash>(frmFactuur::frame());
}

std::unique_ptr<IAboutView> QtShellViews::createAbout() {
    return std::make_unique<frmAbout>(frmFactuur::frame());
}
