-- fires: key-duplicate
CREATE TABLE loose AS SELECT * FROM format;
DROP TABLE format;
ALTER TABLE loose RENAME TO format;
CREATE INDEX format_key ON format (id);
INSERT INTO format SELECT id, 'Other' FROM format WHERE id = 5;
