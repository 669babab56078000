-- fires: supply-id-shared
INSERT INTO roll SELECT '43228', supplyId, materialWidthId, colorId, landscape, nUpCount, supplysensorId, backgroundId
FROM roll WHERE itemNum = '00143228';
