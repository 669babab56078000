-- fires: tag-separator
UPDATE noncontinuous SET separatorWidth = 0.1875 WHERE itemNum = '00145013';
