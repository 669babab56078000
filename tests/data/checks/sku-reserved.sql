-- fires: sku-reserved
UPDATE roll SET itemNum = 'UnknownSupply' WHERE itemNum = '00143228';
UPDATE ribbon SET sku = '-1' WHERE sku = 'R530904';
