-- fires: tag-material
UPDATE materialwidth SET materialId = 2 WHERE id = 13;
