-- fires: dangling-sensor
UPDATE roll SET supplysensorId = 9 WHERE itemNum = '00143228';
