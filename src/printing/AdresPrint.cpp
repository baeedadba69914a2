#include "printing/AdresPrint.h"

#include <algorithm>

#include "records/clsObjInstellingen.h"
#include "records/clsObjKlant.h"

namespace adres {

namespace {

constexpr double kTwipsPerMm = 1440.0 / 25.4;
const QSizeF kA4(210 * kTwipsPerMm, 297 * kTwipsPerMm);
const QString kFont = QStringLiteral("DejaVu Sans");

// Lines of text from a top left corner, each line one line height apart.
void addLines(report::Page& page, const QStringList& lines, QPointF topLeftMm, double widthMm,
              double pointSize) {
    const double lineMm = pointSize * 0.45;  // a point is 0.35 mm; lines get air between
    for (qsizetype i = 0; i < lines.size(); ++i) {
        report::DrawItem item;
        item.text = lines[i];
        item.font = report::FontSpec{kFont, pointSize};
        item.rect = QRectF(topLeftMm.x() * kTwipsPerMm,
                           (topLeftMm.y() + static_cast<double>(i) * lineMm) * kTwipsPerMm,
                           widthMm * kTwipsPerMm, lineMm * kTwipsPerMm);
        page.items.append(item);
    }
}

QString joined(const QString& first, const QString& second) {
    const QString line = first.trimmed() + QStringLiteral("  ") + second.trimmed();
    return line.trimmed();
}

QStringList withoutEmpty(const QStringList& lines) {
    QStringList kept;
    for (const QString& line : lines) {
        if (!line.trimmed().isEmpty()) {
            kept.append(line.trimmed());
        }
    }
    return kept;
}

}  // namespace

QStringList adresRegels(const clsObjKlant& klant) {
    // The list's contact column without its double blanks; no line when there is no name.
    const QString naam =
        QStringList{klant.Voorletters(), klant.Tussenvoegsel(), klant.Achternaam()}.join(u' ');
    const QString contact =
        naam.simplified().isEmpty()
            ? QString()
            : QString((klant.Dhr() ? QStringLiteral("Dhr. ") : QStringLiteral("Mevr. ")) + naam)
                  .simplified();
    const bool buitenland =
        klant.Land().trimmed().compare(QStringLiteral("Nederland"), Qt::CaseInsensitive) != 0;
    return withoutEmpty({contact, klant.Bedrijfsnaam(), klant.Adres(),
                         joined(klant.Postcode(), klant.Plaats()),
                         buitenland ? klant.Land().toUpper() : QString()});
}

const QList<Envelop>& envelopFormaten() {
    static const QList<Envelop> formaten = {
        {QStringLiteral("DL (110 × 220 mm)"), 220, 110},
        {QStringLiteral("C5 (162 × 229 mm)"), 229, 162},
    };
    return formaten;
}

report::Document enveloppen(const QList<clsObjKlant>& klanten, const clsObjInstellingen& bedrijf,
                            const Envelop& formaat) {
    report::Document document;
    document.title = QStringLiteral("Enveloppen");
    document.paper = QSizeF(formaat.breedte * kTwipsPerMm, formaat.hoogte * kTwipsPerMm);
    const QStringList afzender = withoutEmpty(
        {bedrijf.Bedrijfsnaam(), bedrijf.Adres(), joined(bedrijf.Postcode(), bedrijf.Plaats())});
    const QPointF adresPlek(bedrijf.MargeLinks(), bedrijf.MargeBoven());
    const double adresBreedte = std::max(20.0, formaat.breedte - adresPlek.x() - 5);
    for (const clsObjKlant& klant : klanten) {
        report::Page page;
        addLines(page, afzender, QPointF(10, 8), formaat.breedte / 2 - 10, 7);
        addLines(page, adresRegels(klant), adresPlek, adresBreedte, 11);
        document.pages.append(page);
    }
    return document;
}

const QList<EtiketVel>& etiketVellen() {
    static const QList<EtiketVel> vellen = {
        {QStringLiteral("A4, 3 × 8 etiketten van 70 × 36 mm"), 3, 8, 70, 36},
        {QStringLiteral("A4, 3 × 7 etiketten van 70 × 42,3 mm"), 3, 7, 70, 42.3},
        {QStringLiteral("A4, 2 × 7 etiketten van 99,1 × 38,1 mm"), 2, 7, 99.1, 38.1},
    };
    return vellen;
}

report::Document etiketten(const QList<clsObjKlant>& klanten, const EtiketVel& vel,
                           int eerstePositie) {
    report::Document document;
    document.title = QStringLiteral("Etiketten");
    document.paper = kA4;
    // The labels sit in the middle of the sheet, as the sheets are cut.
    const double links = (210 - vel.kolommen * vel.breedte) / 2;
    const double boven = (297 - vel.rijen * vel.hoogte) / 2;
    constexpr double kRand = 5;  // mm kept free inside each label
    const int start = std::clamp(eerstePositie, 1, vel.perVel()) - 1;
    for (qsizetype i = 0; i < klanten.size(); ++i) {
        const qsizetype plek = start + i;
        if (plek % vel.perVel() == 0 || document.pages.isEmpty()) {
            document.pages.append(report::Page());
        }
        const int opVel = static_cast<int>(plek % vel.perVel());
        const QPointF hoek(links + (opVel % vel.kolommen) * vel.breedte + kRand,
                           boven + (opVel / vel.kolommen) * vel.hoogte + kRand);
        addLines(document.pages.last(), adresRegels(klanten[i]), hoek, vel.breedte - 2 * kRand, 9);
    }
    return document;
}

}  // namespace adres
