#pragma once

#include "controllers/PrintViews.h"

class QtPrintViews : public PrintViewFactory {
public:
    std::unique_ptr<IPreviewView> createPreview() override;
};
