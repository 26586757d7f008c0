-- The demo has no airspaces; the store only tells how old they would be.
INSERT INTO RELEASE (Datum) VALUES ('2024-05-16');
