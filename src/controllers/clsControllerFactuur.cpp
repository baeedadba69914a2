#include "controllers/clsControllerFactuur.h"

#include "base/UiService.h"
#include "controllers/ShellViews.h"
#include "controllers/Trapped.h"
#include "platform/clsHelp.h"
#include "platform/modGlobal.h"

namespace {

std::size_t indexOf(Register which) {
    return static_cast<std::size_t>(which);
}

}  // namespace

clsControllerFactuur::clsControllerFactuur(RegisterCreator createRegister)
    : createRegister_(std::move(createRegister)) {}

clsControllerFactuur::~clsControllerFactuur() = default;

void clsControllerFactuur::StartArtikelen() {
    start(Register::Artikelen);
}

void clsControllerFactuur::StartFacturen() {
    start(Register::Facturen);
}

void clsControllerFactuur::StartInstellingen() {
    start(Register::Instellingen);
}

void clsControllerFactuur::StartKlanten() {
    start(Register::Klanten);
}

void clsControllerFactuur::Afsluiten() {
    if (IMainWindowView* window = mainWindow()) {
        window->unload();
    }
}

void clsControllerFactuur::StartHelp() {
    trapped([] { clsHelp().ToonHelpPagina(QStringLiteral("Introductie.htm")); });
}

void clsControllerFactuur::StartWebsite() {
    // Whether a browser opened is not our concern here: nothing is reported.
    ui::service().openAddress(QStringLiteral("https://") + modGlobal::vendorSite());
}

RegisterController* clsControllerFactuur::openRegister(Register which) const {
    return registers_[indexOf(which)].get();
}

void clsControllerFactuur::start(Register which) {
    trapped([this, which] {
        Slot& slot = registers_[indexOf(which)];
        if (!slot) {
            slot = createRegister_(which);
            if (!slot) {
                return;
            }
            connect(slot.get(), &RegisterController::closed, this,
                    [this, which] { forget(which); });
        }
        slot->start();
    });
}

void clsControllerFactuur::forget(Register which) {
    Slot& slot = registers_[indexOf(which)];
    if (!slot) {
        return;
    }
    // A late second closing event of the old register must not forget its successor.
    disconnect(slot.get(), nullptr, this, nullptr);
    // The register raises its closing event from inside its own code, which goes on
    // running after the event: it may only be deleted once control is back in the loop.
    slot.release()->deleteLater();
}
