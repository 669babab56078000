-- fires: dangling-background
UPDATE roll SET backgroundId = 9 WHERE itemNum = '00143228';
