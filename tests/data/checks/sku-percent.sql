-- fires: sku-percent
UPDATE roll SET itemNum = '0014%2' WHERE itemNum = '00143228';
UPDATE ribbon SET sku = '0014%2' WHERE sku = 'R530904';
