#pragma once

#include <QString>
#include <memory>

class ImportController;

// The main window's data-exchange entries: export of a register, backup and restore of
// the database file, and the import screen.
class DataExchangeController {
public:
    DataExchangeController();
    ~DataExchangeController();

    // The export routine of the menu, given the tool's name and the extension ("csv").
    void exportRegister(const QString& toolName, const QString& extension);
    void backup();
    void restore();
    // Shows the import screen without blocking.
    void showImport();

private:
    std::unique_ptr<ImportController> import_;
};
