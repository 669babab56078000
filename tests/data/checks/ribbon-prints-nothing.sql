-- fires: ribbon-prints-nothing
INSERT INTO ribbon VALUES (99, 'R530999', 1, 4.5, 4725.0);
INSERT INTO ribbon_panel VALUES (99, 1, 1, 1);
