-- fires: die-cut-format tag-format
UPDATE noncontinuous SET formatId = 1 WHERE itemNum = '00144617';
