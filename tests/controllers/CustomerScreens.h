#pragma once

#include "FakeScreens.h"
#include "controllers/CustomerViews.h"
#include "controllers/ViewFactory.h"
#include "controllers/clsContrKlantBewerken.h"
#include "controllers/clsControllerKlant.h"

// Fakes of the customer screens, for the customer register and for the invoice editor that
// chooses its customer from it.

// The customer list: what the controller put on it, and the user's selection. The selection
// is a current row and an end row (grid numbers, 0 = none), as the user dragged it.
struct CustomerList : IKlantView {
    clsControllerKlant* controller = nullptr;
    bool selecting = false;
    QList<GridColumn> columns;
    QStringList rows;
    QList<qint32> ids;
    int currentRow = 0, endRow = 0;
    QStringList printed;
    bool visible = false, filling = false;

    void SetKlantController(clsControllerKlant* c) override { controller = c; }
    bool VoorSelecteren() const override { return selecting; }
    void setVoorSelecteren(bool s) override { selecting = s; }
    void beginFill(const QList<GridColumn>& c) override {
        columns = c;
        rows.clear();
        ids.clear();
        filling = true;
    }
    void addRow(const QString& cells, qint32 id) override {
        rows << cells;
        ids << id;
    }
    void endFill() override { filling = false; }
    std::optional<qint32> currentID() const override {
        if (currentRow < 1 || currentRow > ids.size()) {
            return std::nullopt;
        }
        return ids.at(currentRow - 1);
    }
    QList<qint32> selectedIDs() const override {
        if (!currentID()) {
            return {};
        }
        QList<qint32> selected;
        for (int row = std::min(currentRow, endRow); row <= std::max(currentRow, endRow); ++row) {
            selected << ids.at(row - 1);
        }
        return selected;
    }
    void printList(const QString& title, double margins) override {
        printed << title + "|" + QString::number(margins);
    }
    void show() override { visible = true; }
    void close() override { visible = false; }

    void select(int from, int to) {
        currentRow = from;
        endRow = to;
    }
    void selectID(qint32 id) { select(ids.indexOf(id) + 1, ids.indexOf(id) + 1); }
    // The grid row showing the company.
    int rowOf(const QString& bedrijfsnaam) const {
        for (int row = 0; row < rows.size(); ++row) {
            if (rows.at(row).section('\t', 0, 0) == bedrijfsnaam) {
                return row + 1;
            }
        }
        return 0;
    }
};

struct CustomerEdit : IKlantBewerkenView {
    clsContrKlantBewerken* controller = nullptr;
    QString caption, title;
    QMap<KlantVeld, QString> texts;
    bool dhr = false, btw = false, visible = false;

    void SetKlantBewerkenController(clsContrKlantBewerken* c) override { controller = c; }
    void setCaptions(const QString& c, const QString& t) override {
        caption = c;
        title = t;
    }
    QString text(KlantVeld field) const override { return texts.value(field); }
    void setText(KlantVeld field, const QString& t) override { texts[field] = t; }
    bool Dhr() const override { return dhr; }
    void setDhr(bool d) override { dhr = d; }
    bool BTW() const override { return btw; }
    void setBTW(bool b) override { btw = b; }
    void show() override { visible = true; }
    void close() override { visible = false; }
};

// Makes the screens and keeps a pointer to the last of each; the controllers own them.
struct CustomerScreens : CustomerViewFactory {
    CustomerList* list = nullptr;
    CustomerEdit* edit = nullptr;
    ScopedViews<CustomerViewFactory> installed{this};

    std::unique_ptr<IKlantView> createKlantList() override { return makeKept(list); }
    std::unique_ptr<IKlantBewerkenView> createKlantBewerken() override { return makeKept(edit); }
};
