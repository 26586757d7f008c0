-- Airfields on the demo's chart. Positions, runways and the ATIS: the public-domain airport list of
-- ourairports.com (November 2026), lengths there in feet; the information frequencies: AIP VFR Germany.
-- Facts of their day for trying the program, not for navigation.
INSERT INTO ICAOCODE (ICAO, Name) VALUES ('ED', 'Germany (ED)'), ('ET', 'Germany (ET)');

INSERT INTO ARPT (ICAO, RWYALen, RWYGLen, WGS_DLAT, WGS_DLONG) VALUES
  ('EDDK', 3815, 0, 50.865898, 7.14274),
  ('EDDL', 3000, 0, 51.289501, 6.76678),
  ('EDKA', 1160, 0, 50.823055, 6.186389),
  ('EDKB', 800, 0, 50.76889, 7.163333),
  ('EDKL', 0, 925, 51.015278, 7.005556),
  ('EDLN', 1200, 0, 51.230278, 6.504444),
  ('ETNG', 3051, 0, 50.9608, 6.04242),
  ('ETNN', 2439, 0, 50.8312, 6.65817);

INSERT INTO RWY (ICAO, LENGTH, Surface, rwy, RWYHdg) VALUES
  ('EDDK', 3815, '0', '13L/31R', '138'), ('EDDK', 2459, '0', '06/24', '064'), ('EDDK', 1863, '0', '13R/31L', '138'),
  ('EDDL', 3000, '0', '05R/23L', '053'), ('EDDL', 2700, '0', '05L/23R', '053'),
  ('EDKA', 1160, '0', '07/25', '070'),
  ('EDKB', 800, '0', '11/29', '110'),
  ('EDKL', 925, '1', '15/33', '150'),
  ('EDLN', 1200, '0', '13/31', '129'),
  ('ETNG', 3051, '0', '09/27', '091'),
  ('ETNN', 2439, '0', '06/24', '067');

INSERT INTO ACOM (ICAO, Name, Freq) VALUES
  ('EDDK', 'ATIS', '132.130'), ('EDDL', 'ATIS', '123.780'),
  ('EDKA', 'MERZBRÜCK INFO', '122.880'), ('EDKB', 'HANGELAR INFO', '135.155');
