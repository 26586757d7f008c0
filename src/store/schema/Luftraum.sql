-- Airspace and traffic patterns: one row for an element of an outline.
CREATE TABLE Luftraum (
    "Index" LONG,
    MainIndex LONG,
    PNumber LONG,
    AspType TEXT COLLATE ORNIVANE,
    Low DOUBLE,
    High DOUBLE,
    LowType TEXT,
    HighType TEXT,
    Drawtype TEXT,
    Lat DOUBLE,
    Long DOUBLE,
    arcRad DOUBLE,
    arcLat DOUBLE,
    arcLong DOUBLE,
    Arcx1 DOUBLE,
    Arcy1 DOUBLE,
    Arcx2 DOUBLE,
    Arcy2 DOUBLE,
    arcDir TEXT
);
CREATE INDEX LuftraumByIndex ON Luftraum ("Index", PNumber);
CREATE INDEX LuftraumByPlace ON Luftraum (Lat, Long);

CREATE TABLE RELEASE (
    Datum DATE
);

PRAGMA user_version = 1;
