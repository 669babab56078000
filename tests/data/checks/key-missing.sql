-- fires: key-missing
CREATE TABLE loose AS SELECT * FROM background;
DROP TABLE background;
ALTER TABLE loose RENAME TO background;
CREATE INDEX background_key ON background (id);
INSERT INTO background SELECT NULL, svg FROM background WHERE id = 1;
