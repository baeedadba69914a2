#include "controllers/clsContrArtikelBewerken.h"

#include "base/Conversions.h"
#include "base/Error.h"
#include "base/Regional.h"
#include "base/UiService.h"
#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsControllerArtikel.h"
#include "records/clsObjBTW.h"
#include "store/clsDatabase.h"
#include "store/modDatabase.h"

namespace {

const QString kNieuwCaption = QStringLiteral("Nieuw Artikel/Uur");

// A text inside a Jet string literal.
QString quoted(QString text) {
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QLatin1String("''")) +
           QLatin1Char('\'');
}

}  // namespace

clsContrArtikelBewerken::clsContrArtikelBewerken() = default;

clsContrArtikelBewerken::~clsContrArtikelBewerken() = default;

void clsContrArtikelBewerken::Annuleren() {
    trapped([this] { close(); });
}

void clsContrArtikelBewerken::StartArtikelBewerken(const std::optional<clsObjArtikel>& artikel) {
    trapped([&] {
        artikel_ = artikel;
        if (!view_) {
            view_ = views<ArticleViewFactory>().createArtikelBewerken();
            view_->SetArtikelBewerkenController(this);
        }
        if (artikel_) {
            originalNumber_ = artikel_->Nummer();
            view_->setCaptions(QStringLiteral("Bewerken artikel"),
                               QStringLiteral("Bewerken Artikel/Uur"));
            view_->setNummer(artikel_->Nummer());
            view_->setOmschrijving(artikel_->Omschrijving());
            view_->setEenheid(artikel_->Eenheid());
            view_->setPrijs(Regional::amountText(artikel_->Prijs()));
            view_->VulVoorraadIn(artikel_->Voorraad());
            view_->setBTWTarief(artikel_->BTWTarief());
            view_->setNegatief(artikel_->Negatief());
            view_->setGeenVoorraad(artikel_->GeenVoorraad());
            PasPercentageLabelAan();
        } else {
            originalNumber_.clear();
            view_->setCaptions(kNieuwCaption, kNieuwCaption);
            view_->setNummer(HaalNieuwNummer());
            view_->setPrijs(Regional::amountText(Currency()));
            view_->VulVoorraadIn(0);
            view_->setPercentageLabel(QStringLiteral("(0 %)"));
        }
        view_->show();
    });
}

QString clsContrArtikelBewerken::HaalNieuwNummer() {
    try {
        const auto set = clsDatabase().openReadSet(
            QStringLiteral("SELECT Nummer FROM Artikel WHERE Zichtbaar=true ORDER BY Nummer DESC"));
        if (set->isEOF()) {
            return QStringLiteral("1");
        }
        const QString highest = set->text(0).value_or(QString());
        return Regional::numberText(conv::toDouble(highest) + 1);
    } catch (const Error& error) {
        ui::message(QStringLiteral("Error ") + QString::number(error.number()) +
                        QStringLiteral(" (") + error.description() +
                        QStringLiteral(") in procedure HaalNieuwNummer of Class Module "
                                       "clsContrArtikelBewerken"),
                    ui::kProgramCaption, ui::Icon::Exclamation);
        return QString();
    }
}

void clsContrArtikelBewerken::Opslaan() {
    trapped([this] {
        const QString nummer = view_->Nummer();
        if (nummer != originalNumber_ && numberTaken(nummer)) {
            ui::message(QStringLiteral("Het artikelnummer bestaat al. Het artikel kan niet "
                                       "worden opgeslagen."),
                        QStringLiteral("Artikel opslaan"), ui::Icon::Exclamation);
            return;
        }
        clsObjArtikel edited = fromScreen();
        // The new row first: should it fail, the article the user had is still there.
        edited.Opslaan();
        if (artikel_) {
            artikel_->setZichtbaar(false);
            artikel_->Bijwerken();
        }
        artikel_ = edited;
        originalNumber_ = edited.Nummer();
        if (parent_) {
            parent_->RefreshScherm();
        }
        close();
    });
}

void clsContrArtikelBewerken::BewerkVoorraad() {
    trapped([this] {
        stockView_ = views<ArticleViewFactory>().createVoorraad();
        stockView_->Controller(this);
        stockView_->Invullen(view_->Voorraad());
        stockView_->showModal();
        stockView_.reset();
    });
}

void clsContrArtikelBewerken::VoorraadBevestigen() {
    trapped([this] {
        const QString typed = stockView_->Voorraad();
        if (!conv::isNumeric(typed)) {
            // The dialog stays open for a number.
            ui::message(QStringLiteral("Ongeldige waarde ingevoerd"), QStringLiteral("Voorraad"),
                        ui::Icon::Exclamation);
            return;
        }
        const qint32 voorraad = conv::toLong(conv::toDouble(typed));
        // Written at once, whatever becomes of the edit: the count the user just made.
        UpdateVoorraad(artikel_ ? artikel_->artikelID() : 0, voorraad, false);
        VulVoorraadIn(voorraad);
        stockView_->close();
    });
}

void clsContrArtikelBewerken::VulVoorraadIn(qint32 voorraad) {
    view_->VulVoorraadIn(voorraad);
}

void clsContrArtikelBewerken::PasPercentageLabelAan() {
    trapped([this] {
        const qint16 tarief = view_->BTWTarief();
        if (tarief != 1 && tarief != 2) {
            view_->setPercentageLabel(QStringLiteral("(0 %)"));
            return;
        }
        const double percentage = clsObjBTW::rowInUse().GeefBTWPercentage(tarief);
        view_->setPercentageLabel(QStringLiteral("(") + Regional::numberText(percentage) +
                                  QStringLiteral("%)"));
    });
}

bool clsContrArtikelBewerken::numberTaken(const QString& nummer) const {
    // Hidden rows count too: an old version of an article keeps its number.
    return !clsObjArtikel().Lijst(QStringLiteral("Nummer=") + quoted(nummer)).isEmpty();
}

clsObjArtikel clsContrArtikelBewerken::fromScreen() const {
    clsObjArtikel artikel;
    artikel.setNummer(view_->Nummer());
    artikel.setOmschrijving(view_->Omschrijving());
    artikel.setEenheid(view_->Eenheid());
    artikel.setPrijs(Currency::fromDouble(conv::toDouble(view_->Prijs())));
    artikel.setVoorraad(conv::toLong(conv::toDouble(view_->Voorraad())));
    artikel.setBTWTarief(view_->BTWTarief());
    artikel.setNegatief(view_->Negatief());
    artikel.setGeenVoorraad(view_->GeenVoorraad());
    artikel.setZichtbaar(true);
    return artikel;
}

void clsContrArtikelBewerken::close() {
    if (view_) {
        view_->close();
    }
    if (onClosed_) {
        onClosed_();
    }
}
