-- A company with three visible customers (and a hidden one), articles (one hidden) and
-- invoices: 1001 with lines at both VAT rates and a discount, 1002 with one line, 1003 with
-- two, and 1004 with 200 lines. Amounts are stored times 10000; each line's amounts are the
-- invoice rules' own results.
UPDATE Instellingen SET Bedrijfsnaam = 'Bakkerij Korvane', Adres = 'Molenweg 12',
    Postcode = '9711 AB', Plaats = 'Groningen', Land = 'Nederland',
    Telefoonnummer = '050-1234567', Faxnummer = '050-7654321', Banknaam = 'Rabobank',
    Banknummer = 'NL91 RABO 0123 4567 89', BTWNummer = 'NL001234567B01',
    KVKNummer = '01234567', Email = 'info@korvane.nl', Website = 'www.korvane.nl',
    Opmerking = 'Vermeld bij betaling altijd het factuurnummer. Dank voor uw bestelling!',
    BetaalTermijn = 14, MargeFactuurBoven = 10, MargeFactuurOnder = 10;

INSERT INTO Klant (Bedrijfsnaam, Voorletters, Tussenvoegsel, Achternaam, Adres, Postcode,
    Plaats, Land, Telefoon, Fax, Email, Zichtbaar, BTW, Dhr, Extra) VALUES
  ('Van Dijk Installaties BV', 'J.', 'van', 'Dijk', 'Kerkstraat 5', '1234 AB', 'Amsterdam',
   'Nederland', '020-5551234', '020-5554321', 'jan@vandijk.nl', 1, 0, 1, 'NL009988776B01'),
  ('Smit & Zn', 'A.', '', 'Smit', 'Dorpsplein 1', '4321 ZX', 'Utrecht', 'Nederland',
   '030-1112223', '', 'a.smit@smit.nl', 1, 1, 0, 'NL005544332B01'),
  ('Verborgen Klant', 'X.', '', 'Weg', 'Nergens 9', '0000 XX', 'Nergens', '', '', '', '', 0, 0, 1, ''),
  ('Aalders Advies', 'M.', 'de', 'Wit', 'Laan 7', '5678 CD', 'Zwolle', 'Nederland',
   '038-9998887', '038-9998880', 'm.dewit@aalders.nl', 1, 0, 0, '');

INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad, Prijs, NegVoorToestaan, BTWTarief,
    Zichtbaar, GeenVoorraad) VALUES
  ('9', 'Roggebrood heel', 'stuk', 40, 125000, 0, 1, 1, 0),
  ('10', 'Bruiloftstaart op maat', 'stuk', 2, 12500000, 1, 1, 1, 0),
  ('11', 'Krentenbollen', 'zak', 120, 33500, 0, 2, 1, 0),
  ('12', 'Oud artikel', 'stuk', 0, 10000, 0, 1, 0, 0);

INSERT INTO Factuur (Nummer, Datum, KlantId, Klantnaam, TotaalPrijs, TotaalPrijsExBTW, BTWId) VALUES
  (1001, '2026-03-07 00:00:00', 1, 'Van Dijk Installaties BV', 15779545, 13051000, 1),
  (1002, '2026-03-08 00:00:00', 2, 'Smit & Zn', 250000, 250000, 1),
  (1003, '2026-03-09 00:00:00', 4, 'Aalders Advies', 417235, 341500, 1),
  (1004, '2026-03-10 00:00:00', 1, 'Van Dijk Installaties BV', 0, 0, 1);

INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal, Prijs, TotaalPrijs, BTWTarief,
    BTWBedragTarief1, BTWBedragTarief2, Korting, Kortingsbedrag) VALUES
  (1, 1, 4, 125000, 450000, 21, 94500, 0, 10, 50000),
  (1, 2, 1, 12500000, 12500000, 21, 2625000, 0, 0, 0),
  (1, 3, 3, 33500, 100500, 9, 0, 9045, 0, 0),
  (2, 1, 2, 125000, 250000, 21, 0, 0, 0, 0),
  (3, 1, 3, 125000, 375000, 21, 78750, 0, 0, 0),
  (3, 3, -1, 33500, -33500, 9, 0, -3015, 0, 0);

-- Invoice 1004: lines 1 to 200, each of the article 'Roggebrood heel', one at a time.
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200)
INSERT INTO ArtikelPerFactuur (FactuurID, ArtikelId, Aantal, Prijs, TotaalPrijs, BTWTarief,
    BTWBedragTarief1, BTWBedragTarief2, Korting, Kortingsbedrag)
SELECT 4, 1, 1, 125000, 125000, 21, 26250, 0, 0, 0 FROM n;
UPDATE Factuur SET TotaalPrijsExBTW = 200 * 125000, TotaalPrijs = 200 * (125000 + 26250)
    WHERE FactuurID = 4;
