-- fires: side-files
-- A file of that name, whatever is in it: SQLite itself does not look at it in this mode.
ATTACH (SELECT file || '-shm' FROM pragma_database_list WHERE name = 'main') AS beside;
CREATE TABLE beside.rest (a);
