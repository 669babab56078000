-- fires: dangling-ribbon
INSERT INTO ribbon_panel VALUES (99, 1, 1, 1);
INSERT INTO ribbon_heat VALUES (99, 1, 1, 104, 12, 75, 6);
