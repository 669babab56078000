-- fires: sku-blank
UPDATE roll SET itemNum = '00143228 ' WHERE itemNum = '00143228';
UPDATE ribbon SET sku = 'R530904' || char(9) WHERE sku = 'R530904';
