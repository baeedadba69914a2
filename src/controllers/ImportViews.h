#pragma once

#include <QString>
#include <memory>

// The import screen (frmImport) and its help screen (frmHelpImport), as the import
// controller sees them.

// What the import screen tells its controller.
class IImportEvents {
public:
    virtual ~IImportEvents() = default;

    // cmdKlanten, cmdArtikelen and the third import button: the table to import into.
    virtual void importeer(const QString& table) = 0;
    // cmdHelpKlanten(index): 0 customers, 1 articles, 2 rates.
    virtual void toonVelden(int index) = 0;
    // cmdOK.
    virtual void sluiten() = 0;
};

class IImportView {
public:
    virtual ~IImportView() = default;

    virtual void setEvents(IImportEvents* events) = 0;
    // Shows the screen, or brings it to the front, and returns at once.
    virtual void show() = 0;
    virtual void close() = 0;
};

class IHelpImportView {
public:
    virtual ~IHelpImportView() = default;

    virtual QString LabelTekst() const = 0;
    virtual void setLabelTekst(const QString& text) = 0;
    // Shows the help and returns when the user has closed it (cmdClose).
    virtual void showModal() = 0;
};

struct ImportViewFactory {
    virtual ~ImportViewFactory() = default;
    virtual std::unique_ptr<IImportView> createImport() = 0;
    virtual std::unique_ptr<IHelpImportView> createHelpImport() = 0;
};
