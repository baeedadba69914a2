#pragma once

#include <memory>

class ISplashView;
class IAboutView;
class IImportView;
class IHelpImportView;

// Controllers never create widgets: they ask the installed factory for the abstract view
// they own. The program installs the Qt factory; tests install fakes. Each screen's Qt
// implementation file defines its own creator of the Qt factory.
class ViewFactory {
public:
    virtual ~ViewFactory() = default;

    virtual std::unique_ptr<ISplashView> createSplash() = 0;
    virtual std::unique_ptr<IAboutView> createAbout() = 0;
    virtual std::unique_ptr<IImportView> createImport() = 0;
    virtual std::unique_ptr<IHelpImportView> createHelpImport() = 0;
};

ViewFactory& viewFactory();
// The factory stays owned by the caller.
void installViewFactory(ViewFactory* factory);
