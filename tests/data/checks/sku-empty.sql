-- fires: sku-empty
UPDATE roll SET itemNum = '' WHERE itemNum = '00143228';
UPDATE ribbon SET sku = '' WHERE sku = 'R530904';
