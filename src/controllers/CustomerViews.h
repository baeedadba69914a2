#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>
#include <memory>
#include <optional>

// The customer screens as their controllers see them: the list frmKlant and the edit screen
// frmKlantBewerken. Views show what they are given and forward every user event to their
// controller.

class clsControllerKlant;
class clsContrKlantBewerken;

// A column of a list grid: its header text and how its cells are aligned.
struct GridColumn {
    QString header;
    Qt::Alignment alignment;
};

class IKlantView {
public:
    virtual ~IKlantView() = default;

    virtual void SetKlantController(clsControllerKlant* controller) = 0;
    virtual bool VoorSelecteren() const = 0;
    // Lays the screen out for its mode: selection mode titles it "Selecteer een klant" and
    // hides cmdNieuw, cmdBewerk and cmdVerwijder; management mode hides cmdAnnuleren and puts
    // cmdOK in its place.
    virtual void setVoorSelecteren(bool selecting) = 0;

    // The grid: the header row, then one row per customer (cells joined by tabs) carrying its
    // identifier as row datum. Between begin and end the grid is not redrawn.
    virtual void beginFill(const QList<GridColumn>& columns) = 0;
    virtual void addRow(const QString& cells, qint32 klantID) = 0;
    virtual void endFill() = 0;
    // The datum of the current row; none when no data row is current.
    virtual std::optional<qint32> currentID() const = 0;
    // The data of the rows from the current row to the selection's end row, lowest row
    // first whichever way the user dragged; none when no data row is current.
    virtual QList<qint32> selectedIDs() const = 0;

    // Prints the grid as shown under the title, with all four margins in millimetres; the
    // user chooses the printer.
    virtual void printList(const QString& title, double margins) = 0;
    // Shows the screen, or brings it to the front, and returns at once.
    virtual void show() = 0;
    virtual void close() = 0;
};

// The text fields of the edit screen, each bound to the customer's property of that name.
enum class KlantVeld {
    Bedrijfsnaam,
    Voorletters,
    Tussenvoegsel,
    Achternaam,
    Adres,
    Postcode,
    Plaats,
    Land,
    Telefoon,
    Email,
};

class IKlantBewerkenView {
public:
    virtual ~IKlantBewerkenView() = default;

    virtual void SetKlantBewerkenController(clsContrKlantBewerken* controller) = 0;
    // The window's caption and the title above the fields.
    virtual void setCaptions(const QString& caption, const QString& title) = 0;

    virtual QString text(KlantVeld field) const = 0;
    virtual void setText(KlantVeld field, const QString& text) = 0;
    // optDhr chosen (true) or optMevr (false).
    virtual bool Dhr() const = 0;
    virtual void setDhr(bool dhr) = 0;
    // chkBTW: the customer is invoiced at 0% VAT.
    virtual bool BTW() const = 0;
    virtual void setBTW(bool nulProcent) = 0;

    virtual void show() = 0;
    virtual void close() = 0;
};

struct CustomerViewFactory {
    virtual ~CustomerViewFactory() = default;
    virtual std::unique_ptr<IKlantView> createKlantList() = 0;
    virtual std::unique_ptr<IKlantBewerkenView> createKlantBewerken() = 0;
};
