#pragma once

#include <QList>
#include <memory>

#include "controllers/LabelViews.h"
#include "records/clsObjKlant.h"

namespace report {
class ShownReport;
}

// Address labels and envelopes for customers: the user picks a label sheet (and the first
// free label of a partly used sheet) or an envelope size, and sees the result in the
// preview, from which it is printed or saved as a PDF. The last paper chosen is offered
// again next time.
class clsContrEtiketten : public IEtikettenEvents {
public:
    // What the screen offers first: the paper chosen last time, or an envelope (the last
    // envelope chosen, DL the first time), as the customer list's envelope button wants.
    enum class Soort { Laatste, Envelop };

    // The customers with these identifiers, in this order; all visible customers by company
    // name when none are given.
    explicit clsContrEtiketten(QList<qint32> klantIDs = {}, Soort soort = Soort::Laatste);
    ~clsContrEtiketten() override;

    // Shows the screen without blocking; a second call brings it to the front.
    void show();

    void velGekozen(int index) override;
    void toon() override;
    void sluiten() override;

private:
    QList<clsObjKlant> klanten() const;

    int firstPaper() const;

    QList<qint32> klantIDs_;
    Soort soort_;
    std::unique_ptr<IEtikettenView> view_;
    std::shared_ptr<report::ShownReport> shown_;
};
