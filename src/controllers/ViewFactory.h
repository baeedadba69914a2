#pragma once

#include <cassert>

// Controllers never create widgets: they ask their feature's view factory for the abstract
// view they need. Each feature declares its views and its own small factory beside them
// (ShellViews.h, ImportViews.h, ArticleViews.h, ...); the program installs the Qt factories
// (views/QtViews.h), a test installs the fakes of the feature it tests.
//
// Ownership of a screen, one rule for all of them:
// - The controller that asked for a view owns it through the unique_ptr it got, and
//   deleting that pointer is the only way a screen ends. A view never deletes itself
//   (no WA_DeleteOnClose) and never deletes its controller.
// - A Qt parent only places a screen: a dialog is centred and modal over the frame, a
//   register screen sits in the frame's MDI area (frmFactuur::showInside), whose sub-window
//   goes when its screen goes. Every controller lives inside the frame's own controller and
//   so ends before the frame deletes its children: a parent never deletes a screen.
// - A view's close box tells its controller; the controller decides whether the screen ends.

template <class Factory>
Factory*& installedViews() {
    static Factory* factory = nullptr;
    return factory;
}

// The installed factory of a feature. Asking before main() or a test installed one is a
// programming error.
template <class Factory>
Factory& views() {
    assert(installedViews<Factory>() != nullptr);
    return *installedViews<Factory>();
}

// The factory stays owned by the caller; nullptr uninstalls it.
template <class Factory>
void installViews(Factory* factory) {
    installedViews<Factory>() = factory;
}

// Installs a factory for as long as it lives, then puts the previous one back.
template <class Factory>
class ScopedViews {
public:
    explicit ScopedViews(Factory* factory) : previous_(installedViews<Factory>()) {
        installViews(factory);
    }
    ~ScopedViews() { installViews(previous_); }
    ScopedViews(const ScopedViews&) = delete;
    ScopedViews& operator=(const ScopedViews&) = delete;

private:
    Factory* previous_;
};
