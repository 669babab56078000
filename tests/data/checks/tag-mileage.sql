-- fires: tag-mileage
UPDATE roll SET supplyId = '1900000C802080801000' WHERE itemNum = '00143228';
