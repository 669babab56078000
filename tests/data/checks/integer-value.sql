-- fires: integer-value
-- A text where the column has a type but nobody insists on it, and a number of 64 bits.
CREATE TABLE loose AS SELECT * FROM ribbon_heat;
DROP TABLE ribbon_heat;
ALTER TABLE loose RENAME TO ribbon_heat;
CREATE UNIQUE INDEX ribbon_heat_key ON ribbon_heat (ribbonId, panel, materialId);
UPDATE ribbon_heat SET max_speed = 'fast' WHERE ribbonId = 1 AND materialId = 1;
UPDATE ribbon_heat SET max_offset = 3000000000 WHERE ribbonId = 1 AND materialId = 2;
