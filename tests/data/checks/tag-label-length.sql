-- fires: tag-label-length
-- Fewer labels, so that they make the same number of feet.
UPDATE materialwidth SET nonContinuousLength = 2.0, length = 436 WHERE id = 20;
