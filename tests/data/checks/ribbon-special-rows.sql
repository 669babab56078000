-- fires: ribbon-special-rows
UPDATE ribbon SET panels = 1 WHERE sku = 'R4417TX';
INSERT INTO ribbon_panel VALUES (31, 1, 1, 1);
INSERT INTO ribbon_heat VALUES (32, 1, 1, 104, 12, 75, 6);
