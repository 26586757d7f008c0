-- Made-up airspace over the demo's chart: demo data, not for navigation. Its kind says so in its label; beside
-- those whose colour hangs on their kind a small ring says it for them.
INSERT INTO RELEASE (Datum) VALUES ('2024-05-16');

-- A control zone with an arc in the south, two sectors above it, a TMZ, a danger area, a traffic pattern.
INSERT INTO Luftraum ("Index", MainIndex, PNumber, AspType, Low, High, LowType, HighType, Drawtype, Lat, Long,
    arcRad, arcLat, arcLong, Arcx1, Arcy1, Arcx2, Arcy2, arcDir) VALUES
  (1, 1, 1, 'DEMO D', 0, 2500, ' GND', '', 'DP', 50.58, 6.57, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (1, 1, 2, 'DEMO D', 0, 2500, ' GND', '', 'DP', 50.58, 7.20, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (1, 1, 3, 'DEMO D', 0, 2500, ' GND', '', 'DP', 50.52, 7.20, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (1, 1, 4, 'DEMO D', 0, 2500, ' GND', '', 'DB', 50.52, 7.20, NULL, 50.52, 7.085, 50.52, 7.20, 50.52, 6.57, '+'),
  (2, 2, 1, 'DEMO C', 3500, 10000, '', 'FL', 'DC', 50.52, 7.0856, 14, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (3, 3, 1, 'TMZ', 1000, 3500, '', '', 'DP', 51.12, 6.20, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (3, 3, 2, 'TMZ', 1000, 3500, '', '', 'DP', 51.18, 6.40, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (3, 3, 3, 'TMZ', 1000, 3500, '', '', 'DP', 51.05, 6.45, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (4, 4, 1, 'Q', 0, 6000, ' GND', '', 'DC', 50.38, 6.30, 3.5, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (5, 5, 1, 'A', 0, 1200, ' GND', '', 'DP', 50.466, 7.075, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (5, 5, 2, 'A', 0, 1200, ' GND', '', 'DP', 50.452, 7.125, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (5, 5, 3, 'A', 0, 1200, ' GND', '', 'DP', 50.442, 7.118, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (5, 5, 4, 'A', 0, 1200, ' GND', '', 'DP', 50.456, 7.065, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (6, 6, 1, 'DEMO TMZ', 1000, 3500, '', '', 'DC', 51.10, 6.36, 0.7, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (7, 7, 1, 'DEMO Q', 0, 6000, ' GND', '', 'DC', 50.38, 6.30, 0.7, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (8, 8, 1, 'DEMO PATTERN', 0, 1200, ' GND', '', 'DC', 50.454, 7.095, 0.4, NULL, NULL, NULL, NULL, NULL, NULL, NULL);
