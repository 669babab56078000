-- fires: key-untyped statement-scans
-- A code that is compared with the quoted number of a tag, and nothing says that it is a number.
CREATE TABLE typed AS SELECT * FROM color;
DROP TABLE color;
CREATE TABLE color (id PRIMARY KEY NOT NULL, secId INTEGER, rgbValue INTEGER, name TEXT);
INSERT INTO color SELECT * FROM typed;
DROP TABLE typed;
CREATE INDEX color_secId ON color (secId);
