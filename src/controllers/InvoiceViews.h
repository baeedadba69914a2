#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

// The invoice screens as their controllers see them: the list frmFacturen and the editor
// frmFactuurBewerken. Views show what they are given and forward every user event to their
// controller; the editor's date picker and its field checks are view code.

class clsControllerFacturen;
class clsContrFactuurBewerken;

// A grid of a list screen: headers, then one row per record (cells joined by tabs) with
// the record's key as hidden row datum. Between begin and end the grid is not redrawn.
class IKeyedGrid {
public:
    virtual ~IKeyedGrid() = default;

    virtual void beginFill(const QStringList& headers) = 0;
    virtual void addRow(const QString& cells, qint32 key) = 0;
    virtual void endFill() = 0;
    // The keys of the rows from the current row to the end of the selection, lowest row
    // first, whichever way the user dragged; none when no data row is current.
    virtual QList<qint32> selectedIDs() const = 0;
    // The key of the current row; none when no data row is current.
    virtual std::optional<qint32> currentID() const = 0;
};

class IFacturenView : public IKeyedGrid {
public:
    virtual void SetFacturenController(clsControllerFacturen* controller) = 0;
    // Shows the screen, or brings it to the front, and returns at once.
    virtual void show() = 0;
    virtual void close() = 0;
};

class IFactuurBewerkenView : public IKeyedGrid {
public:
    virtual void SetFactuurBewerkenController(clsContrFactuurBewerken* controller) = 0;
    virtual void setCaption(const QString& caption) = 0;

    virtual QString Nummer() const = 0;
    virtual void setNummer(const QString& text) = 0;
    virtual QString Datum() const = 0;
    virtual void setDatum(const QString& text) = 0;
    // The customer's name and address, one text per line.
    virtual void setKlant(const QStringList& lines) = 0;
    // Below the grid: one caption and one amount per line, the grand total last.
    virtual void setTotalen(const QList<std::pair<QString, QString>>& totals) = 0;

    // Shows the screen, or brings it to the front, and returns at once.
    virtual void show() = 0;
    virtual void close() = 0;
};

struct InvoiceViewFactory {
    virtual ~InvoiceViewFactory() = default;
    virtual std::unique_ptr<IFacturenView> createFacturen() = 0;
    virtual std::unique_ptr<IFactuurBewerkenView> createFactuurBewerken() = 0;
};
