-- fires: tag-revision
UPDATE roll SET supplyId = '3220000C802080801200' WHERE itemNum = '00143228';
