#include "printing/FactuurSjabloon.h"

#include <QImageReader>
#include <cmath>

#include "base/Regional.h"
#include "base/UiService.h"
#include "records/clsObjInstellingen.h"

VoorbeeldFont& gVoorbeeldFont() {
    static VoorbeeldFont font;
    return font;
}

FactuurSjabloon::FactuurSjabloon(int number, const clsObjInstellingen& instellingen)
    : DataReport(QStringLiteral("FactuurSjabloon") + QString::number(number)), number_(number) {
    DataReport_Initialize(instellingen);
}

void FactuurSjabloon::DataReport_Initialize(const clsObjInstellingen& instellingen) {
    setTopMargin(margeInTwips(instellingen.MargeFactuurBoven()));
    setBottomMargin(margeInTwips(instellingen.MargeFactuurOnder()));
    const auto font =
        sjabloonFont(instellingen.FontName(), instellingen.FontSize(), gVoorbeeldFont());
    if (!font) {
        return;
    }
    // Every text takes the font; sizes keep their proportion to the body text, so a title
    // stays a title in any size chosen.
    report::Report& report = design();
    const double scale = font->grootte ? *font->grootte / report.baseFont.size : 1.0;
    for (report::Band& band : report.bands) {
        for (report::Item& item : band.items) {
            if (item.kind == report::ItemKind::Line || item.kind == report::ItemKind::Box ||
                item.kind == report::ItemKind::Image) {
                continue;
            }
            item.font.family = font->naam;
            item.font.size *= scale;
        }
    }
}

void FactuurSjabloon::SetLogo(const QString& path) {
    report::Item* logo = GeefControl(QStringLiteral("imgLogo"));
    if (!logo || path.isEmpty()) {
        return;
    }
    QImageReader reader(path);
    QImage picture = reader.read();
    if (picture.isNull()) {
        const QString tweede = number_ == 1 ? QStringLiteral("Stel aub een ander logo in.")
                                            : QStringLiteral("Stel a.u.b. een ander logo in.");
        ui::message(QStringLiteral("Fout tijdens het laden van het logo.\r\n") + tweede,
                    QStringLiteral("Logo weergeven"), ui::Icon::Information);
        return;
    }
    const double dpmX = picture.dotsPerMeterX() > 0 ? picture.dotsPerMeterX() : 2835;
    const double dpmY = picture.dotsPerMeterY() > 0 ? picture.dotsPerMeterY() : 2835;
    const QSizeF himetric(picture.width() / dpmX * 100000, picture.height() / dpmY * 100000);
    if (logoInZoom(himetric, logo->rect.size())) {
        logo->zoom = true;
    }
    logo->image = std::move(picture);
}

QString FactuurSjabloon::titel(const report::ReportData& data) const {
    const int nummer = data.headColumns->indexOf(QStringLiteral("Factuur.Nummer"));
    if (data.groups.size() == 1 && nummer >= 0) {
        return QStringLiteral("Factuur ") + data.groups.first().head.value(nummer).toString();
    }
    return QStringLiteral("Facturen");
}

void FactuurSjabloon::SetVrijeTekst(const QString& text) {
    if (report::Item* label = GeefControl(QStringLiteral("lblVrijeTekst"))) {
        label->text = text;
    }
}

std::optional<int> sjabloonNummer(qint16 sjabloon) {
    static constexpr int order[] = {4, 1, 5, 6, 2, 3, 7};
    if (sjabloon < 0 || sjabloon >= qint16(std::size(order))) {
        return std::nullopt;
    }
    return order[sjabloon];
}

std::unique_ptr<FactuurSjabloon> maakSjabloon(qint16 sjabloon,
                                              const clsObjInstellingen& instellingen) {
    const auto number = sjabloonNummer(sjabloon);
    return number ? std::make_unique<FactuurSjabloon>(*number, instellingen) : nullptr;
}

float margeInTwips(qint16 marge) {
    return float(marge / 2.0 * 100);
}

std::optional<SjabloonFont> sjabloonFont(const QString& fontName, float fontSize,
                                         const VoorbeeldFont& voorbeeld) {
    QString naam = fontName;
    QString grootte = Regional::numberText(fontSize);
    if (!voorbeeld.naam.isEmpty()) {
        naam = voorbeeld.naam;
        grootte = voorbeeld.grootte;
    }
    if (naam.isEmpty()) {
        return std::nullopt;
    }
    SjabloonFont font{naam, std::nullopt};
    bool ok = false;
    const double size = Regional::locale().toDouble(grootte.trimmed(), &ok);
    // A size that is no number counts as -1 and is not applied; nor is one that could not
    // be printed (0 or less).
    const int whole = ok ? int(std::nearbyint(size)) : -1;
    if (whole > 0) {
        font.grootte = whole;
    }
    return font;
}

bool logoInZoom(const QSizeF& pictureHimetric, const QSizeF& controlTwips) {
    return pictureHimetric.width() > controlTwips.width() ||
           pictureHimetric.height() > controlTwips.height();
}
