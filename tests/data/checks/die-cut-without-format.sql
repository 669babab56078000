-- fires: die-cut-without-format tag-format
DELETE FROM noncontinuous WHERE itemNum = '00144617';
