#pragma once

#include "FakeScreens.h"
#include "controllers/ArticleViews.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrArtikelBewerken.h"
#include "controllers/clsControllerArtikel.h"

// Fakes of the article screens, for the article register and for the invoice editor that
// picks its lines from it.

// The article list: what the controller put on it, and the user's selection and input.
struct ArticleList : IArtikelView {
    clsControllerArtikel* controller = nullptr;
    bool selecting = false;
    QString caption;
    QStringList headers, rows;  // each row: its cells, "|", its row datum
    QList<qint32> selection;
    QString aantal = "1", korting = "0";
    QStringList printed;
    bool visible = false;

    void SetArtikelController(clsControllerArtikel* c) override { controller = c; }
    bool VoorSelecteren() const override { return selecting; }
    void setVoorSelecteren(bool s) override { selecting = s; }
    void setCaption(const QString& c) override { caption = c; }
    void beginFill(const QStringList& h) override {
        headers = h;
        rows.clear();
    }
    void addRow(const QString& cells, qint32 id) override {
        rows << cells + "|" + QString::number(id);
    }
    void endFill() override {}
    QList<qint32> selectedIDs() const override { return selection; }
    QString Aantal() const override { return aantal; }
    QString Korting() const override { return korting; }
    void printList(const QString& title) override { printed << title; }
    void show() override { visible = true; }
    void close() override { visible = false; }
};

struct ArticleEdit : IArtikelBewerkenView {
    clsContrArtikelBewerken* controller = nullptr;
    QString caption, title, nummer, omschrijving, eenheid, prijs, voorraad, percentage;
    qint16 tarief = 0;
    bool negatief = false, geenVoorraad = false, visible = false;

    void SetArtikelBewerkenController(clsContrArtikelBewerken* c) override { controller = c; }
    void setCaptions(const QString& c, const QString& t) override {
        caption = c;
        title = t;
    }
    QString Nummer() const override { return nummer; }
    void setNummer(const QString& t) override { nummer = t; }
    QString Omschrijving() const override { return omschrijving; }
    void setOmschrijving(const QString& t) override { omschrijving = t; }
    QString Eenheid() const override { return eenheid; }
    void setEenheid(const QString& t) override { eenheid = t; }
    QString Prijs() const override { return prijs; }
    void setPrijs(const QString& t) override { prijs = t; }
    QString Voorraad() const override { return voorraad; }
    void VulVoorraadIn(qint32 v) override { voorraad = QString::number(v); }
    qint16 BTWTarief() const override { return tarief; }
    void setBTWTarief(qint16 t) override { tarief = t; }
    bool Negatief() const override { return negatief; }
    void setNegatief(bool n) override { negatief = n; }
    bool GeenVoorraad() const override { return geenVoorraad; }
    void setGeenVoorraad(bool g) override { geenVoorraad = g; }
    void setPercentageLabel(const QString& t) override { percentage = t; }
    void show() override { visible = true; }
    void close() override { visible = false; }
};

// The stock dialog: the user types `typed` and confirms, or cancels when it is empty.
struct StockDialog : IVoorraadView {
    clsContrArtikelBewerken* controller = nullptr;
    QString shown, typed;
    void Controller(clsContrArtikelBewerken* c) override { controller = c; }
    void Invullen(const QString& v) override { shown = v; }
    QString Voorraad() const override { return typed; }
    void showModal() override {
        if (!typed.isEmpty()) {
            controller->VoorraadBevestigen();
        }
    }
    void close() override {}
};

// What the line dialog showed, kept after the controller has dropped the dialog.
struct LineShown {
    QString aantal, korting;
};

struct LineDialog : IBewerkRegelView {
    LineShown* shown = nullptr;
    QString aantal, korting;
    bool cancelled = false;
    void setAantal(const QString& t) override { shown->aantal = t; }
    void setKorting(const QString& t) override { shown->korting = t; }
    QString Aantal() const override { return aantal; }
    QString Korting() const override { return korting; }
    void showModal() override {}
    bool Geannuleerd() const override { return cancelled; }
};

// Makes the screens and keeps a pointer to the last of each; the controllers own them.
struct ArticleScreens : ArticleViewFactory {
    ArticleList* list = nullptr;
    ArticleEdit* edit = nullptr;
    StockDialog stockScript;
    LineDialog lineScript;
    LineShown lineShown;
    ScopedViews<ArticleViewFactory> installed{this};

    std::unique_ptr<IArtikelView> createArtikelList() override { return makeKept(list); }
    std::unique_ptr<IArtikelBewerkenView> createArtikelBewerken() override {
        return makeKept(edit);
    }
    std::unique_ptr<IVoorraadView> createVoorraad() override {
        return std::make_unique<StockDialog>(stockScript);
    }
    std::unique_ptr<IBewerkRegelView> createBewerkRegel() override {
        auto made = std::make_unique<LineDialog>(lineScript);
        made->shown = &lineShown;
        return made;
    }
};
