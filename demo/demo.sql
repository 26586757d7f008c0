-- The first contents of the demo's data.ovd: a chart, waypoints at real places on it, routes.
-- Coordinates are degrees and minutes: 50.563 is 50 degrees 56.3 minutes.

INSERT INTO Kategorie (Nummer, Kategorie) VALUES (1, 'Stadt'), (2, 'Flugplatz');

INSERT INTO Maps (Name, Oben, Unten, Links, Rechts, Breite, "Höhe", Active)
  VALUES ('rhineland.jpg', 51.24, 50.36, 6.00, 7.24, 2800, 2540, 1);

INSERT INTO Waypoints (Name, Lat, Long, Kategorie) VALUES
  ('Aachen', 50.466, 6.05, 'Stadt'),
  ('Bonn', 50.441, 7.059, 'Stadt'),
  ('Köln', 50.563, 6.574, 'Stadt'),
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
  ('Aachen-Merzbrück', 50.494, 6.112, 'Flugplatz'),
  ('Bonn-Hangelar', 50.461, 7.098, 'Flugplatz'),
  ('Köln/Bonn', 50.52, 7.086, 'Flugplatz'),
  ('Düsseldorf Flughafen', 51.173, 6.46, 'Flugplatz'),
  ('Mönchengladbach Flugplatz', 51.138, 6.303, 'Flugplatz'),
  ('Leverkusen Kurtekotten', 51.009, 7.004, 'Flugplatz'),
  ('Nörvenich', 50.499, 6.395, 'Flugplatz'),
  ('Geilenkirchen', 50.576, 6.025, 'Flugplatz');

INSERT INTO Route (Nummer, Name) VALUES (1, 'Rheinlandrunde');
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 1, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Bonn-Hangelar';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 2, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Euskirchen';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 3, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Düren';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 4, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Aachen-Merzbrück';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 5, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Jülich';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 6, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Grevenbroich';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 7, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Düsseldorf';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 8, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Leverkusen';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 9, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Köln';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 10, (SELECT RouteID FROM Route WHERE Name = 'Rheinlandrunde'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Bonn-Hangelar';
INSERT INTO Route (Nummer, Name) VALUES (2, 'Köln und zurück');
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 1, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Bonn-Hangelar';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 2, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Siegburg';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 3, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Köln';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 4, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Bergisch Gladbach';
INSERT INTO GpsPoints (Nummer, RouteID, PointID, Name, Lat, Long)
  SELECT 5, (SELECT RouteID FROM Route WHERE Name = 'Köln und zurück'), PointID, Name, Lat, Long FROM Waypoints WHERE Name = 'Bonn-Hangelar';
