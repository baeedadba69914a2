#pragma once

#include <QString>
#include <memory>

class DataReport;
class Recordset;

// The register overviews: repArtikelen (selector 1) and repKlanten (selector 3), started
// from the settings screen. The entry point:
//   DataReport report(QStringLiteral("repKlanten"));
//   ToonOverzicht(report, 3, false);
// Errors of the engine reach the caller.

inline const QString kArtikelOverzichtQuery = QStringLiteral(
    "SELECT Nummer,Omschrijving, Eenheid, IIF(NegVoorToestaan=true,\"Ja\", \"Neen\") as "
    "Neg,Prijs, Zichtbaar, Voorraad,BTWTarief FROM Artikel WHERE Zichtbaar=true ORDER BY Nummer ");
inline const QString kKlantOverzichtQuery = QStringLiteral(
    "SELECT *  ,IIF(BTW=true,\"Ja\",\"Nee\") AS NulP,IIF(Dhr=true,\"M\",\"V\") AS HeerMevrouw  "
    "FROM Klant WHERE Zichtbaar=true ORDER BY Bedrijfsnaam");

// Fills report with the overview of the selector and shows it; with verbergen the report is
// hidden again once shown. Any selector but 1 and 3 does nothing.
void ToonOverzicht(DataReport& report, qint16 keuze, bool verbergen);

// The set the last overview was shown from (it stays open as the report's data source).
std::shared_ptr<Recordset>& gOverzichtSet();
// Whether the overview being shown is to be hidden; set for the length of ToonOverzicht.
bool& gVerbergOverzicht();
