-- fires: dangling-ribbon-type
UPDATE ribbon_panel SET typeId = 9 WHERE ribbonId = 4;
