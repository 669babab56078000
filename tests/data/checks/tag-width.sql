-- fires: tag-width
UPDATE materialwidth SET width = 1.0 WHERE id = 13;
