-- fires: dangling-ribbon-color
UPDATE ribbon_panel SET colorId = 99 WHERE ribbonId = 4;
