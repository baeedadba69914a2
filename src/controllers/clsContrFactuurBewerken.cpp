#include "controllers/clsContrFactuurBewerken.h"

#include <algorithm>

#include "base/Conversions.h"
#include "base/Regional.h"
#include "base/UiService.h"
#include "controllers/BackInLoop.h"
#include "controllers/ListRows.h"
#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsControllerArtikel.h"
#include "controllers/clsControllerFacturen.h"
#include "controllers/clsControllerKlant.h"
#include "records/clsObjBTW.h"
#include "records/clsObjKlant.h"
#include "store/modDatabase.h"

namespace {

const QString kNummerCaption = QStringLiteral("Factuurnummer");

QString joined(const QStringList& parts) {
    QStringList present;
    for (const QString& part : parts) {
        if (!part.trimmed().isEmpty()) {
            present << part.trimmed();
        }
    }
    return present.join(u' ');
}

// The customer's name and address as the invoice will be addressed.
QStringList addressLines(const clsObjKlant& klant) {
    if (klant.KlantID() == 0) {
        return {};
    }
    QStringList lines{klant.Bedrijfsnaam()};
    if (!klant.Achternaam().trimmed().isEmpty()) {
        lines << joined({klant.Dhr() ? QStringLiteral("Dhr.") : QStringLiteral("Mevr."),
                         klant.Voorletters(), klant.Tussenvoegsel(), klant.Achternaam()});
    }
    lines << klant.Adres() << joined({klant.Postcode(), klant.Plaats()}) << klant.Land();
    lines.removeIf([](const QString& line) { return line.trimmed().isEmpty(); });
    return lines;
}

bool onlyDigits(const QString& text) {
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

}  // namespace

clsContrFactuurBewerken::clsContrFactuurBewerken() = default;

clsContrFactuurBewerken::~clsContrFactuurBewerken() = default;

void clsContrFactuurBewerken::ChangeFN(qint32 nummer) {
    if (conv::leadingNumber(m_Factuur.Nummer()) != nummer) {
        m_Factuur.setNummer(QString::number(nummer));
    }
}

bool clsContrFactuurBewerken::Annuleren() {
    if (m_Gesloten) {
        return true;
    }
    bool closing = true;
    trapped([this, &closing] {
        if (!hasUnsavedChanges()) {
            return;
        }
        closing = ui::message(QStringLiteral("De factuur is gewijzigd en niet opgeslagen. Wilt "
                                             "u de factuur sluiten zonder op te slaan?\r\nDe "
                                             "voorraad die al is aangepast, blijft aangepast."),
                              QStringLiteral("Factuur sluiten"), ui::Icon::Question,
                              ui::Buttons::YesNo, ui::Answer::No) == ui::Answer::Yes;
    });
    if (closing) {
        close();
    }
    return closing;
}

bool clsContrFactuurBewerken::StartFactuurBewerken(const clsObjFactuur& factuur) {
    return trapped([&] {
        m_Factuur = factuur;
        if (m_Factuur.FactuurId() != 0) {
            m_Factuur.Ophalen();
        }
        m_Factuur.LaadArtikelenPerFactuur();
        m_Factuur.LaadKlant();
        m_Opgeslagen = m_Factuur.ArtikelenPerFactuur();
        m_OudNummer = m_Factuur.Nummer();
        m_OudDatum = conv::toDateText(m_Factuur.Datum().date());
        m_View = views<InvoiceViewFactory>().createFactuurBewerken();
        m_View->SetFactuurBewerkenController(this);
        m_View->setCaption(m_Factuur.FactuurId() == 0 ? QStringLiteral("Nieuwe factuur")
                                                      : QStringLiteral("Bewerken factuur"));
        m_View->setNummer(m_Factuur.Nummer());
        m_View->setDatum(m_OudDatum);
        refreshView();
        m_View->show();
    });
}

void clsContrFactuurBewerken::Opslaan() {
    trapped([this] {
        const QString nummer = m_View->Nummer();
        if (!onlyDigits(nummer)) {
            ui::message(QStringLiteral("Ongeldige waarde ingevoerd"), kNummerCaption,
                        ui::Icon::Exclamation);
            return;
        }
        if (m_Factuur.Nummer() != m_OudNummer &&
            !clsObjFactuur().Lijst("Nummer='" + nummer + "'").isEmpty()) {
            ui::message(QStringLiteral("Het factuurnummer bestaat al. De factuur kan niet worden "
                                       "opgeslagen."),
                        QStringLiteral("Factuur opslaan"), ui::Icon::Exclamation);
            return;
        }
        if (!readHead()) {
            return;
        }
        m_Factuur.OpslaanFactuur();
        m_Gewijzigd = false;
        if (m_Parent) {
            m_Parent->RefreshScherm();
        }
        close();
    });
}

// Number and date from the screen, and a customer to address the invoice to.
bool clsContrFactuurBewerken::readHead() {
    const QDate datum = conv::fromDateText(m_View->Datum().trimmed());
    if (!datum.isValid()) {
        ui::message(QStringLiteral("Ongeldige datum ingevoerd. Geef de datum op als dd-mm-jjjj."),
                    QStringLiteral("Factuurdatum"), ui::Icon::Exclamation);
        return false;
    }
    if (m_Factuur.Klant().KlantID() == 0) {
        ui::message(QStringLiteral("Kies eerst de klant voor wie de factuur is."),
                    QStringLiteral("Factuur opslaan"), ui::Icon::Exclamation);
        return false;
    }
    m_Factuur.setNummer(m_View->Nummer());
    m_Factuur.setDatum(QDateTime(datum, QTime(0, 0)));
    return true;
}

void clsContrFactuurBewerken::ArtikelToevoegen() {
    trapped([this] { artikelen().StartArtikelen(true); });
}

void clsContrFactuurBewerken::ArtikelBewerken(qint32 artikelID) {
    trapped([this, artikelID] {
        if (const clsObjArtikelPerFactuur* line = lineOf(artikelID)) {
            artikelen().BewerkGeselecteerdArtikel(*line);
        }
    });
}

void clsContrFactuurBewerken::mobjArtikelController_BewerkArtikel(qint32 artikelID, double aantal,
                                                                  double korting) {
    trapped([&] {
        clsObjArtikelPerFactuur* line = lineOf(artikelID);
        if (!line) {
            return;
        }
        line->setAantal(aantal);
        line->setKorting(korting);
        line->setTotaalPrijs(clsObjArtikelPerFactuur::lineTotal(line->Prijs(), aantal, korting));
        m_Gewijzigd = true;
        refreshView();
    });
}

void clsContrFactuurBewerken::mobjArtikelController_SluitArtikel(bool geannuleerd, double aantal,
                                                                 double korting) {
    if (geannuleerd) {
        return;
    }
    trapped([&] { addLine(aantal, korting); });
}

void clsContrFactuurBewerken::addLine(double aantal, double korting) {
    const std::optional<clsObjArtikel> chosen =
        m_Artikelen ? m_Artikelen->GeselecteerdArtikel() : std::nullopt;
    if (!chosen) {
        return;
    }
    const clsObjArtikel& artikel = *chosen;
    for (const clsObjArtikelPerFactuur& line : m_Factuur.ArtikelenPerFactuur()) {
        if (line.artikelID() == artikel.artikelID()) {
            ui::message(QStringLiteral("Het artikel is reeds in de factuur aanwezig en kan niet "
                                       "nog een keer worden toegevoegd"),
                        QStringLiteral("Artikel toevoegen"), ui::Icon::Information);
            return;
        }
    }
    clsObjArtikelPerFactuur line;
    line.setAantal(aantal);
    line.setArtikelID(artikel.artikelID());
    line.setPrijs(artikel.Prijs());
    line.setBTWTarief(clsObjBTW::rowInUse().GeefBTWPercentage(artikel.BTWTarief()));
    line.setKorting(korting);
    line.setTotaalPrijs(clsObjArtikelPerFactuur::lineTotal(artikel.Prijs(), aantal, korting));
    line.setVoorraad(artikel.Voorraad());
    line.setVoorraadNegatief(artikel.Negatief());

    if (!artikel.GeenVoorraad()) {
        if (!line.VoorraadNegatief() && static_cast<double>(line.Voorraad()) < aantal) {
            ui::message(QStringLiteral("U kunt dit artikel niet leveren! U heeft niet voldoende "
                                       "voorraad!"),
                        QStringLiteral("Onvoldoende voorraad"), ui::Icon::Critical);
            return;
        }
        // Written as the new absolute stock, rounded to a whole number, halves to even.
        const qint32 voorraad = conv::toLong(static_cast<double>(line.Voorraad()) - aantal);
        UpdateVoorraad(artikel.artikelID(), voorraad, false);
        line.setVoorraad(voorraad);
    }
    m_Factuur.ArtikelenPerFactuur().append(line);
    m_Gewijzigd = true;
    refreshView();
}

void clsContrFactuurBewerken::ArtikelenVerwijderen(const QList<qint32>& ids) {
    trapped([&] {
        if (ids.isEmpty()) {
            return;
        }
        if (!confirmArticleRemoval(ids.size())) {
            return;
        }
        removeLines(ids);
    });
}

// Every removed line gives its quantity back to stock, also for an article that keeps no
// stock: adding such a line took nothing, but its return is counted all the same.
void clsContrFactuurBewerken::removeLines(const QList<qint32>& ids) {
    QList<clsObjArtikelPerFactuur>& lines = m_Factuur.ArtikelenPerFactuur();
    // However far the removal gets, the screen shows the lines that are left.
    struct Refresh {
        clsContrFactuurBewerken& editor;
        ~Refresh() { editor.refreshView(); }
    } refresh{*this};
    for (const qint32 id : ids) {
        const auto found = std::find_if(lines.begin(), lines.end(),
                                        [id](const auto& line) { return line.artikelID() == id; });
        if (found == lines.end()) {
            continue;
        }
        UpdateVoorraad(id, conv::toLong(found->Aantal()), true);
        lines.erase(found);
        m_Gewijzigd = true;
    }
}

void clsContrFactuurBewerken::KlantSelecteren() {
    trapped([this] { klanten().StartKlanten(true); });
}

void clsContrFactuurBewerken::mobjKlantController_SluitKlant(bool geannuleerd) {
    if (geannuleerd || !m_Klanten) {
        return;
    }
    if (const std::optional<clsObjKlant> klant = m_Klanten->GeselecteerdeKlant()) {
        KlantOvernemen(*klant);
    }
}

void clsContrFactuurBewerken::KlantOvernemen(const clsObjKlant& klant) {
    trapped([&] {
        m_Factuur.setKlant(klant);
        m_Gewijzigd = true;
        refreshView();
    });
}

void clsContrFactuurBewerken::BewerkGeselecteerd() {
    const std::optional<qint32> id = m_View ? m_View->currentID() : std::nullopt;
    if (!id) {
        ui::message(QStringLiteral("Er is geen artikel geselecteerd om te bewerken."),
                    QStringLiteral("Artikel bewerken"), ui::Icon::Information);
        return;
    }
    ArtikelBewerken(*id);
}

void clsContrFactuurBewerken::VerwijderGeselecteerd() {
    const QList<qint32> ids = m_View ? m_View->selectedIDs() : QList<qint32>();
    if (ids.isEmpty()) {
        ui::message(QStringLiteral("Er is geen artikel geselecteerd om te verwijderen."),
                    QStringLiteral("Artikel verwijderen"), ui::Icon::Information);
        return;
    }
    ArtikelenVerwijderen(ids);
}

clsControllerArtikel& clsContrFactuurBewerken::artikelen() {
    if (!m_Artikelen) {
        m_Artikelen = std::make_unique<clsControllerArtikel>();
        QObject::connect(m_Artikelen.get(), &clsControllerArtikel::SluitArtikel, &m_Events,
                         [this](bool geannuleerd, double aantal, double korting) {
                             mobjArtikelController_SluitArtikel(geannuleerd, aantal, korting);
                             dropLater(m_Artikelen);
                             backToFront();
                         });
        QObject::connect(m_Artikelen.get(), &clsControllerArtikel::BewerkArtikel, &m_Events,
                         [this](qint32 artikelID, double aantal, double korting) {
                             mobjArtikelController_BewerkArtikel(artikelID, aantal, korting);
                         });
    }
    return *m_Artikelen;
}

clsControllerKlant& clsContrFactuurBewerken::klanten() {
    if (!m_Klanten) {
        m_Klanten = std::make_unique<clsControllerKlant>();
        QObject::connect(m_Klanten.get(), &clsControllerKlant::SluitKlant, &m_Events,
                         [this](bool geannuleerd) {
                             mobjKlantController_SluitKlant(geannuleerd);
                             dropLater(m_Klanten);
                             backToFront();
                         });
    }
    return *m_Klanten;
}

// After a pick the user goes on with the invoice, not with the screen behind the picker.
void clsContrFactuurBewerken::backToFront() {
    if (m_View && !m_Gesloten) {
        m_View->show();
    }
}

template <class Register>
void clsContrFactuurBewerken::dropLater(std::unique_ptr<Register>& picker) {
    whenBackInLoop(m_Events, [&picker] { picker.reset(); });
}

// The customer, the lines and the totals; number and date stay as the user typed them.
void clsContrFactuurBewerken::refreshView() {
    if (!m_View) {
        return;
    }
    m_View->setKlant(addressLines(m_Factuur.Klant()));
    fillGrid();
    showTotals();
}

void clsContrFactuurBewerken::fillGrid() {
    const ListFill fill(*m_View,
                        QStringList{QStringLiteral("Artikelnummer"), QStringLiteral("Omschrijving"),
                                    QStringLiteral("Eenheid"), QStringLiteral("Prijs per stuk"),
                                    QStringLiteral("Aantal"), QStringLiteral("BTW"),
                                    QStringLiteral("Korting"), QStringLiteral("Totaal prijs")});
    for (const clsObjArtikelPerFactuur& line : m_Factuur.ArtikelenPerFactuur()) {
        const clsObjArtikel artikel = line.Artikel();
        m_View->addRow(
            listRow({artikel.Nummer(), artikel.Omschrijving(), artikel.Eenheid(),
                     Regional::currencyText(line.Prijs()), Regional::numberText(line.Aantal()),
                     Regional::numberText(line.BTWTarief()) % u'%',
                     Regional::numberText(line.Korting()) % u'%',
                     Regional::currencyText(line.TotaalPrijs())}),
            line.artikelID());
    }
}

void clsContrFactuurBewerken::showTotals() {
    m_Totalen =
        InvoiceTotals::of(m_Factuur.ArtikelenPerFactuur(), m_Opgeslagen, m_Factuur.Klant().BTW());
    m_View->setTotalen(m_Totalen.texts());
}

bool clsContrFactuurBewerken::hasUnsavedChanges() const {
    return m_Gewijzigd ||
           (m_View && (m_View->Nummer() != m_OudNummer || m_View->Datum().trimmed() != m_OudDatum));
}

clsObjArtikelPerFactuur* clsContrFactuurBewerken::lineOf(qint32 artikelID) {
    QList<clsObjArtikelPerFactuur>& lines = m_Factuur.ArtikelenPerFactuur();
    const auto found = std::find_if(lines.begin(), lines.end(), [artikelID](const auto& line) {
        return line.artikelID() == artikelID;
    });
    return found == lines.end() ? nullptr : &*found;
}

void clsContrFactuurBewerken::close() {
    m_Gesloten = true;
    if (m_View) {
        m_View->close();
    }
    if (m_Parent) {
        m_Parent->editorClosed(this);
    }
}
