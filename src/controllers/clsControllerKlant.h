#pragma once

#include <QList>
#include <memory>
#include <optional>

#include "controllers/CustomerViews.h"
#include "controllers/OpenEdit.h"
#include "controllers/RegisterController.h"
#include "controllers/clsContrEtiketten.h"
#include "records/clsObjKlant.h"

class clsContrKlantBewerken;

// The customer register: the list of visible customers in management mode (from the main
// menu: new, edit, hide, print) or in selection mode (from the invoice editor: pick the
// customer of an invoice).
class clsControllerKlant : public RegisterController {
    Q_OBJECT

public:
    clsControllerKlant();
    ~clsControllerKlant() override;

    // Closes the screen: SluitKlant(geannuleerd), then closed().
    void Annuleren(bool geannuleerd);
    // The loaded customer of the grid's current row; none without a current data row.
    std::optional<clsObjKlant> GeselecteerdeKlant() const;
    void StartKlanten(bool selecteren);
    void start() override { StartKlanten(false); }
    // Loads the visible customers again and refills the grid.
    void RefreshScherm();
    // Hides the customers after one question: each row keeps only its key, blanked.
    void VerwijderKlant(const QList<qint32>& ids);
    void NieuwKlant();
    // Edits the customer of the current row; tells the user when there is none.
    void BewerkenKlant();
    void AfdrukkenLijst();
    // cmdAfdrukkenEnveloppe: an envelope for each selected customer, through the label screen
    // opened on the envelope.
    void AfdrukkenEnveloppe();

    // cmdVerwijder: the selected range, or a notice that nothing is selected.
    void VerwijderGeselecteerdeKlanten();
    // cmdOK: closes the list; in selection mode only with a customer chosen.
    void Bevestigen();
    // A double click on the list: edit in management mode, choose in selection mode.
    void DubbelKlik();

    // The edit screen open now, if any.
    clsContrKlantBewerken* editController() const { return edit_.get(); }

Q_SIGNALS:
    void SluitKlant(bool geannuleerd);

private:
    void fillGrid();
    bool customerChosen(const QString& caption) const;
    void startEdit(const clsObjKlant& klant);
    void closeScreen(bool cancelled);

    std::unique_ptr<IKlantView> view_;
    OpenEdit<clsContrKlantBewerken> edit_;
    std::unique_ptr<clsContrEtiketten> enveloppen_;
    QList<clsObjKlant> klanten_;
    bool selecting_ = false;
};
