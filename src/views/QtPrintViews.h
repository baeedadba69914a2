#pragma once

#include "controllers/PrintViews.h"

// The print preview windows of the program.
class QtPrintViewFactory : public PrintViewFactory {
public:
    ~QtPrintViewFactory() override;
    std::unique_ptr<IPreviewView> createPreview() override;
};
