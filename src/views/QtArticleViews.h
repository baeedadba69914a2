#pragma once

#include "controllers/ArticleViews.h"

class QtArticleViews : public ArticleViewFactory {
public:
    std::unique_ptr<IArtikelView> createArtikelList() override;
    std::unique_ptr<IArtikelBewerkenView> createArtikelBewerken() override;
    std::unique_ptr<IVoorraadView> createVoorraad() override;
    std::unique_ptr<IBewerkRegelView> createBewerkRegel() override;
};
