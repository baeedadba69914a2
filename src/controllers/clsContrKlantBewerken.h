#pragma once

#include <functional>
#include <memory>

#include "controllers/CustomerViews.h"
#include "records/clsObjKlant.h"

class clsControllerKlant;

// Edits one customer, or makes a new one, in frmKlantBewerken. A save never changes the
// stored row: it hides the old row and adds the edited customer as a new one, so invoices
// keep the name and address they were written to.
class clsContrKlantBewerken {
public:
    clsContrKlantBewerken();
    ~clsContrKlantBewerken();
    clsContrKlantBewerken(const clsContrKlantBewerken&) = delete;
    clsContrKlantBewerken& operator=(const clsContrKlantBewerken&) = delete;

    void setParent(clsControllerKlant* parent) { parent_ = parent; }

    // Closes the screen without saving.
    void Annuleren();
    // Opens the screen on the customer; one whose KlantID is 0 is a new customer.
    void StartKlantBewerken(const clsObjKlant& klant);
    // Fills the screen from the customer.
    void RefreshScherm();
    // Hides the old row, stores the screen's data as a new row, refreshes the list and
    // closes the screen.
    void Opslaan();

    // Called when the screen has closed, saved or not: the list controller lets this
    // controller go once control is back in the event loop.
    void setOnClosed(std::function<void()> onClosed) { onClosed_ = std::move(onClosed); }

private:
    clsObjKlant fromScreen() const;
    void close();

    clsControllerKlant* parent_ = nullptr;
    std::unique_ptr<IKlantBewerkenView> view_;
    clsObjKlant klant_;
    bool nieuw_ = false;
    std::function<void()> onClosed_;
};
