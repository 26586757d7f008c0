-- The first contents of the demo's data.ovd: a chart, waypoints at real places on it, routes.
-- Coordinates are degrees and minutes: 50.563 is 50 degrees 56.3 minutes. A name of four characters is an airfield
-- of ovdata.ovd, so no town has one.

INSERT INTO Kategorie (Nummer, Kategorie) VALUES (1, 'Stadt'), (2, 'Flugplatz');

INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, "Höhe", Active)
  VALUES ('rhineland.jpg', 51.24, 50.36, 6.00, 7.24, 2800, 2540, 1);

INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES
  ('Aachen', 50.466, 6.05, 'Stadt'),
  ('Bonn Stadt', 50.441, 7.059, 'Stadt'),
  ('Köln Stadt', 50.563, 6.574, 'Stadt'),
  ('Düsseldorf', 51.135, 6.466, 'Stadt'),
  ('Leverkusen', 51.02, 6.59, 'Stadt'),
  ('Düren', 50.482, 6.29, 'Stadt'),
  ('Euskirchen', 50.396, 6.473, 'Stadt'),
  ('Mönchengladbach', 51.117, 6.265, 'Stadt'),
  ('Jülich', 50.553, 6.215, 'Stadt'),
  ('Siegburg', 50.477, 7.124, 'Stadt'),
  ('Neuss', 51.119, 6.415, 'Stadt'),
  ('Grevenbroich', 51.053, 6.352, 'Stadt'),
  ('Bergheim', 50.573, 6.384, 'Stadt'),
  ('Solingen', 51.103, 7.05, 'Stadt'),
  ('Erkelenz', 51.048, 6.189, 'Stadt'),
  ('Heinsberg', 51.038, 6.058, 'Stadt'),
  ('Bergisch Gladbach', 50.595, 7.08, 'Stadt'),
  ('Dormagen', 51.058, 6.502, 'Stadt'),
  ('demo data, not for navigation', 50.41, 6.56, 'Stadt'),
  ('EDKA', 50.494, 6.112, 'Flugplatz'),
  ('EDKB', 50.461, 7.098, 'Flugplatz'),
  ('EDDK', 50.52, 7.086, 'Flugplatz'),
  ('EDDL', 51.173, 6.46, 'Flugplatz'),
  ('EDLN', 51.138, 6.303, 'Flugplatz'),
  ('EDKL', 51.009, 7.004, 'Flugplatz'),
  ('ETNN', 50.499, 6.395, 'Flugplatz'),
  ('ETNG', 50.576, 6.025, 'Flugplatz');

INSERT INTO Route (Nummer, Name) VALUES (1, 'Rheinlandrunde');
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 1, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'EDKB';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 2, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Euskirchen';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 3, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Düren';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 4, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'EDKA';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 5, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Jülich';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 6, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Grevenbroich';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 7, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Düsseldorf';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 8, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Leverkusen';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 9, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Köln Stadt';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 10, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'EDKB';
INSERT INTO Route (Nummer, Name) VALUES (2, 'Köln und zurück');
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 1, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'EDKB';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 2, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Siegburg';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 3, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Köln Stadt';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 4, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Bergisch Gladbach';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 5, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'EDKB';
