#include "controllers/clsControllerKlant.h"

#include <QStringBuilder>

#include "base/UiService.h"
#include "controllers/ListRows.h"
#include "controllers/OpenEdit.h"
#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrKlantBewerken.h"

namespace {

const QString kGeenKlant = QStringLiteral("Er is geen klant geselecteerd.");

const QList<GridColumn>& columns() {
    static const QList<GridColumn> columns{
        {QStringLiteral("Bedrijfsnaam"), Qt::AlignLeft | Qt::AlignVCenter},
        {QStringLiteral("Contactpersoon"), Qt::AlignLeft | Qt::AlignVCenter},
        {QStringLiteral("Adres"), Qt::AlignLeft | Qt::AlignVCenter},
        {QStringLiteral("Postcode"), Qt::AlignLeft | Qt::AlignVCenter},
        {QStringLiteral("Plaats"), Qt::AlignLeft | Qt::AlignVCenter},
        {QStringLiteral("Telefoon"), Qt::AlignLeft | Qt::AlignVCenter},
        {QStringLiteral("0% btw"), Qt::AlignCenter},
    };
    return columns;
}

// The row of the list: the contact person keeps one blank between each of its parts, even
// when a part is empty.
QString rowText(const clsObjKlant& klant) {
    const QChar blank(u' ');
    return listRow({klant.Bedrijfsnaam(),
                    (klant.Dhr() ? QStringLiteral("Dhr.") : QStringLiteral("Mevr.")) % blank %
                        klant.Voorletters() % blank % klant.Tussenvoegsel() % blank %
                        klant.Achternaam(),
                    klant.Adres(), klant.Postcode(), klant.Plaats(), klant.Telefoon(),
                    klant.BTW() ? QStringLiteral("<JA>") : QString()});
}

}  // namespace

clsControllerKlant::clsControllerKlant() : edit_(*this) {}

clsControllerKlant::~clsControllerKlant() = default;

void clsControllerKlant::Annuleren(bool geannuleerd) {
    trapped([this, geannuleerd] { closeScreen(geannuleerd); });
}

std::optional<clsObjKlant> clsControllerKlant::GeselecteerdeKlant() const {
    if (!view_) {
        return std::nullopt;
    }
    const std::optional<qint32> id = view_->currentID();
    if (!id) {
        return std::nullopt;
    }
    for (const clsObjKlant& klant : klanten_) {
        if (klant.KlantID() == *id) {
            return klant;
        }
    }
    return std::nullopt;
}

void clsControllerKlant::StartKlanten(bool selecteren) {
    trapped([this, selecteren] {
        if (!view_) {
            view_ = views<CustomerViewFactory>().createKlantList();
            view_->SetKlantController(this);
        }
        selecting_ = selecteren;
        view_->setVoorSelecteren(selecteren);
        fillGrid();
        view_->show();
    });
}

void clsControllerKlant::RefreshScherm() {
    trapped([this] { fillGrid(); });
}

void clsControllerKlant::fillGrid() {
    if (!view_) {
        return;
    }
    klanten_ = clsObjKlant().Lijst(QStringLiteral("Zichtbaar = true"));
    const ListFill fill(*view_, columns());
    for (const clsObjKlant& klant : klanten_) {
        view_->addRow(rowText(klant), klant.KlantID());
    }
}

void clsControllerKlant::VerwijderKlant(const QList<qint32>& ids) {
    trapped([this, &ids] {
        if (ids.isEmpty()) {
            return;
        }
        if (!confirmRemoval(
                ids.size(),
                QStringLiteral("Weet u zeker dat u de geselecteerde klant wilt verwijderen?"),
                QStringLiteral("Weet u zeker dat u de geselecteerde klanten wilt verwijderen?"))) {
            return;
        }
        // One blank record serves every row: each hidden row is written empty but for its
        // key, so invoices of a removed customer no longer show who it was.
        clsObjKlant hidden;
        for (const qint32 id : ids) {
            hidden.setKlantID(id);
            hidden.setZichtbaar(false);
            hidden.Bijwerken();
        }
        fillGrid();
    });
}

void clsControllerKlant::NieuwKlant() {
    trapped([this] { startEdit(clsObjKlant()); });
}

void clsControllerKlant::BewerkenKlant() {
    trapped([this] {
        const std::optional<clsObjKlant> klant = GeselecteerdeKlant();
        if (!klant) {
            ui::message(QStringLiteral("Er is geen klant geselecteerd om te bewerken."),
                        QStringLiteral("Klant bewerken"), ui::Icon::Information);
            return;
        }
        startEdit(*klant);
    });
}

void clsControllerKlant::AfdrukkenLijst() {
    trapped([this] {
        if (view_) {
            view_->printList(QStringLiteral("Klanten"), 5.0);
        }
    });
}

void clsControllerKlant::AfdrukkenEnveloppe() {
    const QList<qint32> ids = view_ ? view_->selectedIDs() : QList<qint32>();
    if (ids.isEmpty()) {
        ui::message(
            QStringLiteral("Er is geen klant geselecteerd om een envelop voor af te drukken."),
            QStringLiteral("Envelop afdrukken"), ui::Icon::Information);
        return;
    }
    // A new choice of customers makes a new screen; the previous one goes.
    enveloppen_ = std::make_unique<clsContrEtiketten>(ids, clsContrEtiketten::Soort::Envelop);
    enveloppen_->show();
}

void clsControllerKlant::VerwijderGeselecteerdeKlanten() {
    const QList<qint32> ids = view_ ? view_->selectedIDs() : QList<qint32>();
    if (ids.isEmpty()) {
        ui::message(QStringLiteral("Er is geen klant geselecteerd om te verwijderen."),
                    QStringLiteral("Klant verwijderen"), ui::Icon::Information);
        return;
    }
    VerwijderKlant(ids);
}

void clsControllerKlant::Bevestigen() {
    if (selecting_ && !customerChosen(QStringLiteral("Klant selecteren voor factuur"))) {
        return;
    }
    Annuleren(false);
}

void clsControllerKlant::DubbelKlik() {
    if (!selecting_) {
        BewerkenKlant();
        return;
    }
    if (customerChosen(QStringLiteral("Klant"))) {
        Annuleren(false);
    }
}

bool clsControllerKlant::customerChosen(const QString& caption) const {
    if (GeselecteerdeKlant()) {
        return true;
    }
    ui::message(kGeenKlant, caption, ui::Icon::Information);
    return false;
}

void clsControllerKlant::startEdit(const clsObjKlant& klant) {
    edit_.open(this).StartKlantBewerken(klant);
}

void clsControllerKlant::closeScreen(bool cancelled) {
    edit_.close();
    if (view_) {
        view_->close();
    }
    Q_EMIT SluitKlant(cancelled);
    Q_EMIT closed();
}
