-- The database a new installation starts with: every table in its current layout, one
-- settings row and the VAT rates in use. Column types keep their Jet names so the
-- program knows what each column holds (YESNO is a yes/no, CURRENCY an exact amount
-- stored times 10000, INTEGER a 16-bit and LONG a 32-bit whole number).
PRAGMA foreign_keys = ON;

BEGIN;

CREATE TABLE Artikel (
    ArtikelID INTEGER PRIMARY KEY AUTOINCREMENT,
    Nummer TEXT(50) COLLATE NOCASE,
    Omschrijving TEXT(255) COLLATE NOCASE,
    Eenheid TEXT(50) COLLATE NOCASE,
    Voorraad LONG,
    Prijs CURRENCY,
    NegVoorToestaan YESNO,
    BTWTarief INTEGER,
    Zichtbaar YESNO,
    GeenVoorraad YESNO
);

CREATE TABLE BTW (
    BTWId INTEGER PRIMARY KEY AUTOINCREMENT,
    BTW1 DOUBLE,
    BTW2 DOUBLE,
    Zichtbaar YESNO
);

CREATE TABLE Klant (
    KlantID INTEGER PRIMARY KEY AUTOINCREMENT,
    DebiteurNummer LONG,
    Bedrijfsnaam TEXT(100) COLLATE NOCASE,
    Fax TEXT(50) COLLATE NOCASE,
    Email TEXT(100) COLLATE NOCASE,
    Voorletters TEXT(50) COLLATE NOCASE,
    Tussenvoegsel TEXT(50) COLLATE NOCASE,
    Achternaam TEXT(100) COLLATE NOCASE,
    Adres TEXT(100) COLLATE NOCASE,
    Postcode TEXT(50) COLLATE NOCASE,
    Plaats TEXT(100) COLLATE NOCASE,
    Land TEXT(100) COLLATE NOCASE,
    Telefoon TEXT(50) COLLATE NOCASE,
    Zichtbaar YESNO,
    BTW YESNO,
    Dhr YESNO,
    -- The customer's VAT number, printed by the invoice templates.
    Extra TEXT(50) COLLATE NOCASE
);

CREATE TABLE Factuur (
    FactuurID INTEGER PRIMARY KEY AUTOINCREMENT,
    Nummer LONG,
    Datum DATETIME,
    KlantId LONG,
    Klantnaam TEXT(100) COLLATE NOCASE,
    TotaalPrijs CURRENCY,
    TotaalPrijsExBTW CURRENCY,
    BTWId LONG
);

CREATE TABLE ArtikelPerFactuur (
    FactuurArtikelID INTEGER PRIMARY KEY AUTOINCREMENT,
    FactuurID LONG REFERENCES Factuur (FactuurID) ON DELETE CASCADE,
    ArtikelId LONG,
    Aantal DOUBLE,
    Prijs CURRENCY,
    TotaalPrijs CURRENCY,
    BTWTarief DOUBLE,
    BTWBedragTarief1 CURRENCY,
    BTWBedragTarief2 CURRENCY,
    Korting DOUBLE,
    Kortingsbedrag CURRENCY
);

-- Loading an invoice reads its lines by invoice.
CREATE INDEX ArtikelPerFactuurFactuurID ON ArtikelPerFactuur (FactuurID);

CREATE TABLE Instellingen (
    InstellingenId INTEGER PRIMARY KEY AUTOINCREMENT,
    Bedrijfsnaam TEXT(100) COLLATE NOCASE,
    Adres TEXT(100) COLLATE NOCASE,
    Postcode TEXT(50) COLLATE NOCASE,
    Plaats TEXT(100) COLLATE NOCASE,
    Land TEXT(100) COLLATE NOCASE,
    Telefoonnummer TEXT(50) COLLATE NOCASE,
    Faxnummer TEXT(50) COLLATE NOCASE,
    Banknaam TEXT(100) COLLATE NOCASE,
    Banknummer TEXT(50) COLLATE NOCASE,
    BTWNummer TEXT(50) COLLATE NOCASE,
    KVKNummer TEXT(50) COLLATE NOCASE,
    Opmerking TEXT(255) COLLATE NOCASE,
    Logo TEXT(255) COLLATE NOCASE,
    Email TEXT(100) COLLATE NOCASE,
    Website TEXT(100) COLLATE NOCASE,
    BetaalTermijn INTEGER,
    Sjabloon INTEGER,
    MargeLinks INTEGER,
    MargeBoven INTEGER,
    MargeFactuurBoven INTEGER,
    MargeFactuurOnder INTEGER,
    FontName TEXT(50) COLLATE NOCASE,
    FontSize SINGLE,
    NoSound YESNO
);

INSERT INTO BTW (BTW1, BTW2, Zichtbaar) VALUES (21, 9, 1);

INSERT INTO Instellingen (Bedrijfsnaam, Adres, Postcode, Plaats, Land, Telefoonnummer,
    Faxnummer, Banknaam, Banknummer, BTWNummer, KVKNummer, Opmerking, Logo, Email, Website,
    BetaalTermijn, Sjabloon, MargeLinks, MargeBoven, MargeFactuurBoven, MargeFactuurOnder,
    FontName, FontSize, NoSound)
VALUES ('', '', '', '', 'Nederland', '', '', '', '', '', '', '', '', '', '',
    30, 0, 100, 50, 10, 10, 'DejaVu Sans', 10, 0);

COMMIT;
