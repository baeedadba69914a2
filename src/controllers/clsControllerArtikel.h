#pragma once

#include <memory>
#include <optional>

#include "controllers/ArticleViews.h"
#include "controllers/OpenEdit.h"
#include "controllers/RegisterController.h"
#include "records/clsObjArtikel.h"

class clsContrArtikelBewerken;
class clsObjArtikelPerFactuur;

// The article register: the list of visible articles in management mode (from the main
// menu: new, edit, hide, print) or in selection mode (from the invoice editor: pick an
// article with a quantity and a discount).
class clsControllerArtikel : public RegisterController {
    Q_OBJECT

public:
    clsControllerArtikel();
    ~clsControllerArtikel() override;

    // The screen closes without a choice: SluitArtikel with cancelled True.
    void Annuleren();
    // The article chosen in selection mode; none before a choice.
    std::optional<clsObjArtikel> GeselecteerdArtikel() const { return selected_; }
    void StartArtikelen(bool selecteren);
    void start() override { StartArtikelen(false); }
    // Fills the list again from the database.
    void RefreshScherm();
    void VerwijderArtikelen();
    void NieuwArtikel();
    void BewerkenArtikel();
    // Shows frmBewerkRegel with the line's quantity and discount; unless cancelled, adds the
    // stock difference and raises BewerkArtikel.
    void BewerkGeselecteerdArtikel(const clsObjArtikelPerFactuur& regel);
    void AfdrukkenLijst();

    // Selection mode's cmdOK: hands the selected article over with quantity and discount.
    void Selecteren();
    // A double click on the list: edit in management mode, choose in selection mode.
    void DubbelKlik();

    // The edit screen open now, if any.
    clsContrArtikelBewerken* editController() const { return edit_.get(); }

Q_SIGNALS:
    void SluitArtikel(bool geannuleerd, double aantal, double korting);
    void BewerkArtikel(qint32 artikelID, double aantal, double korting);

private:
    void fillGrid();
    static QString listFilter();
    void startEdit(std::optional<clsObjArtikel> artikel);
    void closeScreen(bool cancelled, double aantal, double korting);

    std::unique_ptr<IArtikelView> view_;
    OpenEdit<clsContrArtikelBewerken> edit_;
    std::optional<clsObjArtikel> selected_;
    bool selecting_ = false;
};
