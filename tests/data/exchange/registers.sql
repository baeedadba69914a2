-- The rows behind the expected export files, as db.daa holds them (amounts in ten-
-- thousandths): "é", "€", "“”" and other letters of Windows-1252, letters it cannot hold,
-- a ";" inside a value, Nulls and negative amounts.
INSERT INTO Klant (DebiteurNummer, Bedrijfsnaam, Email, Voorletters, Tussenvoegsel, Achternaam,
    Adres, Postcode, Plaats, Land, Telefoon, Zichtbaar, BTW, Dhr, Extra)
VALUES (1001, 'Bakkerij Dé Korf', 'info@dekorf.nl', 'J.', 'van', 'Dijk; Zonen', 'Kerkstraat 1',
        '1234 AB', 'Ede', 'Nederland', '0318-123456', 1, 0, 1, 'NL€1');
INSERT INTO Klant (Bedrijfsnaam, Zichtbaar) VALUES ('Jansen', 0);

INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad, Prijs, NegVoorToestaan,
    BTWTarief, Zichtbaar, GeenVoorraad)
VALUES ('A-01', 'Crème brûlée', 'stuk', -3, 12345678, 1, 1, 1, NULL),
       ('U-02', 'Uurtarief “spoed” „x” ‘y’ – — … ™ Œ ž Ÿ ¿ÿ Ωπ😀', 'uur', 0, -125000, 0, 2, 0, 1);

INSERT INTO Factuur (Nummer, Datum, KlantId, Klantnaam, TotaalPrijs, TotaalPrijsExBTW, BTWId)
VALUES (2026001, '2026-11-15 00:00:00', 1, 'Bakkerij Dé Korf', 12345600, 10203000, 1),
       (2026002, '2026-12-01 00:00:00', 2, 'Jansen; Zn', -1210000, -1000000, 1);
