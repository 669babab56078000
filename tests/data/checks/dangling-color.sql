-- fires: dangling-color tag-color
UPDATE roll SET colorId = 99 WHERE itemNum = '00143228';
