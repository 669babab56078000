-- fires: color-name-shared name-english-differs
UPDATE color SET name = (SELECT name FROM color WHERE id = 1) WHERE id = 2;
