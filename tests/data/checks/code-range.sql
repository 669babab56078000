-- fires: code-range
UPDATE color SET secId = 0 WHERE id = 12;
