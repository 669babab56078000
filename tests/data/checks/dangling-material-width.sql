-- fires: dangling-material-width
UPDATE roll SET materialWidthId = 999 WHERE itemNum = '00143228';
UPDATE roll SET materialWidthId = NULL WHERE itemNum = '00143237';
