-- fires: trigger
CREATE TRIGGER roll_deleted AFTER DELETE ON roll BEGIN DELETE FROM noncontinuous WHERE itemNum = old.itemNum; END;
