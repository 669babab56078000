-- fires: roll-unprintable
-- By heat, and by width.
DELETE FROM ribbon_heat WHERE materialId = 9;
UPDATE ribbon SET width = 4.25 WHERE id IN (SELECT ribbonId FROM ribbon_heat WHERE materialId = 3);
