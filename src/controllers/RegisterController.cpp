#include "controllers/RegisterController.h"

#include "controllers/clsContrInstellingen.h"

std::unique_ptr<RegisterController> createProgramRegister(Register which) {
    // The register screens are added here as they are built; until then their menu
    // entries open nothing.
    switch (which) {
        case Register::Artikelen:
        case Register::Klanten:
        case Register::Facturen:
            break;
        case Register::Instellingen:
            return std::make_unique<clsContrInstellingen>(SettingsReports::program());
    }
    return nullptr;
}
