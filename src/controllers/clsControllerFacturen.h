#pragma once

#include <QList>
#include <QString>
#include <memory>
#include <vector>

#include "controllers/InvoiceViews.h"
#include "controllers/RegisterController.h"

class clsObjFactuur;

// The invoice register: lists every invoice, numbers new ones, opens them in the editor,
// deletes them and hands them to the invoice template. Several editors may be open at once.
class clsControllerFacturen : public RegisterController {
    Q_OBJECT

public:
    clsControllerFacturen();
    ~clsControllerFacturen() override;

    // Closes the screen; every open editor is asked first and may keep the screen open.
    void Annuleren();
    void StartFacturen();
    void start() override { StartFacturen(); }
    // ids: the invoice keys in decimal, joined by ",".
    void OpenSjabloon(const QString& ids);
    void RefreshScherm();
    void VerwijderFactuur(const QList<qint32>& ids);
    void NieuwFactuur();
    void BewerkenFactuur();

    // The buttons that act on the selected rows: each says so when nothing is selected.
    void BewerkGeselecteerde();
    void VerwijderGeselecteerde();
    void ToonGeselecteerde();
    // "E-factuur (UBL)": the selected invoices as e-invoices in a folder the user chooses.
    void EFactuurGeselecteerde();

    // The number a new invoice is offered: one above the highest, 1 for the first.
    static qint32 VolgendNummer();

    // The editors open now, oldest first.
    QList<clsContrFactuurBewerken*> editors() const;
    // An editor has closed; it goes once control is back in the event loop.
    void editorClosed(clsContrFactuurBewerken* editor);

Q_SIGNALS:
    void SluitFactuur();

private:
    void fillGrid();
    // The selected invoices, lowest row first; with none the user is told so under caption.
    QList<qint32> selectionOrSay(const QString& text, const QString& caption) const;
    void openEditor(const clsObjFactuur& factuur);
    void removeEditor(clsContrFactuurBewerken* editor);

    std::unique_ptr<IFacturenView> view_;
    std::vector<std::unique_ptr<clsContrFactuurBewerken>> editors_;
};
