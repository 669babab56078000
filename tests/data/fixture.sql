-- The rows that the tests look up. Small and readable; a test that needs an odd row adds it itself.

INSERT INTO color (id, secId, rgbValue, name) VALUES
    (1, 11, 16777215, 'White'),
    (2, 12, 16711680, 'Red'),
    (3, 13, 255, 'Blue'),
    (4, 14, NULL, 'Unmeasured'),
    (5, 15, 32768, NULL);

-- Language 0 is English; 7 has a name of each kind; 8 has none.
INSERT INTO colorTS (colorId, languageId, name) VALUES
    (1, 0, 'White (en)'), (1, 7, 'Weiß'),
    (2, 0, 'Red (en)'), (2, 7, 'Rot'),
    (3, 0, 'Blue (en)'), (3, 7, 'Blau'),
    (4, 0, NULL);

INSERT INTO materialTS (materialId, languageId, name) VALUES
    (1, 0, 'Vinyl'), (1, 7, 'Folie'),
    (5, 0, 'Paper'), (5, 7, 'Papier'),
    (6, 0, NULL),
    (18, 0, 'Polyester'), (18, 7, 'Polyesterfolie');

INSERT INTO format (id, type) VALUES
    (1, 'continuous'), (2, 'striped'), (3, 'tag'), (9, 'label'), (39, 'marker'), (40, 'panel'), (41, 'wrap'),
    (54, 'flag'), (55, NULL);
INSERT INTO formatTS (formatId, languageId, name) VALUES
    (1, 0, 'Continuous'), (1, 7, 'Endlos'),
    (2, 0, 'Striped'), (2, 7, 'Gestreift'),
    (9, 0, 'Label'), (9, 7, 'Etikett'),
    (55, 0, NULL);

INSERT INTO supplysensor (id, supplysensortype) VALUES (3, 'gap'), (4, 'mark'), (5, 'edge');
INSERT INTO background (id, svg) VALUES
    (1, X'3C7376672F3E'),  -- <svg/>
    (2, NULL);

-- length: feet of continuous media, labels of die-cut media; FAM is this printer's family, HMQ another's.
INSERT INTO materialwidth (id, materialId, width, length, nonContinuousLength, machineId) VALUES
    (10, 1, 4.0, 150, 0.0, 'FAM'),
    (11, 1, 6.25, 100, 0.0, 'FAM'),
    (12, 5, 3.5, 500, 4.0, 'FAM'),
    (13, 18, 2.0, 300, 1.5, 'FAM'),
    (14, 1, 8.0, 75, 0.0, 'HMQ'),
    (15, 6, NULL, NULL, NULL, 'FAM'),
    (16, NULL, 5.0, 60, 0.0, 'FAM');

INSERT INTO roll (itemNum, supplyId, materialWidthId, colorId, landscape, nUpCount, supplysensorId, backgroundId)
VALUES
    ('CONT-4', '4B000912C10404900400', 10, 1, 0, 1, 3, 1),
    ('CONT-6', 'SHARED-ID-0123456789', 11, 2, 1, 2, 4, 2),
    ('STRIPED', 'STRIPED-ID-123456789', 10, 1, 0, 1, 5, NULL),
    ('DIECUT', 'DIECUT-ID-0123456789', 12, 3, 1, 3, 3, 1),
    ('DIECUT-18', 'DIECUT18-ID-23456789', 13, 3, 5, 4, 99, 99),
    ('OTHER-FAMILY', 'OTHER-ID-01234567890', 14, 1, 0, 1, 3, 1),
    ('SHARED-LONG', 'SHARED-ID-0123456789', 10, 1, 0, 1, 3, 1),
    ('SH-X', 'SHARED-ID-0123456789', 14, 1, 0, 1, 3, 1),
    ('00143221', 'ZEROS-ID-01234567890', 10, 1, 0, 1, 3, 1),
    ('NULLS', NULL, 15, 4, NULL, NULL, NULL, NULL),
    ('DANGLING', 'DANGLING-ID-23456789', 999, 999, 0, 1, 3, 1);

INSERT INTO continuousstripe (itemNum, secColorWidth, secColorId) VALUES
    ('STRIPED', 0.25, 12), ('NULLS', NULL, 14), ('DANGLING', 0.5, 999);
INSERT INTO noncontinuous (itemNum, formatId, separatorWidth) VALUES
    ('DIECUT', 9, 0.125), ('DIECUT-18', 41, 0.1), ('NULLS', NULL, NULL);

INSERT INTO ribbon (id, sku, panels, width, length) VALUES
    (12, 'RIB-ONE', 1, 6.0, 4725.0),
    (13, 'RIB-TWO', 2, 4.5, 4800.0),
    (14, 'RIB-THREE', 3, 4.25, 4000.0),
    (15, 'RIB-NULLS', NULL, NULL, NULL),
    (16, 'R4417TX', 1, 6.5, 1200.0),
    (17, 'HVWA-ZEROSPOL', 1, 4.0, 1300.0),
    (18, 'R530947', 2, 6.0, 4725.0),
    (19, 'RW530947', 2, 6.0, 4725.0);

INSERT INTO ribbon_color (id, rgbValue, name) VALUES (1, 0, 'Black'), (2, 16711680, 'Scarlet'), (3, 65280, 'Lime'),
    (4, NULL, 'Clear');
INSERT INTO ribbon_colorTS (ribbon_colorId, languageId, name) VALUES
    (1, 0, 'Black (en)'), (1, 7, 'Schwarz'), (2, 0, 'Scarlet (en)'), (2, 7, 'Scharlach'),
    (3, 0, 'Lime (en)'), (4, 0, NULL);
INSERT INTO ribbon_typeTS (ribbon_typeId, languageId, name) VALUES
    (1, 0, 'Resin'), (1, 7, 'Harz'), (2, 0, 'Wax'), (2, 7, 'Wachs'), (3, 0, NULL);

-- The special ribbons have rows here on purpose: colours and print parameters of theirs must never be answered.
INSERT INTO ribbon_panel (ribbonId, panel, typeId, colorId) VALUES
    (12, 1, 1, 1),
    (13, 1, 2, 1), (13, 2, 2, 2),
    (14, 1, 1, 1), (14, 2, 1, 2), (14, 3, 1, 3),
    (15, 1, 3, 4), (15, 2, NULL, NULL),
    (16, 1, 1, 1), (17, 1, 1, 1),
    (18, 1, 1, 1), (18, 2, 1, 1);

-- Each value tells where it stands: ribbon, panel, material, and which column it is.
INSERT INTO ribbon_heat (ribbonId, panel, materialId, heat, max_offset, max_speed, tension) VALUES
    (12, 1, 1, 1211, 1212, 1213, 1214), (12, 1, 5, 1251, 1252, 1253, 1254),
    (13, 1, 1, 1311, 1312, 1313, 1314), (13, 2, 1, 1321, 1322, 1323, 1324),
    (14, 1, 1, 1411, 1412, 1413, 1414), (14, 2, 1, 1421, 1422, 1423, 1424), (14, 3, 1, 1431, 1432, 1433, 1434),
    (15, 1, 1, NULL, NULL, NULL, NULL), (15, 2, 1, 0, 0, 0, 0),
    (16, 1, 1, 1611, 1612, 1613, 1614), (17, 1, 1, 1711, 1712, 1713, 1714),
    (18, 1, 1, 1811, 1812, 1813, 1814), (18, 2, 1, 1821, 1822, 1823, 1824);
