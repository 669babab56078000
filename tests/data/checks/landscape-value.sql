-- fires: landscape-value
UPDATE roll SET landscape = -1 WHERE itemNum = '00143228';
