-- The logged tracks: one row of List for a recording, one row of Track for a sample.
CREATE TABLE List (
    "Index" INTEGER PRIMARY KEY AUTOINCREMENT,
    Name TEXT COLLATE ORNIVANE
);

CREATE TABLE Track (
    "Index" LONG,
    Number LONG,
    Lat DOUBLE,
    Long DOUBLE,
    Height DOUBLE,
    "Date" TEXT,
    "Time" TEXT
);
CREATE INDEX TrackByRecording ON Track ("Index", Number);

PRAGMA user_version = 1;
