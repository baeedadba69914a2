#include "views/QtArticleViews.h"

#include "views/frmArtikel.h"
#include "views/frmArtikelBewerken.h"
#include "views/frmBewerkRegel.h"
#include "views/frmFactuur.h"
#include "views/frmVoorraad.h"

std::unique_ptr<IArtikelView> QtArticleViews::createArtikelList() {
    // Placed in the frame by its show().
    return std::make_unique<frmArtikel>();
}

std::unique_ptr<IArtikelBewerkenView> QtArticleViews::createArtikelBewerken() {
    return std::make_unique<frmArtikelBewerken>(frmFactuur::frame());
}

std::unique_ptr<IVoorraadView> QtArticleViews::createVoorraad() {
    return std::make_unique<frmVoorraad>(frmFactuur::frame());
}

std::unique_ptr<IBewerkRegelView> QtArticleViews::createBewerkRegel() {
    return std::make_unique<frmBewerkRegel>(frmFactuur::frame());
}
