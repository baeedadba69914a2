#include "controllers/RegisterController.h"

#include "controllers/clsContrInstellingen.h"
#include "controllers/clsControllerArtikel.h"
#include "controllers/clsControllerFacturen.h"
#include "controllers/clsControllerKlant.h"

std::unique_ptr<RegisterController> createProgramRegister(Register which) {
    // Each register adds its list controller here as it is built; until then its menu
    // entry opens nothing.
    switch (which) {
        case Register::Artikelen:
            return std::make_unique<clsControllerArtikel>();
        case Register::Klanten:
            return std::make_unique<clsControllerKlant>();
        case Register::Facturen:
            return std::make_unique<clsControllerFacturen>();
        case Register::Instellingen:
            return std::make_unique<clsContrInstellingen>(SettingsReports::program());
    }
    return nullptr;
}
