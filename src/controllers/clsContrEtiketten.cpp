#include "controllers/clsContrEtiketten.h"

#include <QSettings>

#include "base/UiService.h"
#include "controllers/Trapped.h"
#include "controllers/ViewFactory.h"
#include "printing/AdresPrint.h"
#include "printing/ReportPresenter.h"
#include "printing/modInstellingen.h"

namespace {

const QString kCaption = QStringLiteral("Etiketten");

QSettings userSettings() {
    return QSettings(QStringLiteral("Korvane"), QStringLiteral("Lindebrug"));
}

const QString kVelKey = QStringLiteral("Etiketten/vel");

qsizetype sheetCount() {
    return adres::etiketVellen().size();
}

// The papers of cmbVel: the label sheets, then the envelopes.
QStringList papers() {
    QStringList names;
    for (const adres::EtiketVel& vel : adres::etiketVellen()) {
        names << vel.naam;
    }
    for (const adres::Envelop& envelop : adres::envelopFormaten()) {
        names << QStringLiteral("Envelop ") + envelop.naam;
    }
    return names;
}

// Labels of a sheet can start at any of its positions; an envelope has one.
int positions(int paper) {
    return paper < sheetCount() ? adres::etiketVellen()[paper].perVel() : 1;
}

}  // namespace

clsContrEtiketten::clsContrEtiketten(QList<qint32> klantIDs, Soort soort)
    : klantIDs_(std::move(klantIDs)), soort_(soort) {}

clsContrEtiketten::~clsContrEtiketten() = default;

void clsContrEtiketten::show() {
    trapped([this] {
        if (!view_) {
            view_ = views<LabelViewFactory>().createEtiketten();
            view_->setEvents(this);
            const int vel = firstPaper();
            view_->setVellen(papers(), vel);
            view_->setPosities(positions(vel));
        }
        // Customers may have come or gone since the screen was last shown.
        const qsizetype count = klantIDs_.isEmpty() ? klanten().size() : klantIDs_.size();
        view_->setOnderwerp(count == 1 ? QStringLiteral("1 klant")
                                       : QString::number(count) + QStringLiteral(" klanten"));
        view_->show();
    });
}

int clsContrEtiketten::firstPaper() const {
    const int remembered = userSettings().value(kVelKey, 0).toInt();
    const bool known = remembered >= 0 && remembered < papers().size();
    if (soort_ == Soort::Envelop) {
        return known && remembered >= sheetCount() ? remembered : static_cast<int>(sheetCount());
    }
    return known ? remembered : 0;
}

void clsContrEtiketten::velGekozen(int index) {
    if (view_ && index >= 0 && index < papers().size()) {
        view_->setPosities(positions(index));
    }
}

QList<clsObjKlant> clsContrEtiketten::klanten() const {
    if (klantIDs_.isEmpty()) {
        return clsObjKlant().Lijst(QStringLiteral("Zichtbaar=true ORDER BY Bedrijfsnaam"));
    }
    QList<clsObjKlant> chosen;
    for (const qint32 id : klantIDs_) {
        clsObjKlant klant;
        klant.setKlantID(id);
        klant.Ophalen();
        chosen << klant;
    }
    return chosen;
}

void clsContrEtiketten::toon() {
    trapped([this] {
        const int index = view_->vel();
        if (index < 0 || index >= papers().size()) {
            return;
        }
        const QList<clsObjKlant> list = klanten();
        if (list.isEmpty()) {
            ui::message(QStringLiteral("Er zijn geen klanten om etiketten voor te maken."),
                        kCaption, ui::Icon::Information);
            return;
        }
        userSettings().setValue(kVelKey, index);
        const report::Document document =
            index < sheetCount()
                ? adres::etiketten(list, adres::etiketVellen()[index], view_->positie())
                : adres::enveloppen(list, huidigeInstellingen(),
                                    adres::envelopFormaten()[index - sheetCount()]);
        if (report::Presenter* presenter = report::presenter()) {
            shown_ = presenter->present(document);
        }
    });
}

void clsContrEtiketten::sluiten() {
    trapped([this] {
        if (view_) {
            view_->close();
        }
    });
}
