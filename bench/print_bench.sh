#!/usr/bin/env bash
# Invoices to PDF through lindebrug-cli beside WeasyPrint rendering the same invoice as HTML,
# measured in the same run with hyperfine:
#   one invoice of 30 lines         vs  WeasyPrint, one equivalent HTML invoice
#   1,000 invoices into one PDF     vs  WeasyPrint, 10 invoices in one HTML (per invoice)
# Usage: print_bench.sh LINDEBRUG_CLI SCHEMA_SQL WORK_FOLDER
set -euo pipefail

cli=$1
schema=$2
work=$3
invoices=${PRINT_BENCH_INVOICES:-1000}

rm -rf "$work"
mkdir -p "$work/program" "$work/out"
cp "$cli" "$work/program/lindebrug-cli"
db="$work/program/db.daa"
sqlite3 "$db" < "$schema"
sqlite3 "$db" "
UPDATE Instellingen SET Bedrijfsnaam = 'Bakkerij Korvane', Adres = 'Molenweg 12',
  Postcode = '9711 AB', Plaats = 'Groningen', Telefoonnummer = '050-1234567',
  Banknaam = 'Rabobank', Banknummer = 'NL91 RABO 0123 4567 89', BTWNummer = 'NL001234567B01',
  KVKNummer = '01234567', Email = 'info@korvane.nl', Website = 'www.korvane.nl',
  Opmerking = 'Vermeld bij betaling altijd het factuurnummer.', BetaalTermijn = 14;
INSERT INTO Klant (Bedrijfsnaam, Voorletters, Tussenvoegsel, Achternaam, Adres, Postcode, Plaats,
  Land, Zichtbaar, Extra)
VALUES ('Van Dijk Installaties BV', 'J.', 'van', 'Dijk', 'Kerkstraat 5', '1234 AB', 'Amsterdam',
  'Nederland', 1, 'NL009988776B01');
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 30)
INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad, Prijs, BTWTarief, Zichtbaar)
SELECT i, 'Artikel nummer ' || i, 'stuk', 100, 12500 * i, 1 + i % 2, 1 FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < $invoices)
INSERT INTO Factuur (Nummer, Datum, KlantId, Klantnaam, TotaalPrijs, TotaalPrijsExBTW, BTWId)
SELECT i, '2026-03-07 00:00:00', 1, 'Van Dijk Installaties BV', 0, 0, 1 FROM n;
INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal, Prijs, TotaalPrijs, BTWTarief,
  BTWBedragTarief1, BTWBedragTarief2, Korting, Kortingsbedrag)
SELECT f.FactuurID, a.ArtikelID, 2, a.Prijs, 2 * a.Prijs, 21, 2 * a.Prijs * 21 / 100, 0, 0, 0
FROM Factuur f, Artikel a;
UPDATE Factuur SET TotaalPrijsExBTW = (SELECT SUM(TotaalPrijs) FROM ArtikelPerFactuur p
  WHERE p.FactuurID = Factuur.FactuurID);
UPDATE Factuur SET TotaalPrijs = TotaalPrijsExBTW * 121 / 100;"

# The same invoice as HTML: company, customer, the 30 lines in a table, the totals.
invoice_html() {
  local n=$1
  echo "<section style='page-break-after: always'>"
  echo "<h1 style='text-align:right'>FACTUUR</h1><p><b>Bakkerij Korvane</b><br>Molenweg 12<br>9711 AB Groningen<br>Tel: 050-1234567<br>BTW Nr: NL001234567B01<br>Bankrekening: NL91 RABO 0123 4567 89</p>"
  echo "<p><b>Van Dijk Installaties BV</b><br>J. van Dijk<br>Kerkstraat 5<br>1234 AB Amsterdam</p>"
  echo "<p>Factuurnummer $n<br>Factuurdatum 07-03-2026</p><table style='width:100%'>"
  echo "<tr><th>Omschrijving</th><th>Aantal</th><th>Prijs</th><th>Korting</th><th>BTW</th><th>Prijs ex. BTW</th></tr>"
  for i in $(seq 1 30); do
    echo "<tr><td>Artikel nummer $i</td><td>2</td><td>€ $((i * 125 / 100)),$(printf %02d $((i * 25 % 100)))</td><td>0%</td><td>21%</td><td>€ $((i * 25 / 10)),00</td></tr>"
  done
  echo "</table><p>Totaalprijs ex. BTW € 1.162,50<br>BTW bedrag 21% € 244,13<br><b>FACTUURBEDRAG € 1.406,63</b></p>"
  echo "<p>Betaling binnen 14 dagen na factuurdatum.</p></section>"
}
page="<html><head><meta charset='utf-8'><style>@page{size:A4;margin:15mm 20mm} body{font-family:'DejaVu Sans';font-size:9pt} td,th{text-align:right} td:first-child,th:first-child{text-align:left}</style></head><body>"
{ echo "$page"; invoice_html 1; echo "</body></html>"; } > "$work/one.html"
{ echo "$page"; for n in $(seq 1 10); do invoice_html "$n"; done; echo "</body></html>"; } > "$work/ten.html"

all=$(seq -s ' ' 1 "$invoices")
export QT_QPA_PLATFORM=offscreen
hyperfine --warmup 1 --runs 5 --export-json "$work/one.json" \
  -n lindebrug "$work/program/lindebrug-cli factuur 1 $work/out/one.pdf" \
  -n weasyprint "weasyprint $work/one.html $work/out/w1.pdf"
hyperfine --warmup 1 --runs 3 --export-json "$work/many.json" \
  -n lindebrug "$work/program/lindebrug-cli factuur $all $work/out/all.pdf" \
  -n weasyprint "weasyprint $work/ten.html $work/out/w10.pdf"

mean() { sed -n "/\"command\": \"$2\"/,/\"mean\"/p" "$1" | sed -n 's/.*"mean": \([0-9.e-]*\).*/\1/p'; }
awk -v a="$(mean "$work/one.json" lindebrug)" -v b="$(mean "$work/one.json" weasyprint)" \
    -v c="$(mean "$work/many.json" lindebrug)" -v d="$(mean "$work/many.json" weasyprint)" -v n="$invoices" 'BEGIN {
  printf "one invoice of 30 lines to PDF: %.0f ms; WeasyPrint: %.0f ms; %.1fx faster\n", a * 1000, b * 1000, b / a
  printf "%d invoices to one PDF: %.2f s (%.2f ms each); WeasyPrint: %.0f ms each (10 in one file); %.0fx faster per invoice\n", n, c, c * 1000 / n, d * 100, (d / 10) / (c / n)
}'
