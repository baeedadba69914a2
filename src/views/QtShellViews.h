#pragma once

#include "controllers/ShellViews.h"

class QtShellViews : public ShellViewFactory {
public:
    std::unique_ptr<ISplashView> createSplash() override;
    std::unique_ptr<IAboutView> createAbout() override;
};
