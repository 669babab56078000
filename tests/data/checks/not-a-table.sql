-- fires: not-a-table
ALTER TABLE format RENAME TO format_rows;
CREATE VIEW format AS SELECT id, type FROM format_rows;
