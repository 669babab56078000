-- Values that a foreign catalogue may hold anywhere: columns have no types and no keys here. Each value stands in a row of
-- each table, under the number of its edge.
CREATE TEMP TABLE edge (n INTEGER PRIMARY KEY, value);
INSERT INTO edge (value) VALUES
    (NULL), (0), (1), (-1), (7), (''), ('12'), (' 12 '), ('+12'), ('012'), ('0x10'), ('12abc'), ('abc'), ('1.9'), ('1e3'),
    ('inf'), ('nan'), ('-1'), ('2147483648'), ('9223372036854775808'), (X''), (X'3132'), (X'00FF80'), (X'C3A4'),
    ('Ä ß €'), ('🖨'), ('%1 %2'), ('it''s'), ('a' || char(9) || 'b' || char(10) || 'c'),
    (1e300), (-1e300), (0.001), (9e999), (-9e999), (9e999 - 9e999), (5e-324), (-0.0), (0.1), (1e15), (1e16), (1e17), (123456789.125),
    (2147483647), (2147483648), (-2147483648), (-2147483649), (4294967295), (4294967296), (16777216),
    (2147483647.0), (2147483648.0), (-2147483648.0), (-2147483649.0), (4294967296.0), (3000000000.0), (2147483647.5),
    (9007199254740993), (9223372036854775807), (-9223372036854775808),
    (9223372036854774784.0), (9223372036854775808.0), (-9223372036854775808.0), (-9223372036854777856.0), (1.8446744073709552e19),
    (0.5), (-0.5), (1.5), (-1.5), (2.5), (-2.5), (0.25), (4.4), (0.13), (0.15), (6.0), (1e9), (-1.4), (-1.6);

DROP TABLE roll; CREATE TABLE roll
    (itemNum, supplyId, materialWidthId, colorId, landscape, nUpCount, supplysensorId, backgroundId);
DROP TABLE materialwidth; CREATE TABLE materialwidth (id, materialId, width, length, nonContinuousLength, machineId);
DROP TABLE continuousstripe; CREATE TABLE continuousstripe (itemNum, secColorWidth, secColorId);
DROP TABLE noncontinuous; CREATE TABLE noncontinuous (itemNum, formatId, separatorWidth);
DROP TABLE color; CREATE TABLE color (id INTEGER, secId INTEGER, rgbValue, name);
DROP TABLE supplysensor; CREATE TABLE supplysensor (id, supplysensortype);
DROP TABLE background; CREATE TABLE background (id, svg);
DROP TABLE format; CREATE TABLE format (id, type);
DROP TABLE colorTS; CREATE TABLE colorTS (colorId INTEGER, languageId INTEGER, name);
DROP TABLE materialTS; CREATE TABLE materialTS (materialId INTEGER, languageId INTEGER, name);
DROP TABLE formatTS; CREATE TABLE formatTS (formatId INTEGER, languageId INTEGER, name);
DROP TABLE ribbon; CREATE TABLE ribbon (id, sku, panels, width, length);
DROP TABLE ribbon_panel; CREATE TABLE ribbon_panel (ribbonId, panel INTEGER, typeId, colorId);
DROP TABLE ribbon_color; CREATE TABLE ribbon_color (id, rgbValue, name);
DROP TABLE ribbon_typeTS; CREATE TABLE ribbon_typeTS (ribbon_typeId, languageId INTEGER, name);
DROP TABLE ribbon_colorTS; CREATE TABLE ribbon_colorTS (ribbon_colorId, languageId INTEGER, name);
DROP TABLE ribbon_heat; CREATE TABLE ribbon_heat
    (ribbonId, panel, materialId, heat, max_offset, max_speed, tension);

-- The odd value in every attribute of a roll, and by itself as the material, width and length of an else plain one.
INSERT INTO roll SELECT format('EDGE-%02d', n), format('EDGE-ID-%012d', n), n, n, value, value, value, n FROM edge;
INSERT INTO materialwidth SELECT n, value, value, value, value, 'FAM' FROM edge;
INSERT INTO continuousstripe SELECT format('EDGE-%02d', n), value, n FROM edge;
INSERT INTO noncontinuous SELECT format('EDGE-%02d', n), value, value FROM edge;
INSERT INTO roll SELECT format('LABEL-%02d', n), format('LABEL-ID-%011d', n), 100 + n, 1, 0, 1, 1, NULL FROM edge;
INSERT INTO materialwidth SELECT 100 + n, 7, 4.0, value, 2.0, 'FAM' FROM edge;
INSERT INTO noncontinuous SELECT format('LABEL-%02d', n), 3 * (n % 2), value FROM edge;
INSERT INTO color SELECT n, n, value, value FROM edge;
INSERT INTO supplysensor SELECT value, format('EDGE-%02d', n) FROM edge;
INSERT INTO background SELECT n, value FROM edge;
INSERT INTO format SELECT n, value FROM edge;
INSERT INTO colorTS SELECT n, 0, value FROM edge;
INSERT INTO materialTS SELECT n, 0, value FROM edge;
INSERT INTO formatTS SELECT n, 0, value FROM edge;

INSERT INTO ribbon SELECT n, format('EDGE-%02d', n), value, value, value FROM edge;
INSERT INTO ribbon_panel SELECT n, panel, n, n FROM edge, (SELECT 1 AS panel UNION SELECT 2);
INSERT INTO ribbon_color SELECT n, value, value FROM edge;
INSERT INTO ribbon_typeTS SELECT n, 0, value FROM edge;
INSERT INTO ribbon_colorTS SELECT n, 0, value FROM edge;
INSERT INTO ribbon_heat SELECT n, panel, 7, value, value, value, value FROM edge, (SELECT 1 AS panel UNION SELECT 2);

-- SKUs that are odd themselves.
INSERT INTO roll (itemNum, supplyId, materialWidthId, colorId) VALUES
    ('it''s', 'QUOTE-ID-00000000000', 2, 2), ('%1', '%1', 2, 2), ('Ä 🖨', 'UNICODE-ID-000000000', 2, 2), (7, 7, 2, 2), (X'37', X'37', 2, 2),
    (NULL, NULL, 2, 2);
INSERT INTO ribbon (id, sku, panels, width, length) VALUES (201, 'it''s', 1, 6.0, 4725.0), (202, '%1', 1, 6.0, 4725.0), (203, 'Ä 🖨', 1, 6.0, 4725.0);
DROP TABLE edge;
