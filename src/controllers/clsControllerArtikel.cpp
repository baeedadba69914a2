#include "controllers/clsControllerArtikel.h"

#include "base/Conversions.h"
#include "base/Regional.h"
#include "base/UiService.h"
#include "controllers/ListRows.h"
#include "controllers/OpenEdit.h"
#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrArtikelBewerken.h"
#include "records/clsObjArtikelPerFactuur.h"
#include "records/clsObjBTW.h"
#include "store/modDatabase.h"

namespace {

const QString kGeenArtikel = QStringLiteral("Er is geen artikel geselecteerd.");

bool validDiscount(const QString& text) {
    if (!conv::isNumeric(text)) {
        return false;
    }
    const double percentage = conv::toDouble(text);
    return percentage >= 0 && percentage <= 100;
}

}  // namespace

clsControllerArtikel::clsControllerArtikel() : edit_(*this) {}

clsControllerArtikel::~clsControllerArtikel() = default;

void clsControllerArtikel::Annuleren() {
    trapped([this] { closeScreen(true, 0, 0); });
}

void clsControllerArtikel::StartArtikelen(bool selecteren) {
    trapped([this, selecteren] {
        if (!view_) {
            view_ = views<ArticleViewFactory>().createArtikelList();
            view_->SetArtikelController(this);
        }
        selecting_ = selecteren;
        view_->setVoorSelecteren(selecteren);
        view_->setCaption(selecteren ? QStringLiteral("Selecteer een artikel")
                                     : QStringLiteral("Artikelen/Uren"));
        fillGrid();
        view_->show();
    });
}

void clsControllerArtikel::RefreshScherm() {
    trapped([this] { fillGrid(); });
}

void clsControllerArtikel::fillGrid() {
    if (!view_) {
        return;
    }
    const QList<clsObjArtikel> artikelen = clsObjArtikel().Lijst(listFilter());
    const clsObjBTW btw = clsObjBTW::rowInUse();
    const ListFill fill(*view_,
                        QStringList{QStringLiteral("Artikelnummer"), QStringLiteral("Omschrijving"),
                                    QStringLiteral("Eenheid"), QStringLiteral("Prijs"),
                                    QStringLiteral("BTW tarief")});
    for (const clsObjArtikel& artikel : artikelen) {
        view_->addRow(
            listRow({artikel.Nummer(), artikel.Omschrijving(), artikel.Eenheid(),
                     Regional::currencyText(artikel.Prijs()),
                     Regional::numberText(btw.GeefBTWPercentage(artikel.BTWTarief())) % u'%'}),
            artikel.artikelID());
    }
}

QString clsControllerArtikel::listFilter() {
    return QStringLiteral("Zichtbaar = true ORDER BY Omschrijving");
}

void clsControllerArtikel::VerwijderArtikelen() {
    trapped([this] {
        const QList<qint32> ids = view_->selectedIDs();
        if (ids.isEmpty()) {
            ui::message(QStringLiteral("Er is geen artikel geselecteerd om te verwijderen."),
                        QStringLiteral("Artikel verwijderen"), ui::Icon::Information);
            return;
        }
        if (!confirmArticleRemoval(ids.size())) {
            return;
        }
        for (const qint32 id : ids) {
            // Only the key and the flag are set: the hidden row is written blank.
            clsObjArtikel hidden;
            hidden.setArtikelID(id);
            hidden.setZichtbaar(false);
            hidden.Bijwerken();
        }
        fillGrid();
    });
}

void clsControllerArtikel::NieuwArtikel() {
    trapped([this] { startEdit(std::nullopt); });
}

void clsControllerArtikel::BewerkenArtikel() {
    trapped([this] {
        const QList<qint32> ids = view_->selectedIDs();
        if (ids.isEmpty()) {
            ui::message(QStringLiteral("Er is geen artikel geselecteerd om te bewerken."),
                        QStringLiteral("Artikel bewerken"), ui::Icon::Information);
            return;
        }
        clsObjArtikel artikel;
        artikel.setArtikelID(ids.first());
        artikel.Ophalen();
        startEdit(artikel);
    });
}

void clsControllerArtikel::BewerkGeselecteerdArtikel(const clsObjArtikelPerFactuur& regel) {
    trapped([this, &regel] {
        const auto dialog = views<ArticleViewFactory>().createBewerkRegel();
        dialog->setAantal(Regional::numberText(regel.Aantal()));
        dialog->setKorting(Regional::numberText(regel.Korting()));
        dialog->showModal();
        if (dialog->Geannuleerd()) {
            return;
        }
        const double aantal = conv::toDouble(dialog->Aantal());
        const double korting = conv::toDouble(dialog->Korting());
        // Lowering a quantity returns stock, raising it takes stock.
        const qint32 verschil = conv::toLong(conv::toLong(regel.Aantal()) - aantal);
        UpdateVoorraad(regel.artikelID(), verschil, true);
        Q_EMIT BewerkArtikel(regel.artikelID(), aantal, korting);
    });
}

void clsControllerArtikel::AfdrukkenLijst() {
    trapped([this] { view_->printList(QStringLiteral("Artikelen")); });
}

void clsControllerArtikel::Selecteren() {
    trapped([this] {
        const QList<qint32> ids = view_->selectedIDs();
        if (ids.isEmpty()) {
            ui::message(kGeenArtikel, QStringLiteral("Artikel toevoegen aan factuur"),
                        ui::Icon::Information);
            return;
        }
        const QString aantal = view_->Aantal();
        if (!conv::isNumeric(aantal)) {
            ui::message(QStringLiteral("Geeft u a.u.b. een geldig aantal op voor het artikel."),
                        QStringLiteral("Artikel selecteren"), ui::Icon::Exclamation);
            return;
        }
        const QString korting = view_->Korting();
        if (!validDiscount(korting)) {
            ui::message(QStringLiteral("Geeft u a.u.b. een geldig kortingspercentage op voor "
                                       "het artikel."),
                        QStringLiteral("Artikel selecteren"), ui::Icon::Exclamation);
            return;
        }
        clsObjArtikel artikel;
        artikel.setArtikelID(ids.first());
        artikel.Ophalen();
        selected_ = artikel;
        closeScreen(false, conv::toDouble(aantal), conv::toDouble(korting));
    });
}

void clsControllerArtikel::DubbelKlik() {
    if (!selecting_) {
        BewerkenArtikel();
        return;
    }
    if (view_ && view_->selectedIDs().isEmpty()) {
        ui::message(kGeenArtikel, QStringLiteral("Artikel"), ui::Icon::Information);
        return;
    }
    Selecteren();
}

void clsControllerArtikel::startEdit(std::optional<clsObjArtikel> artikel) {
    edit_.open(this).StartArtikelBewerken(artikel);
}

void clsControllerArtikel::closeScreen(bool cancelled, double aantal, double korting) {
    edit_.close();
    if (view_) {
        view_->close();
    }
    Q_EMIT SluitArtikel(cancelled, aantal, korting);
    Q_EMIT closed();
}
