-- fires: value-missing
UPDATE roll SET nUpCount = NULL WHERE itemNum = '00143228';
UPDATE format SET type = NULL WHERE id = 5;
UPDATE color SET rgbValue = NULL WHERE id = 2;
UPDATE ribbon SET length = NULL WHERE id = 1;
UPDATE ribbon_heat SET tension = NULL WHERE ribbonId = 1 AND materialId = 1;
