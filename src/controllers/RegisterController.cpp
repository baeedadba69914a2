#include "controllers/RegisterController.h"

#include "controllers/clsControllerKlant.h"

std::unique_ptr<RegisterController> createProgramRegister(Register which) {
    // The register screens are added here as they are built; until then their menu
    // entries open nothing.
    switch (which) {
        case Register::Klanten:
            return std::make_unique<clsControllerKlant>();
        case Register::Artikelen:
        case Register::Facturen:
        case Register::Instellingen:
            break;
    }
    return nullptr;
}
