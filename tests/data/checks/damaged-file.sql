-- fires: damaged-file
-- An index that says something else than its table.
CREATE TABLE spare (a TEXT, b TEXT);
INSERT INTO spare VALUES ('one', 'two');
CREATE INDEX spare_a ON spare (a);
PRAGMA writable_schema = ON;
UPDATE sqlite_schema SET sql = 'CREATE INDEX spare_a ON spare (b)' WHERE name = 'spare_a';
PRAGMA writable_schema = OFF;
