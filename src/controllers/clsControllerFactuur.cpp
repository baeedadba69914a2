#include "controllers/clsControllerFactuur.h"

#include "base/UiService.h"
#include "controllers/ShellViews.h"
#include "platform/clsHelp.h"
#include "platform/modGlobal.h"

clsControllerFactuur::clsControllerFactuur(RegisterCreator createRegister)
    : createRegister_(std::move(createRegister)) {}

clsControllerFactuur::~clsControllerFactuur() = default;

void clsControllerFactuur::StartArtikelen() {
    start(Register::Artikelen, &clsControllerFactuur::mobjArtikelEvent_SluitArtikel);
}

void clsControllerFactuur::StartFacturen() {
    start(Register::Facturen, &clsControllerFactuur::mobjFactuurEvent_SluitFactuur);
}

void clsControllerFactuur::StartInstellingen() {
    start(Register::Instellingen, &clsControllerFactuur::mobjInstellingenEvent_SluitInstellingen);
}

void clsControllerFactuur::StartKlanten() {
    start(Register::Klanten, &clsControllerFactuur::mobjKlantEvent_SluitKlant);
}

void clsControllerFactuur::Afsluiten() {
    if (IMainWindowView* window = mainWindow())
        window->unload();
}

void clsControllerFactuur::StartHelp() {
    clsHelp().ToonHelpPagina(QStringLiteral("Introductie.htm"));
}

void clsControllerFactuur::StartWebsite() {
    // Whether a browser opened is not our concern here: nothing is reported.
    ui::service().openAddress(QStringLiteral("https://") + modGlobal::vendorSite());
}

RegisterController* clsControllerFactuur::openRegister(Register which) const {
    return slotOf(which).get();
}

void clsControllerFactuur::mobjArtikelEvent_SluitArtikel() {
    forget(mobjArtikelEvent);
}

void clsControllerFactuur::mobjInstellingenEvent_SluitInstellingen() {
    forget(mobjInstellingenEvent);
}

void clsControllerFactuur::mobjKlantEvent_SluitKlant() {
    forget(mobjKlantEvent);
}

void clsControllerFactuur::mobjFactuurEvent_SluitFactuur() {
    forget(mobjFactuurEvent);
}

clsControllerFactuur::Slot& clsControllerFactuur::slotOf(Register which) {
    return const_cast<Slot&>(std::as_const(*this).slotOf(which));
}

const clsControllerFactuur::Slot& clsControllerFactuur::slotOf(Register which) const {
    switch (which) {
        case Register::Artikelen:
            return mobjArtikelEvent;
        case Register::Klanten:
            return mobjKlantEvent;
        case Register::Facturen:
            return mobjFactuurEvent;
        case Register::Instellingen:
            break;
    }
    return mobjInstellingenEvent;
}

void clsControllerFactuur::start(Register which, ClosingHandler onClosed) {
    Slot& slot = slotOf(which);
    if (!slot) {
        slot = createRegister_(which);
        if (!slot)
            return;
        connect(slot.get(), &RegisterController::closed, this, onClosed);
    }
    slot->start();
}

void clsControllerFactuur::forget(Slot& slot) {
    if (!slot)
        return;
    // A late second closing event of the old register must not forget its successor.
    disconnect(slot.get(), nullptr, this, nullptr);
    // The register raises its closing event from inside its own code, which goes on
    // running after the event: it may only be deleted once control is back in the loop.
    slot.release()->deleteLater();
}
