#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "controllers/ArticleViews.h"
#include "records/clsObjArtikel.h"

class clsControllerArtikel;

// Edits one article, or makes a new one, in frmArtikelBewerken. A save never changes the
// stored row: it adds the edited article as a new row and hides the old one, so invoices
// keep the article as they billed it.
class clsContrArtikelBewerken {
public:
    clsContrArtikelBewerken();
    ~clsContrArtikelBewerken();
    clsContrArtikelBewerken(const clsContrArtikelBewerken&) = delete;
    clsContrArtikelBewerken& operator=(const clsContrArtikelBewerken&) = delete;

    clsControllerArtikel* Parent() const { return parent_; }
    void setParent(clsControllerArtikel* parent) { parent_ = parent; }

    // Closes the screen without saving.
    void Annuleren();
    // Opens the screen for the article, or for a new one without.
    void StartArtikelBewerken(const std::optional<clsObjArtikel>& artikel);
    // The number offered to a new article: the highest visible number (in text order)
    // plus 1, "1" without articles. Empty, after a message, when that number is no number.
    QString HaalNieuwNummer();
    // Saves what the screen holds; refused with a message for a number another article
    // has. Closes the screen after a save.
    void Opslaan();
    // Opens frmVoorraad on the article's stock.
    void BewerkVoorraad();
    // frmVoorraad's cmdOK: writes the typed stock at once, absolutely, and shows it.
    void VoorraadBevestigen();
    void VulVoorraadIn(qint32 voorraad);
    // The VAT percentage label after the class chosen in cmbBTWTarief.
    void PasPercentageLabelAan();

    // Called when the screen has closed, saved or not: the list controller lets this
    // controller go once control is back in the event loop.
    void setOnClosed(std::function<void()> onClosed) { onClosed_ = std::move(onClosed); }

private:
    bool numberTaken(const QString& nummer) const;
    clsObjArtikel fromScreen() const;
    void close();

    clsControllerArtikel* parent_ = nullptr;
    std::unique_ptr<IArtikelBewerkenView> view_;
    std::unique_ptr<IVoorraadView> stockView_;
    std::optional<clsObjArtikel> artikel_;
    QString originalNumber_;
    std::function<void()> onClosed_;
};
