-- fires: text-value
CREATE TABLE loose (id INTEGER PRIMARY KEY, supplysensortype);
INSERT INTO loose SELECT * FROM supplysensor;
DROP TABLE supplysensor;
ALTER TABLE loose RENAME TO supplysensor;
CREATE UNIQUE INDEX supplysensor_type ON supplysensor (supplysensortype);
UPDATE supplysensor SET supplysensortype = 7 WHERE id = 4;
