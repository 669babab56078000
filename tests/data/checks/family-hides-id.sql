-- fires: family-hides-id
INSERT INTO materialwidth VALUES (99, 1, 1.0, 100, 0.0, 'HM1');
UPDATE roll SET materialWidthId = 99 WHERE itemNum = '00143228';
