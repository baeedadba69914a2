-- A database of the earliest layout: Artikel without GeenVoorraad and Instellingen
-- without NoSound, holding a few rows written before those columns existed.
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
    Zichtbaar YESNO
);

CREATE TABLE BTW (
    BTWId INTEGER PRIMARY KEY AUTOINCREMENT,
    BTW1 DOUBLE,
    BTW2 DOUBLE,
    Zichtbaar YESNO
);

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
    FontSize SINGLE
);

INSERT INTO Artikel (Nummer, Omschrijving, Eenheid, Voorraad, Prijs, NegVoorToestaan,
    BTWTarief, Zichtbaar)
VALUES ('1', 'Spijkers 40 mm', 'doos', 12, 24500, 0, 1, 1),
       ('2', 'Uurloon montage', 'uur', 0, 450000, 1, 1, 1),
       ('3', 'Houtlijm', 'fles', 3, 79500, 0, 2, 0);

INSERT INTO BTW (BTW1, BTW2, Zichtbaar) VALUES (19, 6, 1);

INSERT INTO Instellingen (Bedrijfsnaam, Plaats, BetaalTermijn, FontName, FontSize)
VALUES ('Timmerbedrijf De Linde', 'Zwolle', 14, 'Arial', 9);

COMMIT;
