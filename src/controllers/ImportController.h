#pragma once

#include <memory>

#include "controllers/ImportViews.h"

// Drives the import screen: each import button runs the import routine for its table,
// each help button shows the fields its table needs.
class ImportController : public IImportEvents {
public:
    ImportController();
    ~ImportController() override;

    // Shows the screen without blocking; a second call brings the same screen back.
    void show();

    void importeer(const QString& table) override;
    void toonVelden(int index) override;
    void sluiten() override;

private:
    std::unique_ptr<IImportView> view_;
};
