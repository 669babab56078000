-- fires: dangling-panel
INSERT INTO ribbon_heat VALUES (1, 2, 1, 104, 12, 75, 6);
