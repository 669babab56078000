-- fires: tag-color
UPDATE roll SET colorId = 3 WHERE itemNum = '00143228';
