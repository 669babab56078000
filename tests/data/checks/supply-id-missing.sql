-- fires: supply-id-missing
UPDATE roll SET supplyId = NULL WHERE itemNum = '00143228';
