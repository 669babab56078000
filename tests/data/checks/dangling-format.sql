-- fires: dangling-format tag-format
UPDATE noncontinuous SET formatId = NULL WHERE itemNum = '00144617';
