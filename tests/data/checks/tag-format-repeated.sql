-- fires: tag-format-repeated
UPDATE roll SET supplyId = '3200000C802080404142' WHERE itemNum = '00143465';
UPDATE roll SET supplyId = '3220000C802080801001' WHERE itemNum = '00143228';
