-- fires: ribbon-panels dangling-panel
UPDATE ribbon SET panels = 2 WHERE id = 1;
DELETE FROM ribbon_panel WHERE ribbonId = 22 AND panel = 1;
