-- fires: size-absurd
UPDATE roll SET nUpCount = 64 WHERE itemNum = '00143228';
UPDATE ribbon SET length = 120000.0 WHERE id = 1;
UPDATE ribbon SET width = 114.3 WHERE id = 2;
