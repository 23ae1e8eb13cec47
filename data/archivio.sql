-- archivio.db: the draw archive.
--
-- estrazioni: one row a draw, `id` ascending with time (an INTEGER PRIMARY KEY, so a
-- row added without an id gets one above all others), `data` as 'YYYY-MM-DD', one
-- field per number named wheel + position; nulls where a wheel was not drawn.
-- EstrazioniTMP: the same fields, staging area of the web update, empty between runs.
-- Vincite: one record of running win totals (money in euros).
-- SQLite matches table and field names without regard to case.

CREATE TABLE IF NOT EXISTS estrazioni (
    id INTEGER PRIMARY KEY,
    data DATE,
    Bari1 SMALLINT, Bari2 SMALLINT, Bari3 SMALLINT, Bari4 SMALLINT, Bari5 SMALLINT,
    Cagliari1 SMALLINT, Cagliari2 SMALLINT, Cagliari3 SMALLINT, Cagliari4 SMALLINT, Cagliari5 SMALLINT,
    Firenze1 SMALLINT, Firenze2 SMALLINT, Firenze3 SMALLINT, Firenze4 SMALLINT, Firenze5 SMALLINT,
    Genova1 SMALLINT, Genova2 SMALLINT, Genova3 SMALLINT, Genova4 SMALLINT, Genova5 SMALLINT,
    Milano1 SMALLINT, Milano2 SMALLINT, Milano3 SMALLINT, Milano4 SMALLINT, Milano5 SMALLINT,
    Napoli1 SMALLINT, Napoli2 SMALLINT, Napoli3 SMALLINT, Napoli4 SMALLINT, Napoli5 SMALLINT,
    Palermo1 SMALLINT, Palermo2 SMALLINT, Palermo3 SMALLINT, Palermo4 SMALLINT, Palermo5 SMALLINT,
    Roma1 SMALLINT, Roma2 SMALLINT, Roma3 SMALLINT, Roma4 SMALLINT, Roma5 SMALLINT,
    Torino1 SMALLINT, Torino2 SMALLINT, Torino3 SMALLINT, Torino4 SMALLINT, Torino5 SMALLINT,
    Venezia1 SMALLINT, Venezia2 SMALLINT, Venezia3 SMALLINT, Venezia4 SMALLINT, Venezia5 SMALLINT,
    Nazionale1 SMALLINT, Nazionale2 SMALLINT, Nazionale3 SMALLINT, Nazionale4 SMALLINT, Nazionale5 SMALLINT
);

CREATE INDEX IF NOT EXISTS estrazioni_data ON estrazioni(data);

CREATE TABLE IF NOT EXISTS EstrazioniTMP (
    id INTEGER PRIMARY KEY,
    data DATE,
    Bari1 SMALLINT, Bari2 SMALLINT, Bari3 SMALLINT, Bari4 SMALLINT, Bari5 SMALLINT,
    Cagliari1 SMALLINT, Cagliari2 SMALLINT, Cagliari3 SMALLINT, Cagliari4 SMALLINT, Cagliari5 SMALLINT,
    Firenze1 SMALLINT, Firenze2 SMALLINT, Firenze3 SMALLINT, Firenze4 SMALLINT, Firenze5 SMALLINT,
    Genova1 SMALLINT, Genova2 SMALLINT, Genova3 SMALLINT, Genova4 SMALLINT, Genova5 SMALLINT,
    Milano1 SMALLINT, Milano2 SMALLINT, Milano3 SMALLINT, Milano4 SMALLINT, Milano5 SMALLINT,
    Napoli1 SMALLINT, Napoli2 SMALLINT, Napoli3 SMALLINT, Napoli4 SMALLINT, Napoli5 SMALLINT,
    Palermo1 SMALLINT, Palermo2 SMALLINT, Palermo3 SMALLINT, Palermo4 SMALLINT, Palermo5 SMALLINT,
    Roma1 SMALLINT, Roma2 SMALLINT, Roma3 SMALLINT, Roma4 SMALLINT, Roma5 SMALLINT,
    Torino1 SMALLINT, Torino2 SMALLINT, Torino3 SMALLINT, Torino4 SMALLINT, Torino5 SMALLINT,
    Venezia1 SMALLINT, Venezia2 SMALLINT, Venezia3 SMALLINT, Venezia4 SMALLINT, Venezia5 SMALLINT,
    Nazionale1 SMALLINT, Nazionale2 SMALLINT, Nazionale3 SMALLINT, Nazionale4 SMALLINT, Nazionale5 SMALLINT
);

CREATE TABLE IF NOT EXISTS Vincite (
    estratti INTEGER,
    ambi INTEGER,
    terni INTEGER,
    quaterne INTEGER,
    cinquine INTEGER,
    sommaspesa CURRENCY,
    sommavinta CURRENCY
);

INSERT INTO Vincite (estratti, ambi, terni, quaterne, cinquine, sommaspesa, sommavinta)
SELECT 0, 0, 0, 0, 0, 0, 0 WHERE NOT EXISTS (SELECT 1 FROM Vincite);
