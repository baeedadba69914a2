#pragma once

#include "controllers/LabelViews.h"

class QtLabelViews : public LabelViewFactory {
public:
    std::unique_ptr<IEtikettenView> createEtiketten() override;
};
