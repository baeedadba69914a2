#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

// The article screens as their controllers see them: the list frmArtikel, the edit screen
// frmArtikelBewerken, the stock dialog frmVoorraad and the line dialog frmBewerkRegel.
// Views show what they are given and forward every user event to their controller.

class clsControllerArtikel;
class clsContrArtikelBewerken;

class IArtikelView {
public:
    virtual ~IArtikelView() = default;

    virtual void SetArtikelController(clsControllerArtikel* controller) = 0;
    // Selection mode offers txtAantal, txtKorting and cmdOK beside the list; management
    // mode the buttons cmdNieuw, cmdBewerk, cmdVerwijder and cmdAfdrukken.
    virtual bool VoorSelecteren() const = 0;
    virtual void setVoorSelecteren(bool selecting) = 0;
    virtual void setCaption(const QString& caption) = 0;

    // The grid: headers, then one row per article (cells joined by tabs) carrying its
    // identifier as row datum. Between begin and end the grid is not redrawn.
    virtual void beginFill(const QStringList& headers) = 0;
    virtual void addRow(const QString& cells, qint32 artikelID) = 0;
    virtual void endFill() = 0;
    // The identifiers of the selected rows, lowest row first; none without a selection.
    virtual QList<qint32> selectedIDs() const = 0;

    // The quantity and discount of selection mode, as typed.
    virtual QString Aantal() const = 0;
    virtual QString Korting() const = 0;

    // Prints the grid as shown under the title; the user chooses the printer.
    virtual void printList(const QString& title) = 0;
    // Shows the screen, or brings it to the front, and returns at once.
    virtual void show() = 0;
    virtual void close() = 0;
};

class IArtikelBewerkenView {
public:
    virtual ~IArtikelBewerkenView() = default;

    virtual void SetArtikelBewerkenController(clsContrArtikelBewerken* controller) = 0;
    // The window's caption and the title above the fields.
    virtual void setCaptions(const QString& caption, const QString& title) = 0;

    virtual QString Nummer() const = 0;
    virtual void setNummer(const QString& text) = 0;
    virtual QString Omschrijving() const = 0;
    virtual void setOmschrijving(const QString& text) = 0;
    virtual QString Eenheid() const = 0;
    virtual void setEenheid(const QString& text) = 0;
    virtual QString Prijs() const = 0;
    virtual void setPrijs(const QString& text) = 0;
    virtual QString Voorraad() const = 0;
    // The stock field, as the stock dialog fills it in.
    virtual void VulVoorraadIn(qint32 voorraad) = 0;
    // cmbBTWTarief: the VAT class chosen.
    virtual qint16 BTWTarief() const = 0;
    virtual void setBTWTarief(qint16 tarief) = 0;
    virtual bool Negatief() const = 0;
    virtual void setNegatief(bool allowed) = 0;
    virtual bool GeenVoorraad() const = 0;
    virtual void setGeenVoorraad(bool noStock) = 0;
    virtual void setPercentageLabel(const QString& text) = 0;

    virtual void show() = 0;
    virtual void close() = 0;
};

class IVoorraadView {
public:
    virtual ~IVoorraadView() = default;

    virtual void Controller(clsContrArtikelBewerken* controller) = 0;
    virtual void Invullen(const QString& voorraad) = 0;
    virtual QString Voorraad() const = 0;
    // Shows the dialog and returns when it has closed.
    virtual void showModal() = 0;
    virtual void close() = 0;
};

class IBewerkRegelView {
public:
    virtual ~IBewerkRegelView() = default;

    virtual void setAantal(const QString& text) = 0;
    virtual void setKorting(const QString& text) = 0;
    virtual QString Aantal() const = 0;
    virtual QString Korting() const = 0;
    // Shows the dialog and returns when it has closed.
    virtual void showModal() = 0;
    // True unless the dialog was closed with cmdOK.
    virtual bool Geannuleerd() const = 0;
};

struct ArticleViewFactory {
    virtual ~ArticleViewFactory() = default;
    virtual std::unique_ptr<IArtikelView> createArtikelList() = 0;
    virtual std::unique_ptr<IArtikelBewerkenView> createArtikelBewerken() = 0;
    virtual std::unique_ptr<IVoorraadView> createVoorraad() = 0;
    virtual std::unique_ptr<IBewerkRegelView> createBewerkRegel() = 0;
};
