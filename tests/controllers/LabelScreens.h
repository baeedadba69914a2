#pragma once

#include "FakeScreens.h"
#include "controllers/LabelViews.h"
#include "controllers/ViewFactory.h"
#include "printing/ReportPresenter.h"

// The label screen, for the labels and envelopes of the customers: what it offers, and the
// user's choice of paper and first free label.
struct LabelScreen : IEtikettenView {
    IEtikettenEvents* events = nullptr;
    QString onderwerp;
    QStringList vellen;
    int gekozen = -1, laatste = 0, eerste = 1;
    bool visible = false;

    void setEvents(IEtikettenEvents* e) override { events = e; }
    void setOnderwerp(const QString& t) override { onderwerp = t; }
    void setVellen(const QStringList& names, int selected) override {
        vellen = names;
        gekozen = selected;
    }
    int vel() const override { return gekozen; }
    void setPosities(int last) override { laatste = last; }
    int positie() const override { return eerste; }
    void show() override { visible = true; }
    void close() override { visible = false; }
};

// Makes the screen and takes what would be shown in the preview.
struct LabelScreens : LabelViewFactory, report::Presenter {
    LabelScreen* screen = nullptr;
    QList<report::Document> shown;
    ScopedViews<LabelViewFactory> installed{this};

    LabelScreens() { report::installPresenter(this); }
    ~LabelScreens() override { report::installPresenter(nullptr); }
    std::unique_ptr<IEtikettenView> createEtiketten() override { return makeKept(screen); }
    std::shared_ptr<report::ShownReport> present(const report::Document& document) override {
        shown << document;
        return nullptr;
    }
};
