-- fires: size-not-positive
UPDATE roll SET nUpCount = 0 WHERE itemNum = '00143228';
UPDATE ribbon SET length = -4725.0 WHERE id = 1;
UPDATE ribbon_heat SET max_speed = 0 WHERE ribbonId = 1 AND materialId = 1;
