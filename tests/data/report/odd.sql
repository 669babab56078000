-- Values that make no sense.
UPDATE materialwidth SET width = -4.0 WHERE id = 1;
UPDATE materialwidth SET width = 1e300, length = NULL WHERE id = 2;
UPDATE materialwidth SET nonContinuousLength = 1e-9 WHERE id = 20;
UPDATE roll SET nUpCount = 1000000000, colorId = NULL WHERE itemNum = '00144617';
UPDATE roll SET materialWidthId = NULL, supplyId = NULL WHERE itemNum = '00143465';
UPDATE color SET rgbValue = -1 WHERE id = 3;
UPDATE ribbon SET width = NULL, length = NULL WHERE id = 1;
DELETE FROM ribbon_panel WHERE ribbonId = 2;
DROP TABLE meta;
