-- The user's store: waypoints, categories, routes with their points, charts.
CREATE TABLE Waypoints (
    PointID INTEGER PRIMARY KEY AUTOINCREMENT,
    Name TEXT COLLATE ORNIVANE,
    Lat DOUBLE,
    Long DOUBLE,
    Kategorie TEXT COLLATE ORNIVANE DEFAULT ''
);
CREATE INDEX WaypointsByName ON Waypoints (Name, Lat, Long);
CREATE INDEX WaypointsByPlace ON Waypoints (Lat, Long);

CREATE TABLE Kategorie (
    Nummer DOUBLE,
    Kategorie TEXT COLLATE ORNIVANE
);

CREATE TABLE Route (
    RouteID INTEGER PRIMARY KEY AUTOINCREMENT,
    Nummer DOUBLE,
    Name TEXT COLLATE ORNIVANE
);

CREATE TABLE GpsPoints (
    Nummer DOUBLE,
    RouteID LONG,
    PointID LONG,
    Name TEXT COLLATE ORNIVANE,
    Lat DOUBLE,
    Long DOUBLE
);
CREATE INDEX GpsPointsByRoute ON GpsPoints (RouteID, Nummer);

CREATE TABLE Maps (
    Name TEXT COLLATE ORNIVANE,
    Oben DOUBLE,
    Unten DOUBLE,
    Links DOUBLE,
    Rechts DOUBLE,
    Breite DOUBLE,
    "Höhe" DOUBLE,
    Active BOOLEAN NOT NULL DEFAULT 0
);

PRAGMA user_version = 1;
