-- fires: tag-length
UPDATE materialwidth SET length = length + 1 WHERE id IN (13, 20);
UPDATE materialwidth SET length = length + 60 WHERE id = 23;
