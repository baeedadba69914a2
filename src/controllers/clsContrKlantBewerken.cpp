#include "controllers/clsContrKlantBewerken.h"

#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsControllerKlant.h"

namespace {

// The screen's text fields and the customer's properties they show.
struct TextBinding {
    KlantVeld field;
    const QString& (clsObjKlant::*get)() const;
    void (clsObjKlant::*set)(const QString&);
};

constexpr TextBinding kTextBindings[] = {
    {KlantVeld::Bedrijfsnaam, &clsObjKlant::Bedrijfsnaam, &clsObjKlant::setBedrijfsnaam},
    {KlantVeld::Voorletters, &clsObjKlant::Voorletters, &clsObjKlant::setVoorletters},
    {KlantVeld::Tussenvoegsel, &clsObjKlant::Tussenvoegsel, &clsObjKlant::setTussenvoegsel},
    {KlantVeld::Achternaam, &clsObjKlant::Achternaam, &clsObjKlant::setAchternaam},
    {KlantVeld::Adres, &clsObjKlant::Adres, &clsObjKlant::setAdres},
    {KlantVeld::Postcode, &clsObjKlant::Postcode, &clsObjKlant::setPostcode},
    {KlantVeld::Plaats, &clsObjKlant::Plaats, &clsObjKlant::setPlaats},
    {KlantVeld::Land, &clsObjKlant::Land, &clsObjKlant::setLand},
    {KlantVeld::Telefoon, &clsObjKlant::Telefoon, &clsObjKlant::setTelefoon},
    {KlantVeld::Email, &clsObjKlant::Email, &clsObjKlant::setEmail},
};

}  // namespace

clsContrKlantBewerken::clsContrKlantBewerken() = default;

clsContrKlantBewerken::~clsContrKlantBewerken() = default;

void clsContrKlantBewerken::Annuleren() {
    trapped([this] { close(); });
}

void clsContrKlantBewerken::StartKlantBewerken(const clsObjKlant& klant) {
    trapped([this, &klant] {
        klant_ = klant;
        nieuw_ = klant_.KlantID() == 0;
        if (!view_) {
            view_ = views<CustomerViewFactory>().createKlantBewerken();
            view_->SetKlantBewerkenController(this);
        }
        RefreshScherm();
        view_->show();
    });
}

void clsContrKlantBewerken::RefreshScherm() {
    trapped([this] {
        const QString caption =
            nieuw_ ? QStringLiteral("Nieuwe klant") : QStringLiteral("Bewerken klant");
        view_->setCaptions(caption, caption);
        // A new customer starts as "Dhr.", the choice the screen offers first.
        view_->setDhr(nieuw_ || klant_.Dhr());
        view_->setBTW(klant_.BTW());
        for (const TextBinding& binding : kTextBindings) {
            view_->setText(binding.field, (klant_.*binding.get)());
        }
    });
}

void clsContrKlantBewerken::Opslaan() {
    trapped([this] {
        // The stored row is hidden first and keeps its data: invoices written to it go on
        // showing the customer as it was. Should the insert below fail, the row stays
        // hidden and the screen stays open, so a second OK stores the customer.
        if (klant_.KlantID() != 0) {
            klant_.setZichtbaar(false);
            klant_.Bijwerken();
        }
        // Fax and DebiteurNummer are on no screen: the new row starts them empty.
        klant_ = fromScreen();
        klant_.Opslaan();
        if (parent_) {
            parent_->RefreshScherm();
        }
        close();
    });
}

clsObjKlant clsContrKlantBewerken::fromScreen() const {
    clsObjKlant klant;
    klant.setDhr(view_->Dhr());
    klant.setBTW(view_->BTW());
    for (const TextBinding& binding : kTextBindings) {
        (klant.*binding.set)(view_->text(binding.field));
    }
    klant.setZichtbaar(true);
    return klant;
}

void clsContrKlantBewerken::close() {
    if (view_) {
        view_->close();
    }
    if (onClosed_) {
        onClosed_();
    }
}
