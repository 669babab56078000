-- fires: tag-stripe
UPDATE continuousstripe SET secColorWidth = 0.75 WHERE itemNum = '00144314';
UPDATE continuousstripe SET secColorId = 3 WHERE itemNum = '00144428';
