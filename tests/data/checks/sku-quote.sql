-- fires: sku-quote
UPDATE roll SET itemNum = '00143''228' WHERE itemNum = '00143228';
UPDATE ribbon SET sku = 'R53"0904' WHERE sku = 'R530904';
