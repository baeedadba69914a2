#pragma once

#include <QSizeF>
#include <QString>
#include <memory>
#include <optional>

#include "printing/DataReport.h"

class clsObjInstellingen;

// The font the settings screen's example button puts in force for every template opened
// after it in this run of the program: a name and a size, both as the screen gave them.
struct VoorbeeldFont {
    QString naam;
    QString grootte;
};
VoorbeeldFont& gVoorbeeldFont();

// One of the seven invoice templates, FactuurSjabloon1 to FactuurSjabloon7. At creation it
// takes its margins and font from the settings (DataReport_Initialize).
class FactuurSjabloon : public DataReport {
public:
    FactuurSjabloon(int number, const clsObjInstellingen& instellingen);

    int number() const { return number_; }

    // Loads the picture at path into imgLogo; tells the user when it cannot be loaded and
    // leaves the template without a logo. An empty path means no logo.
    void SetLogo(const QString& path);
    // The caption of lblVrijeTekst.
    void SetVrijeTekst(const QString& text);

protected:
    // "Factuur 1001" for one invoice, "Facturen" for more.
    QString titel(const report::ReportData& data) const override;

private:
    void DataReport_Initialize(const clsObjInstellingen& instellingen);

    int number_;
};

// The template a value of the setting Sjabloon chooses: 0 FactuurSjabloon4, 1 FactuurSjabloon1,
// 2 FactuurSjabloon5, 3 FactuurSjabloon6, 4 FactuurSjabloon2, 5 FactuurSjabloon3,
// 6 FactuurSjabloon7; none for any other value.
std::optional<int> sjabloonNummer(qint16 sjabloon);
// The template for that value, made with the settings; nullptr when the value chooses none.
std::unique_ptr<FactuurSjabloon> maakSjabloon(qint16 sjabloon,
                                              const clsObjInstellingen& instellingen);

// An invoice margin setting, in whole millimetres, as the template's margin: the value
// divided by 2 and multiplied by 100, in single precision (10 gives 500).
float margeInTwips(qint16 marge);

// The font every text of a template is given: the settings' name and size, or the example
// font when it has a name. None when the name is empty (the designed fonts stay). The size
// is the text rounded to a whole number; none when it is not a number (kept as designed).
struct SjabloonFont {
    QString naam;
    std::optional<int> grootte;
};
std::optional<SjabloonFont> sjabloonFont(const QString& fontName, float fontSize,
                                         const VoorbeeldFont& voorbeeld);

// Whether a logo is zoomed to its control: when the picture's width or height in hundredths
// of a millimetre is larger than the control's in twips. The units are compared as they
// stand, so a picture is zoomed a little before it would overflow.
bool logoInZoom(const QSizeF& pictureHimetric, const QSizeF& controlTwips);
