-- fires: supply-id-form
UPDATE roll SET supplyId = lower(supplyId) WHERE itemNum = '00143228';
UPDATE roll SET supplyId = supplyId || '0000' WHERE itemNum = '00143237';
