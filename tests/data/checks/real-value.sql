-- fires: real-value
-- A decimal comma.
CREATE TABLE loose AS SELECT * FROM materialwidth;
DROP TABLE materialwidth;
ALTER TABLE loose RENAME TO materialwidth;
CREATE UNIQUE INDEX materialwidth_key ON materialwidth (id);
UPDATE materialwidth SET width = '4,0' WHERE id = 3;
