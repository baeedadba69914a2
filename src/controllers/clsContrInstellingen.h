#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "controllers/RegisterController.h"
#include "records/clsObjBTW.h"
#include "records/clsObjInstellingen.h"

class IInstellingenView;

// What the settings screen prints through the report engine.
struct SettingsReports {
    // The invoice in the template at that position of cmbSjabloon, in the example font.
    std::function<void(qint32 factuurID, qint16 sjabloon)> voorbeeldFactuur;
    std::function<void()> klantOverzicht;
    std::function<void()> artikelOverzicht;

    // The program's own: the invoice templates and the register overviews.
    static SettingsReports program();
};

// The font choice of the settings screen.
struct FontChoice {
    QStringList names;
    int selected = 0;
};

// The settings register: company details, invoice layout, sound and the two VAT rates.
// Everything typed stays on the screen until Opslaan; Annuleren drops it.
class clsContrInstellingen : public RegisterController {
    Q_OBJECT

public:
    explicit clsContrInstellingen(SettingsReports reports);
    ~clsContrInstellingen() override;

    clsObjInstellingen Instellingen;
    clsObjBTW BTW;

    void start() override { StartInstellingen(); }

    void StartInstellingen();
    void ToonMarges();
    void Annuleren();
    void Opslaan();
    void RefreshScherm();
    void Ophalen();
    void OphalenLogo();
    void InstellenLogo(const QString& pad);

    // cmbVb: the sample line in the chosen, unsaved font.
    void ToonTekstvoorbeeld();
    // cmdExReport: the first invoice in the chosen template and font.
    void ToonVoorbeeldFactuur();
    void PrintKlantOverzicht();
    void PrintArtikelOverzicht();

    // The fonts cboFont offers of those installed, and the one to select for the stored name.
    static FontChoice kiesLettertypen(const QStringList& installed, const QString& stored);
    // A number as typed in a field of these screens: "." and "," both mark the decimals, as
    // on a numeric keypad, so "9.5" is never read as 95. An empty field is a number: 0.
    static bool isGetal(const QString& text);
    static double getal(const QString& text);
    // The list of cmbSjabloon, in the order of the stored Sjabloon.
    static const QStringList& sjablonen();

Q_SIGNALS:
    void SluitInstellingen();

private:
    void fillView();
    void fillFonts();
    void copyViewIntoSettings();
    void saveRatesWhenChanged();
    void storePreviewFont();
    void closeView();
    static QString regionaal(const QString& text);

    SettingsReports reports_;
    std::unique_ptr<IInstellingenView> view_;
    bool closed_ = false;
};
