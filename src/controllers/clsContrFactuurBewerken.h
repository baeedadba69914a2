#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <memory>

#include "controllers/InvoiceTotals.h"
#include "controllers/InvoiceViews.h"
#include "records/clsObjFactuur.h"
#include "records/clsObjKlant.h"

class clsControllerArtikel;
class clsControllerKlant;
class clsControllerFacturen;

// The invoice editor: number, date, customer and lines of one invoice. Stock moves at
// once as lines are added, changed or removed; the invoice itself is written only by
// Opslaan, and cancelling never undoes a stock move.
class clsContrFactuurBewerken {
public:
    clsContrFactuurBewerken();
    ~clsContrFactuurBewerken();
    clsContrFactuurBewerken(const clsContrFactuurBewerken&) = delete;
    clsContrFactuurBewerken& operator=(const clsContrFactuurBewerken&) = delete;

    // txtNummer changed: the number typed, as a 32-bit integer.
    void ChangeFN(qint32 nummer);
    void setParent(clsControllerFacturen* parent) { m_Parent = parent; }
    clsControllerFacturen* Parent() const { return m_Parent; }
    // Closes the screen without saving; with unsaved changes only when the user agrees.
    // True when the editor has closed.
    bool Annuleren();
    // Loads the invoice (a stored one first from the database) and shows it. False when
    // it could not be shown.
    bool StartFactuurBewerken(const clsObjFactuur& factuur);
    void Opslaan();
    // Opens the article list to pick an article with its quantity and discount.
    void ArtikelToevoegen();
    // Opens the line dialog for the line of that article.
    void ArtikelBewerken(qint32 artikelID);
    void mobjArtikelController_BewerkArtikel(qint32 artikelID, double aantal, double korting);
    void mobjArtikelController_SluitArtikel(bool geannuleerd, double aantal, double korting);
    void ArtikelenVerwijderen(const QList<qint32>& ids);
    // Opens the customer list to choose the invoice's customer.
    void KlantSelecteren();
    void mobjKlantController_SluitKlant(bool geannuleerd);
    // The customer the user chose becomes the invoice's customer.
    void KlantOvernemen(const clsObjKlant& klant);

    // cmdBewerk and cmdVerwijder: each says so when no line is selected.
    void BewerkGeselecteerd();
    void VerwijderGeselecteerd();

    const clsObjFactuur& Factuur() const { return m_Factuur; }
    // The totals as the screen shows them now.
    const InvoiceTotals& Totalen() const { return m_Totalen; }
    // The article register while it picks or changes a line for this invoice.
    clsControllerArtikel* artikelController() const { return m_Artikelen.get(); }
    // The customer register while it picks the customer for this invoice.
    clsControllerKlant* klantController() const { return m_Klanten.get(); }

private:
    clsControllerArtikel& artikelen();
    clsControllerKlant& klanten();
    // A picker's screen has closed: the register goes once it has finished raising its
    // events, and the next pick opens a fresh one.
    template <class Register>
    void dropLater(std::unique_ptr<Register>& picker);
    void backToFront();
    void refreshView();
    void fillGrid();
    void showTotals();
    bool hasUnsavedChanges() const;
    clsObjArtikelPerFactuur* lineOf(qint32 artikelID);
    void addLine(double aantal, double korting);
    void removeLines(const QList<qint32>& ids);
    bool readHead();
    void close();

    clsObjFactuur m_Factuur;
    // The lines as stored when the editor opened: saving writes a line of the same
    // article over its row, keeping that row's VAT percentage.
    QList<clsObjArtikelPerFactuur> m_Opgeslagen;
    clsControllerFacturen* m_Parent = nullptr;
    std::unique_ptr<IFactuurBewerkenView> m_View;
    std::unique_ptr<clsControllerArtikel> m_Artikelen;
    std::unique_ptr<clsControllerKlant> m_Klanten;
    QObject m_Events;  // receives the article register's events while the editor lives
    QString m_OudNummer;
    QString m_OudDatum;
    InvoiceTotals m_Totalen;
    bool m_Gewijzigd = false;
    bool m_Gesloten = false;
};
