-- fires: tag-format
UPDATE noncontinuous SET formatId = 54 WHERE itemNum = '00144617';
