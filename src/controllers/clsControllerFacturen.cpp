#include "controllers/clsControllerFacturen.h"

#include <QHash>
#include <algorithm>

#include "base/Conversions.h"
#include "base/Error.h"
#include "base/Regional.h"
#include "base/UiService.h"
#include "controllers/BackInLoop.h"
#include "controllers/ListRows.h"
#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrFactuurBewerken.h"
#include "exchange/ubl/UblExport.h"
#include "printing/clsObjSjabloon.h"
#include "records/clsObjBTW.h"
#include "records/clsObjFactuur.h"
#include "records/clsObjInstellingen.h"
#include "store/clsDatabase.h"

namespace {

// The highest number the invoice templates print in full.
constexpr qint32 kHighestPrintableNumber = 999999999;

qint16 templateNumber() {
    const QList<clsObjInstellingen> settings = clsObjInstellingen().Lijst(QString());
    if (settings.isEmpty()) {
        throw Error(Error::NoCurrentRecord, QStringLiteral("clsObjInstellingen"),
                    QStringLiteral("Er zijn geen instellingen opgeslagen."));
    }
    return settings.first().Sjabloon();
}

// Dates in the platform's short form. Many invoices share a date, and formatting one is
// costly next to the rest of a row: each date is formatted once per fill.
class ShortDates {
public:
    const QString& text(const QDate& date) {
        auto found = texts_.find(date.toJulianDay());
        if (found == texts_.end()) {
            found = texts_.insert(date.toJulianDay(), locale_.toString(date, format_));
        }
        return *found;
    }

private:
    const QLocale& locale_ = Regional::locale();
    const QString format_ = Regional::shortDateFormat();
    QHash<qint64, QString> texts_;
};

}  // namespace

clsControllerFacturen::clsControllerFacturen() = default;

clsControllerFacturen::~clsControllerFacturen() = default;

void clsControllerFacturen::Annuleren() {
    trapped([this] {
        // An editor with unsaved lines asks its user; one that stays keeps the list open.
        for (clsContrFactuurBewerken* editor : editors()) {
            if (!editor->Annuleren()) {
                return;
            }
        }
        editors_.clear();
        if (view_) {
            view_->close();
        }
        Q_EMIT SluitFactuur();
        Q_EMIT closed();
    });
}

void clsControllerFacturen::StartFacturen() {
    trapped([this] {
        if (!view_) {
            view_ = views<InvoiceViewFactory>().createFacturen();
            view_->SetFacturenController(this);
        }
        view_->show();
        fillGrid();
    });
}

// The template of the settings shows the invoices; a number past the seven templates
// finds none and says so.
void clsControllerFacturen::OpenSjabloon(const QString& ids) {
    trapped([&] { clsObjSjabloon().ToonFacturen(ids, templateNumber()); });
}

void clsControllerFacturen::RefreshScherm() {
    trapped([this] { fillGrid(); });
}

void clsControllerFacturen::fillGrid() {
    if (!view_) {
        return;
    }
    const QList<clsObjFactuur> facturen = clsObjFactuur().Lijst(QString());
    const ListFill fill(*view_,
                        QStringList{QStringLiteral("Factuurnummer"), QStringLiteral("Klantnaam"),
                                    QStringLiteral("Datum"), QStringLiteral("Totaal prijs")});
    ShortDates dates;
    for (const clsObjFactuur& factuur : facturen) {
        view_->addRow(
            listRow({factuur.Nummer(), factuur.Klantnaam(), dates.text(factuur.Datum().date()),
                     Regional::currencyText(factuur.TotaalPrijs())}),
            factuur.FactuurId());
    }
}

void clsControllerFacturen::VerwijderFactuur(const QList<qint32>& ids) {
    trapped([&] {
        if (ids.isEmpty()) {
            return;
        }
        if (!confirmRemoval(
                ids.size(),
                QStringLiteral("Weet u zeker dat u de geselecteerde factuur wilt verwijderen?"),
                QStringLiteral("Weet u zeker dat u de geselecteerde facturen wilt verwijderen?"))) {
            return;
        }
        // Only the invoice row goes: the stock its lines took stays taken.
        for (const qint32 id : ids) {
            clsObjFactuur factuur;
            factuur.setFactuurId(id);
            factuur.Ophalen();
            factuur.LaadKlant();
            factuur.LaadArtikelenPerFactuur();
            factuur.Verwijderen();
        }
        fillGrid();
    });
}

qint32 clsControllerFacturen::VolgendNummer() {
    const auto set = clsDatabase().ExecuteQuery(QStringLiteral("SELECT Max(Nummer) FROM Factuur"));
    if (set->isEOF()) {
        return 1;
    }
    const QVariant highest = set->value(0);
    if (highest.isNull()) {
        return 1;
    }
    bool numeric = false;
    const double value = highest.toDouble(&numeric);
    if (!numeric) {
        throw Error::typeMismatch(QStringLiteral("clsControllerFacturen"));
    }
    return conv::toLong(value + 1);
}

void clsControllerFacturen::NieuwFactuur() {
    trapped([this] {
        const qint32 nummer = VolgendNummer();
        if (nummer > kHighestPrintableNumber) {
            ui::message(QStringLiteral("Het opvolgende factuurnummer is groter dan 999.999.999 "
                                       "waardoor\r\nhet nummer foutief zal worden weergegeven."),
                        QStringLiteral("Factuurnummer"), ui::Icon::Exclamation);
        }
        clsObjFactuur factuur;
        factuur.setFactuurId(0);
        // Today, without the time of day.
        factuur.setDatum(QDateTime(QDate::currentDate(), QTime(0, 0)));
        factuur.setNummer(QString::number(nummer));
        factuur.setBTWId(clsObjBTW::rowInUse().BTWId());
        openEditor(factuur);
    });
}

void clsControllerFacturen::BewerkenFactuur() {
    trapped([this] {
        const std::optional<qint32> id = view_ ? view_->currentID() : std::nullopt;
        if (!id) {
            return;
        }
        clsObjFactuur factuur;
        factuur.setFactuurId(*id);
        openEditor(factuur);
    });
}

QList<qint32> clsControllerFacturen::selectionOrSay(const QString& text,
                                                    const QString& caption) const {
    const QList<qint32> ids = view_ ? view_->selectedIDs() : QList<qint32>();
    if (ids.isEmpty()) {
        ui::message(text, caption, ui::Icon::Information);
    }
    return ids;
}

void clsControllerFacturen::BewerkGeselecteerde() {
    if (selectionOrSay(QStringLiteral("Er is geen factuur geselecteerd om te bewerken."),
                       QStringLiteral("Factuur bewerken"))
            .isEmpty()) {
        return;
    }
    BewerkenFactuur();
}

void clsControllerFacturen::VerwijderGeselecteerde() {
    const QList<qint32> ids =
        selectionOrSay(QStringLiteral("Er is geen factuur geselecteerd om te verwijderen."),
                       QStringLiteral("Factuur verwijderen"));
    if (!ids.isEmpty()) {
        VerwijderFactuur(ids);
    }
}

void clsControllerFacturen::ToonGeselecteerde() {
    const QList<qint32> ids =
        selectionOrSay(QStringLiteral("Er is geen factuur geselecteerd om te tonen."),
                       QStringLiteral("Factuur tonen"));
    if (ids.isEmpty()) {
        return;
    }
    QStringList keys;
    for (const qint32 id : ids) {
        keys << QString::number(id);
    }
    OpenSjabloon(keys.join(u','));
}

// The export checks every invoice, asks the folder and reports the result itself.
void clsControllerFacturen::EFactuurGeselecteerde() {
    const QList<qint32> ids = selectionOrSay(
        QStringLiteral("Er is geen factuur geselecteerd om als e-factuur op te slaan."),
        QStringLiteral("E-factuur (UBL)"));
    if (!ids.isEmpty()) {
        trapped([&] { exchange::ubl::exportInvoices(ids); });
    }
}

QList<clsContrFactuurBewerken*> clsControllerFacturen::editors() const {
    QList<clsContrFactuurBewerken*> open;
    for (const auto& editor : editors_) {
        open << editor.get();
    }
    return open;
}

void clsControllerFacturen::openEditor(const clsObjFactuur& factuur) {
    auto editor = std::make_unique<clsContrFactuurBewerken>();
    editor->setParent(this);
    clsContrFactuurBewerken* started = editor.get();
    editors_.push_back(std::move(editor));
    if (!started->StartFactuurBewerken(factuur)) {
        removeEditor(started);
    }
}

void clsControllerFacturen::editorClosed(clsContrFactuurBewerken* editor) {
    // The editor reports from inside its own operation, which goes on after the report,
    // possibly into a message box whose loop must not delete the editor under it.
    whenBackInLoop(*this, [this, editor] { removeEditor(editor); });
}

void clsControllerFacturen::removeEditor(clsContrFactuurBewerken* editor) {
    std::erase_if(editors_, [editor](const auto& open) { return open.get() == editor; });
}
