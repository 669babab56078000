-- fires: family-shares-id
INSERT INTO materialwidth VALUES (99, 1, 1.0, 100, 0.0, 'HM1');
INSERT INTO roll SELECT '43228', supplyId, 99, colorId, landscape, nUpCount, supplysensorId, backgroundId
FROM roll WHERE itemNum = '00143228';
