-- Whatever a text or a picture can hold that a browser might run.
UPDATE roll SET itemNum = '"><script>alert(1)</script>', supplyId = '</code><img src=x onerror=alert(2)>'
    WHERE itemNum = '00143228';
UPDATE materialTS SET name = '</bdi></title><script>alert(3)</script>{{script}}' WHERE materialId = 1;
UPDATE colorTS SET name = '" onmouseover="alert(4)' WHERE colorId = 1;
UPDATE supplysensor SET supplysensortype = '<svg onload=alert(5)>' WHERE id = 1;
UPDATE materialwidth SET machineId = '<b>HM1</b>' WHERE id = 50;
UPDATE ribbon SET sku = '<a href="javascript:alert(6)">R</a>' WHERE id = 1;
UPDATE background SET svg = CAST('<svg onload="alert(7)"></svg>' AS BLOB) WHERE id = 1;
UPDATE meta SET value = '</title><script>alert(8)</script>' WHERE key IN ('dataset_name', 'dataset_version');
