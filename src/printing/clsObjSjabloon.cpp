#include "printing/clsObjSjabloon.h"

#include <QCoreApplication>

#include "base/Error.h"
#include "base/UiService.h"
#include "printing/FactuurSjabloon.h"
#include "printing/clsPrinter.h"
#include "printing/modInstellingen.h"
#include "store/clsDatabase.h"
#include "store/clsFoutCodeVertaler.h"

namespace {

void meldFout(const Error& error) {
    ui::message(clsFoutCodeVertaler().GebruikerMelding(error), ui::kProgramCaption,
                ui::Icon::Exclamation);
}

}  // namespace

QString clsObjSjabloon::FactuurCommando(const QString& ids) {
    return QStringLiteral(
               "SHAPE {SELECT *,btw.BTW1 as BTWTarief1, btw.BTW2 as "
               "BTWTarief2,klant.voorletters + ' ' + Klant.Tussenvoegsel + ' ' + "
               "Klant.achternaam as naam, Klant.Bedrijfsnaam as KlantBedrijfsnaam  FROM "
               "Factuur,BTW,Klant,Instellingen WHERE FactuurId IN (") +
           ids +
           QStringLiteral(
               ") AND Factuur.BTWId = BTW.BTWId AND Factuur.KlantId = Klant.KlantId}  AS "
               "cmdFactuur APPEND (  ( SHAPE {SELECT * FROM ArtikelPerFactuur}  AS "
               "cmdArtikelPerFactuur APPEND ({SELECT * FROM Artikel} AS cmdArtikel RELATE "
               "'ArtikelID' TO 'ArtikelID') AS cmdArtikel) AS cmdArtikelPerFactuur RELATE "
               "'FactuurId' TO 'FactuurId') AS cmdArtikelPerFactuur");
}

QString clsObjSjabloon::PapierBreedteMelding() {
    return QStringLiteral(
        "Het is niet mogelijk de factuur te tonen. Het ingestelde type papier van uw "
        "standaardprinter \r\nis smaller dan de breedte van het standaard A4 formaat. Voor een "
        "zo correct mogelijke weergave \r\nvan de factuur worden de instellingen van uw "
        "standaardprinter gebruikt. Om facturen te \r\nweergeven dient u de printerinstellingen "
        "van de standaardprinter van uw systeem aan te passen.");
}

void clsObjSjabloon::OpenSjabloon(const QString& ids, FactuurSjabloon& report) {
    try {
        const clsObjInstellingen instellingen = huidigeInstellingen();
        clsDatabase().MaakConnectie();
        report.setDataSource(gConnectie->openUpdatableSet(FactuurCommando(ids)));
        if (!papierBreedGenoeg(clsPrinter::currentPageWidth(), report.ReportWidth())) {
            ui::message(PapierBreedteMelding(), QStringLiteral("Papierbreedte standaardprinter"),
                        ui::Icon::Exclamation);
            return;
        }
        report.SetLogo(instellingen.Logo());
        report.SetVrijeTekst(instellingen.Opmerking());
        report.Show();
        QCoreApplication::processEvents();
    } catch (const Error& error) {
        meldFout(error);
    }
}

void clsObjSjabloon::ToonFacturen(const QString& ids, qint16 sjabloon) {
    try {
        auto report = maakSjabloon(sjabloon, huidigeInstellingen());
        if (!report) {
            ui::message(QStringLiteral("Factuur sjabloon niet gevonden."),
                        QStringLiteral("Factuur sjabloon openen"), ui::Icon::Information);
            return;
        }
        OpenSjabloon(ids, *report);
    } catch (const Error& error) {
        meldFout(error);
    }
}
