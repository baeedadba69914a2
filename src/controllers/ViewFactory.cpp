#include "controllers/ViewFactory.h"

#include <cassert>

namespace {

ViewFactory* installedFactory = nullptr;

}  // namespace

ViewFactory& viewFactory() {
    // Asking for a view before main() or a test installed a factory is a programming error.
    assert(installedFactory != nullptr);
    return *installedFactory;
}

void installViewFactory(ViewFactory* factory) {
    installedFactory = factory;
}
