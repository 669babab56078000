-- fires: name-unused
INSERT INTO formatTS VALUES (60, 0, 'Booklet');
