-- What `zrsupply catalogue check` looks for: one rule per block, one SELECT per rule, one row per finding.
--
-- How to read it, and how to add a rule
--
-- A block starts with `-- rule:` and ends with the first line that ends in a semicolon. Its heading:
--   rule      stable id, words joined by dashes
--   severity  error: the library answers wrongly or not at all. warning: an answer that is hardly meant.
--             hint: worth knowing, often intended
--   title     what is wrong, one line
--   message   what is wrong with one row, {column} stands for a column of the SELECT
--   because   what the library makes of it
--   remedy    what to do
-- A line that begins with `--` and three blanks goes on with the field above it.
--
-- The SELECT names the table and the key of the row (the key columns as in the table's CSV file, joined by `/`), and
-- then whatever the message needs. A rule that is not SQL has a line `code:` in place of a SELECT, the name of a
-- function in catalogue/check/coderules.cpp, and ends with an empty line.
--
-- Statements without a heading prepare what rules share, as temporary tables whose names begin with `check_`.
-- The catalogue need not be one of ours: columns may lack types, keys and indexes. So a rule looks a value up with
-- IN or a join, for which SQLite makes an index where the file has none, and never with a correlated subquery.
-- The file also runs in the sqlite3 shell: sqlite3 -readonly catalogue.sqlite < checks.sql
--
-- Every rule has a file in tests/data/checks that makes the sample catalogue break it.

-- What the rules share

-- Rolls of these machine families are not offered, and their supply ids are not resolved.
CREATE TEMP TABLE check_family(machineId);
INSERT INTO check_family VALUES ('HM1'), ('HM4'), ('HM6'), ('HMQ'), ('WJA');

-- Ribbons without colours and print parameters of their own.
CREATE TEMP TABLE check_special(sku);
INSERT INTO check_special VALUES ('R4417TX'), ('HVWA-ZEROSPOL');

-- Every supply id of 20 hexadecimal digits, decoded. The digits are read as two numbers of 40 bits, `high` with tag
-- bits 0 to 39 and `low` with 40 to 79.
CREATE TEMP TABLE check_tag AS
WITH RECURSIVE
digit(supplyId, place, high, low) AS (
    SELECT DISTINCT supplyId, 0, 0, 0 FROM roll
    WHERE typeof(supplyId) = 'text' AND length(supplyId) = 20 AND supplyId NOT GLOB '*[^0-9A-F]*'
    UNION ALL
    SELECT supplyId, place + 1,
           high * 16 + instr('0123456789ABCDEF', substr(supplyId, place + 1, 1)) - 1,
           low * 16 + instr('0123456789ABCDEF', substr(supplyId, place + 11, 1)) - 1
    FROM digit WHERE place < 10
)
SELECT supplyId,
       high >> 31 & 511                            AS mileageFeet,
       high >> 5 & 511                             AS lengthFeet,
       ((high & 31) << 3) | (low >> 37)            AS material,
       low >> 31 & 63                              AS format,
       (low >> 31 & 63) IN (1, 2)                  AS isContinuous,
       low >> 22 & 511                             AS color,
       (low >> 12 & 63) + (low >> 18 & 15) / 16.0  AS width,
       low >> 8 & 15                               AS revision,
       low & 63                                    AS formatRev1,
       -- Of a continuous roll:
       (high >> 19 & 63) + (high >> 25 & 15) / 16.0 AS stripeWidth,
       high >> 15 & 15                             AS stripeColor,
       -- Of a die-cut roll:
       ((high >> 25 & 3) + 1) / 16.0               AS separatorWidth,
       (high >> 15 & 63) + (high >> 21 & 15) / 16.0 AS labelLength
FROM digit WHERE place = 10;

-- Every roll with its rows joined, numbers as numbers whatever the columns' types.
CREATE TEMP TABLE check_roll AS
SELECT roll.itemNum, roll.supplyId, roll.materialWidthId,
       CAST(roll.colorId AS INTEGER)                      AS colorId,
       CAST(materialwidth.materialId AS INTEGER)          AS materialId,
       CAST(materialwidth.width AS REAL)                  AS width,
       CAST(materialwidth.length AS INTEGER)              AS length,
       CAST(materialwidth.nonContinuousLength AS REAL)    AS labelLength,
       materialwidth.machineId,
       materialwidth.machineId NOT IN (SELECT machineId FROM check_family) AS isOffered,
       noncontinuous.itemNum IS NOT NULL                  AS hasFormat,
       CAST(noncontinuous.separatorWidth AS REAL)         AS separatorWidth,
       continuousstripe.itemNum IS NOT NULL               AS hasStripe,
       CAST(continuousstripe.secColorWidth AS REAL)       AS stripeWidth,
       CAST(continuousstripe.secColorId AS INTEGER)       AS stripeColor,
       CAST(coalesce(noncontinuous.formatId, CASE WHEN continuousstripe.secColorWidth > 0 THEN 2 ELSE 1 END) AS INTEGER)
                                                          AS format
FROM roll
LEFT JOIN materialwidth ON materialwidth.id = roll.materialWidthId
LEFT JOIN noncontinuous ON noncontinuous.itemNum = roll.itemNum
LEFT JOIN continuousstripe ON continuousstripe.itemNum = roll.itemNum;

-- Materials that some ribbon prints on, `wide` by a ribbon that is not too narrow for rolls over 4 inches.
CREATE TEMP TABLE check_prints AS
SELECT CAST(ribbon_heat.materialId AS INTEGER) AS materialId, max(ribbon.width >= 4.5) AS isWide
FROM ribbon JOIN ribbon_heat ON ribbon_heat.ribbonId = ribbon.id
WHERE ribbon_heat.panel = 1 AND ribbon_heat.heat > 0 AND ribbon.sku NOT IN (SELECT sku FROM check_special)
GROUP BY 1;

-- All names, and the codes that need one.
CREATE TEMP TABLE check_name AS
SELECT 'colorTS' AS "table", colorId AS code, languageId, name FROM colorTS
UNION ALL SELECT 'materialTS', materialId, languageId, name FROM materialTS
UNION ALL SELECT 'formatTS', formatId, languageId, name FROM formatTS
UNION ALL SELECT 'ribbon_typeTS', ribbon_typeId, languageId, name FROM ribbon_typeTS
UNION ALL SELECT 'ribbon_colorTS', ribbon_colorId, languageId, name FROM ribbon_colorTS;

-- The languages that meta lists. A file from elsewhere may list none, or have no meta.
CREATE TEMP TABLE check_language(languageId INTEGER);
INSERT INTO check_language SELECT CAST(substr(key, 10) AS INTEGER) FROM meta WHERE key GLOB 'language.[0-9]*';

CREATE TEMP TABLE check_named_code AS
SELECT 'colorTS' AS "table", id AS code, 'colour' AS thing FROM color WHERE id IS NOT NULL
UNION SELECT 'materialTS', materialId, 'material' FROM materialwidth WHERE materialId IS NOT NULL
UNION SELECT 'formatTS', id, 'format' FROM format WHERE id IS NOT NULL
UNION SELECT 'ribbon_typeTS', typeId, 'ribbon type' FROM ribbon_panel WHERE typeId IN (SELECT ribbon_typeId FROM ribbon_typeTS)
UNION SELECT 'ribbon_colorTS', id, 'ribbon colour' FROM ribbon_color WHERE id IS NOT NULL;

-- The file

-- rule: damaged-file
-- severity: error
-- title: The file is damaged
-- message: SQLite's own check says: {complaint}
-- because: Lookups that meet the damage answer their defaults, others answer what no author wrote.
-- remedy: Build the file again from its sources, and look at how it was copied.
SELECT 'sqlite_schema' AS "table", integrity_check AS "key", integrity_check AS complaint
FROM pragma_integrity_check WHERE integrity_check <> 'ok';

-- rule: wal-mode
-- severity: error
-- title: The file is in write-ahead-log mode
-- message: The header asks for a write-ahead log
-- because: Whoever opens such a file writes two files beside it. From a folder that cannot be written it does not open.
-- remedy: Build the file with zrsupply catalogue build, or run PRAGMA journal_mode=DELETE in it.
-- code: writeAheadLog

-- rule: side-files
-- severity: error
-- title: A journal or log lies beside the file
-- message: There is {key}
-- because: A change was not finished, or is being made. The library cannot undo it and answers its defaults, or answers
--    rows that belong to no file that was shipped.
-- remedy: Let whoever writes the file end, run PRAGMA journal_mode=DELETE in it, and ship the file alone.
-- code: sideFiles

-- rule: page-moves
-- severity: hint
-- title: The file is kept ready for its pages to be moved
-- message: The header asks for auto-vacuum
-- because: A file that nobody writes has no use for it, and is longer by the list of where its pages belong.
-- remedy: Run PRAGMA auto_vacuum=NONE and VACUUM in it.
SELECT 'sqlite_schema' AS "table", 'header' AS "key" FROM pragma_auto_vacuum WHERE auto_vacuum <> 0;

-- rule: missing-table
-- severity: error
-- title: A table is missing
-- message: There is no table {key}
-- because: Every lookup that reads the table answers its default.
-- remedy: Add the table as schema/catalogue.sql has it, with the columns and keys there.
WITH needed("table") AS (VALUES
    ('roll'), ('materialwidth'), ('continuousstripe'), ('noncontinuous'), ('color'), ('format'), ('supplysensor'),
    ('background'), ('ribbon'), ('ribbon_panel'), ('ribbon_color'), ('ribbon_heat'), ('colorTS'), ('materialTS'),
    ('formatTS'), ('ribbon_typeTS'), ('ribbon_colorTS')
)
SELECT 'sqlite_schema' AS "table", "table" AS "key" FROM needed
WHERE lower("table") NOT IN (SELECT lower(name) FROM main.sqlite_schema WHERE type IN ('table', 'view'));

-- rule: missing-column
-- severity: error
-- title: A column is missing
-- message: Table {table} has no column {key}
-- because: Every lookup that reads the column answers its default.
-- remedy: Add the column as schema/catalogue.sql has it.
WITH needed("table", columns) AS (VALUES
    ('roll', '["itemNum","supplyId","materialWidthId","colorId","landscape","nUpCount","supplysensorId","backgroundId"]'),
    ('materialwidth', '["id","materialId","width","length","nonContinuousLength","machineId"]'),
    ('continuousstripe', '["itemNum","secColorWidth","secColorId"]'),
    ('noncontinuous', '["itemNum","formatId","separatorWidth"]'),
    ('color', '["id","secId","rgbValue","name"]'),
    ('format', '["id","type"]'),
    ('supplysensor', '["id","supplysensortype"]'),
    ('background', '["id","svg"]'),
    ('ribbon', '["id","sku","panels","width","length"]'),
    ('ribbon_panel', '["ribbonId","panel","typeId","colorId"]'),
    ('ribbon_color', '["id","rgbValue","name"]'),
    ('ribbon_heat', '["ribbonId","panel","materialId","heat","max_offset","max_speed","tension"]'),
    ('colorTS', '["colorId","languageId","name"]'),
    ('materialTS', '["materialId","languageId","name"]'),
    ('formatTS', '["formatId","languageId","name"]'),
    ('ribbon_typeTS', '["ribbon_typeId","languageId","name"]'),
    ('ribbon_colorTS', '["ribbon_colorId","languageId","name"]')
)
SELECT needed."table", wanted.value AS "key"
FROM needed, json_each(needed.columns) AS wanted
WHERE lower(needed."table") IN (SELECT lower(name) FROM main.sqlite_schema WHERE type IN ('table', 'view'))
AND lower(wanted.value) NOT IN (SELECT lower(name) FROM pragma_table_xinfo(needed."table", 'main'));

-- rule: not-a-table
-- severity: warning
-- title: A view or a virtual table stands in place of a table
-- message: {key} is a {kind}
-- because: A view is computed anew for each lookup. A virtual table needs a module that the printer may not have.
-- remedy: Store the rows in a table.
SELECT 'sqlite_schema' AS "table", name AS "key",
       CASE type WHEN 'view' THEN 'view' ELSE 'virtual table' END AS kind
FROM main.sqlite_schema WHERE type = 'view' OR (type = 'table' AND sql LIKE 'CREATE VIRTUAL%');

-- rule: computed-column
-- severity: warning
-- title: A column is computed and not stored
-- message: {table}.{key} is computed
-- because: Its expression runs on every lookup that reads the column, for as long as it likes.
-- remedy: Store the values.
SELECT tables.name AS "table", columns.name AS "key"
FROM main.sqlite_schema AS tables, pragma_table_xinfo(tables.name, 'main') AS columns
WHERE tables.type = 'table' AND columns.hidden IN (2, 3);

-- rule: key-untyped
-- severity: error
-- title: A column of codes has no type
-- message: {table}.{key} is declared {type}
-- because: The library compares it with a quoted number. A number in a column without a numeric type equals no text, so
--    the code is never found.
-- remedy: Give the column the type INTEGER.
WITH codes("table", columns) AS (VALUES
    ('color', '["id","secId"]'), ('format', '["id"]'), ('ribbon', '["id"]'), ('ribbon_panel', '["panel"]'),
    ('colorTS', '["colorId","languageId"]'), ('materialTS', '["materialId","languageId"]'),
    ('formatTS', '["formatId","languageId"]'), ('ribbon_typeTS', '["languageId"]'), ('ribbon_colorTS', '["languageId"]')
)
SELECT codes."table", declared.name AS "key",
       CASE declared.type WHEN '' THEN 'without a type' ELSE declared.type END AS type
FROM codes, json_each(codes.columns) AS code
JOIN pragma_table_xinfo(codes."table", 'main') AS declared ON lower(declared.name) = lower(code.value)
WHERE declared.type = '' OR declared.type LIKE '%BLOB%';

-- rule: trigger
-- severity: warning
-- title: The file has a trigger
-- message: Trigger {key} is attached to table {on}
-- because: The library never writes, so a trigger does nothing but surprise who edits the file next.
-- remedy: Drop it.
SELECT 'sqlite_schema' AS "table", name AS "key", tbl_name AS "on" FROM main.sqlite_schema WHERE type = 'trigger';

-- rule: statement-fails
-- severity: error
-- title: A statement of the library does not run
-- message: {error}: {key}
-- because: The lookups that issue the statement answer their defaults.
-- remedy: Give the tables the columns of schema/catalogue.sql.
-- code: statementFails

-- rule: statement-scans
-- severity: warning
-- title: A lookup reads a whole table
-- message: {plan}: {key}
-- because: The lookup takes longer with every row of the catalogue, where it could go to its row at once.
-- remedy: Give the tables the keys and indexes of schema/catalogue.sql, and integer types on both sides of a join.
-- code: statementScans

-- rule: sources-fail
-- severity: error
-- title: The sources do not make a catalogue
-- message: {error}: {fix}
-- because: No file is built, so nothing else can be checked.
-- remedy: Do what stands behind each place, and check again.
-- code: sourcesFail

-- rule: sources-unused
-- severity: warning
-- title: A file of the sources is in no catalogue
-- message: Its name is no table's, and no row names it
-- because: What is in the file is not in the catalogue.
-- remedy: Name a CSV file after its table, name a picture in a row of background, or remove the file.
-- code: sourcesUnused

-- Values: type and presence

-- rule: integer-value
-- severity: error
-- title: A column of whole numbers holds something else
-- message: {column} is {type} {value}
-- because: The library reads the value as 0 or as a rounded or cut number, and joins over it find no row.
-- remedy: Write a whole number between -2147483648 and 2147483647, and give the column the type INTEGER.
WITH integers("table", "key", "column", value) AS (
    SELECT 'roll', itemNum, 'materialWidthId', materialWidthId FROM roll
    UNION ALL SELECT 'roll', itemNum, 'colorId', colorId FROM roll
    UNION ALL SELECT 'roll', itemNum, 'landscape', landscape FROM roll
    UNION ALL SELECT 'roll', itemNum, 'nUpCount', nUpCount FROM roll
    UNION ALL SELECT 'roll', itemNum, 'supplysensorId', supplysensorId FROM roll
    UNION ALL SELECT 'roll', itemNum, 'backgroundId', backgroundId FROM roll
    UNION ALL SELECT 'materialwidth', id, 'id', id FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'materialId', materialId FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'length', length FROM materialwidth
    UNION ALL SELECT 'continuousstripe', itemNum, 'secColorId', secColorId FROM continuousstripe
    UNION ALL SELECT 'noncontinuous', itemNum, 'formatId', formatId FROM noncontinuous
    UNION ALL SELECT 'color', id, 'id', id FROM color
    UNION ALL SELECT 'color', id, 'secId', secId FROM color
    UNION ALL SELECT 'color', id, 'rgbValue', rgbValue FROM color
    UNION ALL SELECT 'format', id, 'id', id FROM format
    UNION ALL SELECT 'supplysensor', id, 'id', id FROM supplysensor
    UNION ALL SELECT 'background', id, 'id', id FROM background
    UNION ALL SELECT 'ribbon', sku, 'id', id FROM ribbon
    UNION ALL SELECT 'ribbon', sku, 'panels', panels FROM ribbon
    UNION ALL SELECT 'ribbon_panel', printf('%s/%s', ribbonId, panel), 'ribbonId', ribbonId FROM ribbon_panel
    UNION ALL SELECT 'ribbon_panel', printf('%s/%s', ribbonId, panel), 'panel', panel FROM ribbon_panel
    UNION ALL SELECT 'ribbon_panel', printf('%s/%s', ribbonId, panel), 'typeId', typeId FROM ribbon_panel
    UNION ALL SELECT 'ribbon_panel', printf('%s/%s', ribbonId, panel), 'colorId', colorId FROM ribbon_panel
    UNION ALL SELECT 'ribbon_color', id, 'id', id FROM ribbon_color
    UNION ALL SELECT 'ribbon_color', id, 'rgbValue', rgbValue FROM ribbon_color
    UNION ALL SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), heats.value,
        CASE heats.value WHEN 'ribbonId' THEN ribbonId WHEN 'panel' THEN panel WHEN 'materialId' THEN materialId
            WHEN 'heat' THEN heat WHEN 'max_offset' THEN max_offset WHEN 'max_speed' THEN max_speed ELSE tension END
        FROM ribbon_heat, json_each('["ribbonId","panel","materialId","heat","max_offset","max_speed","tension"]') AS heats
    UNION ALL SELECT "table", printf('%s/%s', code, languageId), 'code', code FROM check_name
    UNION ALL SELECT "table", printf('%s/%s', code, languageId), 'languageId', languageId FROM check_name
)
SELECT "table", "key", "column",
       CASE typeof(value) WHEN 'integer' THEN 'too large' WHEN 'real' THEN 'the fraction' ELSE 'the ' || typeof(value) END
           AS type,
       CASE typeof(value) WHEN 'blob' THEN printf('of %d bytes', length(value)) WHEN 'text' THEN '"' || value || '"'
            ELSE value END AS value
FROM integers
WHERE typeof(value) NOT IN ('integer', 'null')
   OR (typeof(value) = 'integer' AND value NOT BETWEEN -2147483648 AND 2147483647);

-- rule: real-value
-- severity: error
-- title: A column of sizes holds text
-- message: {column} is the {type} {value}
-- because: The library reads the value as 0.0 where it is not a number with a decimal point.
-- remedy: Write the number with a decimal point and without a unit, and give the column the type REAL.
WITH sizes("table", "key", "column", value) AS (
    SELECT 'materialwidth', id, 'width', width FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'nonContinuousLength', nonContinuousLength FROM materialwidth
    UNION ALL SELECT 'continuousstripe', itemNum, 'secColorWidth', secColorWidth FROM continuousstripe
    UNION ALL SELECT 'noncontinuous', itemNum, 'separatorWidth', separatorWidth FROM noncontinuous
    UNION ALL SELECT 'ribbon', sku, 'width', width FROM ribbon
    UNION ALL SELECT 'ribbon', sku, 'length', length FROM ribbon
)
SELECT "table", "key", "column", typeof(value) AS type,
       CASE typeof(value) WHEN 'blob' THEN printf('of %d bytes', length(value)) ELSE '"' || value || '"' END AS value
FROM sizes WHERE typeof(value) NOT IN ('integer', 'real', 'null');

-- rule: text-value
-- severity: error
-- title: A column of text holds a number or bytes
-- message: {column} is the {type} {value}
-- because: A SKU or an id that is stored as a number has lost its leading zeros and equals no text.
-- remedy: Give the column the type TEXT and write the value again.
WITH texts("table", "key", "column", value) AS (
    SELECT 'roll', itemNum, 'itemNum', itemNum FROM roll
    UNION ALL SELECT 'roll', itemNum, 'supplyId', supplyId FROM roll
    UNION ALL SELECT 'materialwidth', id, 'machineId', machineId FROM materialwidth
    UNION ALL SELECT 'continuousstripe', itemNum, 'itemNum', itemNum FROM continuousstripe
    UNION ALL SELECT 'noncontinuous', itemNum, 'itemNum', itemNum FROM noncontinuous
    UNION ALL SELECT 'color', id, 'name', name FROM color
    UNION ALL SELECT 'format', id, 'type', type FROM format
    UNION ALL SELECT 'supplysensor', id, 'supplysensortype', supplysensortype FROM supplysensor
    UNION ALL SELECT 'ribbon', sku, 'sku', sku FROM ribbon
    UNION ALL SELECT 'ribbon_color', id, 'name', name FROM ribbon_color
    UNION ALL SELECT "table", printf('%s/%s', code, languageId), 'name', name FROM check_name
)
SELECT "table", "key", "column", typeof(value) AS type,
       CASE typeof(value) WHEN 'blob' THEN printf('of %d bytes', length(value)) ELSE value END AS value
FROM texts WHERE typeof(value) NOT IN ('text', 'null');

-- rule: value-missing
-- severity: error
-- title: A value is missing
-- message: {column} is NULL
-- because: The library answers 0, 0.0 or an empty text, as if that were written there. Without a machine family the
--    roll is neither offered nor found by its tag.
-- remedy: Write the value.
WITH needed("table", "key", "column", value) AS (
    SELECT 'roll', itemNum, 'landscape', landscape FROM roll
    UNION ALL SELECT 'roll', itemNum, 'nUpCount', nUpCount FROM roll
    UNION ALL SELECT 'materialwidth', id, 'materialId', materialId FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'width', width FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'length', length FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'nonContinuousLength', nonContinuousLength FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'machineId', machineId FROM materialwidth
    UNION ALL SELECT 'noncontinuous', itemNum, 'separatorWidth', separatorWidth FROM noncontinuous
    UNION ALL SELECT 'color', id, 'rgbValue', rgbValue FROM color
    UNION ALL SELECT 'format', id, 'type', type FROM format
    UNION ALL SELECT 'ribbon', sku, 'panels', panels FROM ribbon
    UNION ALL SELECT 'ribbon', sku, 'width', width FROM ribbon
    UNION ALL SELECT 'ribbon', sku, 'length', length FROM ribbon
    UNION ALL SELECT 'ribbon_color', id, 'rgbValue', rgbValue FROM ribbon_color
    UNION ALL SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), 'max_offset', max_offset FROM ribbon_heat
    UNION ALL SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), 'max_speed', max_speed FROM ribbon_heat
    UNION ALL SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), 'tension', tension FROM ribbon_heat
)
SELECT "table", "key", "column" FROM needed WHERE value IS NULL;

-- rule: giant-value
-- severity: warning
-- title: A value is far larger than any use of it
-- message: {column} takes {size} {unit}
-- because: The value is copied on every lookup, and a panel has no room for it.
-- remedy: Shorten the text to 200 characters, the picture to 256 KiB.
WITH sized("table", "key", "column", size, unit, most) AS (
    SELECT 'roll', substr(itemNum, 1, 40), 'itemNum', length(itemNum), 'characters', 200 FROM roll
    UNION ALL SELECT 'materialwidth', id, 'machineId', length(machineId), 'characters', 200 FROM materialwidth
    UNION ALL SELECT 'color', id, 'name', length(name), 'characters', 200 FROM color
    UNION ALL SELECT 'format', id, 'type', length(type), 'characters', 200 FROM format
    UNION ALL SELECT 'supplysensor', id, 'supplysensortype', length(supplysensortype), 'characters', 200 FROM supplysensor
    UNION ALL SELECT 'ribbon', substr(sku, 1, 40), 'sku', length(sku), 'characters', 200 FROM ribbon
    UNION ALL SELECT 'ribbon_color', id, 'name', length(name), 'characters', 200 FROM ribbon_color
    UNION ALL SELECT "table", printf('%s/%s', code, languageId), 'name', length(name), 'characters', 200 FROM check_name
    UNION ALL SELECT 'background', id, 'svg', length(svg), 'bytes', 262144 FROM background
)
SELECT "table", "key", "column", size, unit FROM sized WHERE size > most;

-- Keys

-- rule: key-missing
-- severity: error
-- title: A key is NULL
-- message: {column} is NULL in {rows} row(s)
-- because: No lookup and no join finds the row.
-- remedy: Write the key or remove the row.
WITH keys("table", "column", value) AS (
    SELECT 'roll', 'itemNum', itemNum FROM roll
    UNION ALL SELECT 'materialwidth', 'id', id FROM materialwidth
    UNION ALL SELECT 'continuousstripe', 'itemNum', itemNum FROM continuousstripe
    UNION ALL SELECT 'noncontinuous', 'itemNum', itemNum FROM noncontinuous
    UNION ALL SELECT 'color', 'id', id FROM color
    UNION ALL SELECT 'format', 'id', id FROM format
    UNION ALL SELECT 'supplysensor', 'id', id FROM supplysensor
    UNION ALL SELECT 'supplysensor', 'supplysensortype', supplysensortype FROM supplysensor
    UNION ALL SELECT 'background', 'id', id FROM background
    UNION ALL SELECT 'ribbon', 'id', id FROM ribbon
    UNION ALL SELECT 'ribbon', 'sku', sku FROM ribbon
    UNION ALL SELECT 'ribbon_panel', 'ribbonId', ribbonId FROM ribbon_panel
    UNION ALL SELECT 'ribbon_panel', 'panel', panel FROM ribbon_panel
    UNION ALL SELECT 'ribbon_color', 'id', id FROM ribbon_color
    UNION ALL SELECT 'ribbon_heat', 'ribbonId', ribbonId FROM ribbon_heat
    UNION ALL SELECT 'ribbon_heat', 'panel', panel FROM ribbon_heat
    UNION ALL SELECT 'ribbon_heat', 'materialId', materialId FROM ribbon_heat
    UNION ALL SELECT "table", 'code', code FROM check_name
    UNION ALL SELECT "table", 'languageId', languageId FROM check_name
)
SELECT "table", '' AS "key", "column", count(*) AS rows FROM keys WHERE value IS NULL GROUP BY "table", "column";

-- rule: key-duplicate
-- severity: error
-- title: A key occurs more than once
-- message: {column} {value} stands in {rows} rows
-- because: The library takes the first row that SQLite returns and never sees the others.
-- remedy: Keep one row, and declare the key as schema/catalogue.sql does.
WITH keys("table", "key", "column", value, rows) AS (
    SELECT 'roll', itemNum, 'itemNum', itemNum, count(*) FROM roll GROUP BY itemNum
    UNION ALL SELECT 'materialwidth', id, 'id', id, count(*) FROM materialwidth GROUP BY id
    UNION ALL SELECT 'continuousstripe', itemNum, 'itemNum', itemNum, count(*) FROM continuousstripe GROUP BY itemNum
    UNION ALL SELECT 'noncontinuous', itemNum, 'itemNum', itemNum, count(*) FROM noncontinuous GROUP BY itemNum
    UNION ALL SELECT 'color', id, 'id', id, count(*) FROM color GROUP BY id
    UNION ALL SELECT 'color', min(id), 'secId', secId, count(*) FROM color GROUP BY secId
    UNION ALL SELECT 'format', id, 'id', id, count(*) FROM format GROUP BY id
    UNION ALL SELECT 'supplysensor', id, 'id', id, count(*) FROM supplysensor GROUP BY id
    UNION ALL SELECT 'supplysensor', min(id), 'supplysensortype', supplysensortype, count(*)
        FROM supplysensor GROUP BY supplysensortype
    UNION ALL SELECT 'background', id, 'id', id, count(*) FROM background GROUP BY id
    UNION ALL SELECT 'ribbon', min(sku), 'id', id, count(*) FROM ribbon GROUP BY id
    UNION ALL SELECT 'ribbon', sku, 'sku', sku, count(*) FROM ribbon GROUP BY sku
    UNION ALL SELECT 'ribbon_panel', printf('%s/%s', ribbonId, panel), 'panel', panel, count(*)
        FROM ribbon_panel GROUP BY ribbonId, panel
    UNION ALL SELECT 'ribbon_color', id, 'id', id, count(*) FROM ribbon_color GROUP BY id
    UNION ALL SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), 'materialId', materialId, count(*)
        FROM ribbon_heat GROUP BY ribbonId, panel, materialId
    UNION ALL SELECT "table", printf('%s/%s', code, languageId), 'languageId', languageId, count(*)
        FROM check_name GROUP BY "table", code, languageId
)
SELECT "table", "key", "column", value, rows FROM keys WHERE rows > 1 AND value IS NOT NULL;

-- SKUs

-- rule: sku-empty
-- severity: error
-- title: A SKU is empty
-- message: The SKU is {length} blank(s)
-- because: An empty SKU stands for the installed roll, whose tag then answers.
-- remedy: Write the SKU as it is printed on the box.
SELECT 'roll' AS "table", itemNum AS "key", length(itemNum) AS length FROM roll WHERE trim(itemNum) = ''
UNION ALL
SELECT 'ribbon', sku, length(sku) FROM ribbon WHERE trim(sku) = '';

-- rule: sku-quote
-- severity: error
-- title: A SKU holds a quote
-- message: The SKU is {key}
-- because: SKUs are pasted into SQL texts as they stand. A quote ends the text early, the statement fails, and every
--    answer is the default.
-- remedy: Name the article without quotes.
SELECT 'roll' AS "table", itemNum AS "key" FROM roll WHERE itemNum LIKE '%''%' OR itemNum LIKE '%"%'
UNION ALL
SELECT 'ribbon', sku FROM ribbon WHERE sku LIKE '%''%' OR sku LIKE '%"%';

-- rule: sku-percent
-- severity: error
-- title: A SKU holds a per cent sign
-- message: The SKU is {key}
-- because: SQL texts are filled one value after the other, so a `%2` in a SKU is replaced by the language.
-- remedy: Name the article without per cent signs.
SELECT 'roll' AS "table", itemNum AS "key" FROM roll WHERE instr(itemNum, '%')
UNION ALL
SELECT 'ribbon', sku FROM ribbon WHERE instr(sku, '%');

-- rule: sku-reserved
-- severity: error
-- title: A SKU means something else to the library
-- message: The SKU is {key}
-- because: "-1" is the missing supply and "UnknownSupply" the roll that only its tag describes. Neither is looked up.
-- remedy: Name the article otherwise.
SELECT 'roll' AS "table", itemNum AS "key" FROM roll WHERE itemNum IN ('-1', 'UnknownSupply')
UNION ALL
SELECT 'ribbon', sku FROM ribbon WHERE sku IN ('-1', 'UnknownSupply');

-- rule: sku-blank
-- severity: warning
-- title: A SKU holds blanks or control characters
-- message: The SKU is "{key}"
-- because: SKUs are compared character by character, so a person who types it does not find it.
-- remedy: Remove the blank.
WITH skus("table", "key") AS (SELECT 'roll', itemNum FROM roll UNION ALL SELECT 'ribbon', sku FROM ribbon)
SELECT "table", "key" FROM skus
WHERE trim("key") <> '' AND ("key" GLOB '* *' OR "key" GLOB '*[' || char(1) || '-' || char(31) || char(127) || char(160) || ']*');

-- Joins

-- rule: dangling-material-width
-- severity: error
-- title: A roll has no material and width
-- message: materialWidthId {materialWidthId} names no row of materialwidth
-- because: The roll is neither offered nor found by its tag, and its sizes are answered with -1.
-- remedy: Add the row to materialwidth or name another.
SELECT 'roll' AS "table", itemNum AS "key", coalesce(materialWidthId, 'NULL') AS materialWidthId FROM roll
WHERE materialWidthId IS NULL OR materialWidthId NOT IN (SELECT id FROM materialwidth WHERE id IS NOT NULL);

-- rule: dangling-color
-- severity: error
-- title: A roll has no colour
-- message: colorId {colorId} names no row of color
-- because: The colour is answered with -1 and its English name with an empty text.
-- remedy: Add the colour or name another.
SELECT 'roll' AS "table", itemNum AS "key", coalesce(colorId, 'NULL') AS colorId FROM roll
WHERE colorId IS NULL OR colorId NOT IN (SELECT id FROM color WHERE id IS NOT NULL);

-- rule: dangling-stripe-color
-- severity: error
-- title: A stripe has a colour that does not exist
-- message: secColorId {secColorId} is no colour's secId
-- because: The colour of the stripe is answered with -1 and its name with an empty text.
-- remedy: Name a secId of color, which is not its id.
SELECT 'continuousstripe' AS "table", itemNum AS "key", secColorId FROM continuousstripe
WHERE secColorId IS NOT NULL AND secColorId NOT IN (SELECT secId FROM color WHERE secId IS NOT NULL);

-- rule: dangling-sensor
-- severity: error
-- title: A roll needs a sensor that does not exist
-- message: supplysensorId {supplysensorId} names no row of supplysensor
-- because: The roll is announced as one without a sensor.
-- remedy: Name a row of supplysensor, or leave the field empty for a roll without a sensor.
SELECT 'roll' AS "table", itemNum AS "key", supplysensorId FROM roll
WHERE supplysensorId IS NOT NULL AND supplysensorId NOT IN (SELECT id FROM supplysensor WHERE id IS NOT NULL);

-- rule: dangling-background
-- severity: error
-- title: A roll has a picture that does not exist
-- message: backgroundId {backgroundId} names no row of background
-- because: The picture is answered empty.
-- remedy: Name a row of background, or leave the field empty for a roll without a picture.
SELECT 'roll' AS "table", itemNum AS "key", backgroundId FROM roll
WHERE backgroundId IS NOT NULL AND backgroundId NOT IN (SELECT id FROM background WHERE id IS NOT NULL);

-- rule: dangling-format
-- severity: error
-- title: A die-cut roll has no format
-- message: formatId {formatId} names no row of format
-- because: The format's type name is answered empty. Without a number the roll is classified as if it had format 0.
-- remedy: Add the format or name another.
SELECT 'noncontinuous' AS "table", itemNum AS "key", coalesce(formatId, 'NULL') AS formatId FROM noncontinuous
WHERE formatId IS NULL OR formatId NOT IN (SELECT id FROM format WHERE id IS NOT NULL);

-- rule: dangling-roll
-- severity: warning
-- title: A row describes a roll that does not exist
-- message: There is no roll {key}
-- because: The stripe or format is answered for a SKU that has neither size nor colour.
-- remedy: Correct the SKU, leading zeros included, or remove the row.
SELECT 'continuousstripe' AS "table", itemNum AS "key" FROM continuousstripe
WHERE itemNum NOT IN (SELECT itemNum FROM roll WHERE itemNum IS NOT NULL)
UNION ALL
SELECT 'noncontinuous', itemNum FROM noncontinuous
WHERE itemNum NOT IN (SELECT itemNum FROM roll WHERE itemNum IS NOT NULL);

-- rule: dangling-ribbon
-- severity: warning
-- title: A panel or a heat belongs to a ribbon that does not exist
-- message: There is no ribbon with id {ribbonId}
-- because: The row is never read.
-- remedy: Correct the ribbon's id or remove the row.
SELECT 'ribbon_panel' AS "table", printf('%s/%s', ribbonId, panel) AS "key", ribbonId FROM ribbon_panel
WHERE ribbonId NOT IN (SELECT id FROM ribbon WHERE id IS NOT NULL)
UNION ALL
SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), ribbonId FROM ribbon_heat
WHERE ribbonId NOT IN (SELECT id FROM ribbon WHERE id IS NOT NULL);

-- rule: dangling-ribbon-type
-- severity: error
-- title: A panel has a type that does not exist
-- message: typeId {typeId} has no row in ribbon_typeTS
-- because: The ribbon's type is answered empty in every language.
-- remedy: Name a type, or add its names to ribbon_typeTS.
SELECT 'ribbon_panel' AS "table", printf('%s/%s', ribbonId, panel) AS "key", coalesce(typeId, 'NULL') AS typeId
FROM ribbon_panel
WHERE typeId IS NULL OR typeId NOT IN (SELECT ribbon_typeId FROM ribbon_typeTS WHERE ribbon_typeId IS NOT NULL);

-- rule: dangling-ribbon-color
-- severity: error
-- title: A panel has no colour
-- message: colorId {colorId} names no row of ribbon_color
-- because: The panel's colour is answered with -1.
-- remedy: Name a row of ribbon_color, which has a numbering of its own.
SELECT 'ribbon_panel' AS "table", printf('%s/%s', ribbonId, panel) AS "key", coalesce(colorId, 'NULL') AS colorId
FROM ribbon_panel
WHERE colorId IS NULL OR colorId NOT IN (SELECT id FROM ribbon_color WHERE id IS NOT NULL);

-- rule: dangling-panel
-- severity: warning
-- title: A heat is given for a panel that the ribbon does not have
-- message: Ribbon {sku} has no panel {panel}
-- because: The row is never needed, and the panel that was meant may lack it.
-- remedy: Correct the panel's number, which starts at 1, or remove the row.
SELECT 'ribbon_heat' AS "table", printf('%s/%s/%s', ribbonId, panel, materialId) AS "key", ribbon.sku, panel
FROM ribbon_heat JOIN ribbon ON ribbon.id = ribbon_heat.ribbonId
WHERE ribbon.sku NOT IN (SELECT sku FROM check_special)
AND (ribbonId, panel) NOT IN (SELECT ribbonId, panel FROM ribbon_panel WHERE ribbonId IS NOT NULL AND panel IS NOT NULL);

-- rule: unused-row
-- severity: hint
-- title: A row is used by no roll
-- message: No roll uses {table} {key}
-- because: It is never answered.
-- remedy: Remove it, or look for the roll that should use it.
SELECT 'materialwidth' AS "table", id AS "key" FROM materialwidth
WHERE id NOT IN (SELECT materialWidthId FROM roll WHERE materialWidthId IS NOT NULL)
UNION ALL
SELECT 'background', id FROM background WHERE id NOT IN (SELECT backgroundId FROM roll WHERE backgroundId IS NOT NULL)
UNION ALL
SELECT 'ribbon_color', id FROM ribbon_color WHERE id NOT IN (SELECT colorId FROM ribbon_panel WHERE colorId IS NOT NULL);

-- Rolls

-- rule: die-cut-without-format
-- severity: error
-- title: A roll with a label length has no row in noncontinuous
-- message: The label length is {labelLength} inches, but noncontinuous has no row
-- because: The roll is classified as format 1, and its length is answered with -1.
-- remedy: Add the row with format and separator width. A continuous roll has the label length 0.0.
SELECT 'roll' AS "table", itemNum AS "key", labelLength FROM check_roll WHERE labelLength <> 0.0 AND NOT hasFormat;

-- rule: continuous-with-format
-- severity: error
-- title: A roll without a label length has a row in noncontinuous
-- message: The label length is {labelLength}, but noncontinuous gives it format {format}
-- because: The roll is classified as continuous while its format says die-cut.
-- remedy: Give its materialwidth row a label length, or remove the row from noncontinuous.
SELECT 'noncontinuous' AS "table", itemNum AS "key", coalesce(labelLength, 'NULL') AS labelLength, format
FROM check_roll WHERE hasFormat AND materialWidthId IS NOT NULL AND coalesce(labelLength, 0.0) = 0.0;

-- rule: die-cut-format
-- severity: error
-- title: A die-cut roll has the format of a continuous one
-- message: The format is {formatId}
-- because: Formats 1 and 2 are continuous media. A tag of these formats holds a stripe where labels have their length.
-- remedy: Name a die-cut format.
SELECT 'noncontinuous' AS "table", itemNum AS "key", formatId FROM noncontinuous WHERE formatId IN (1, 2);

-- rule: stripe-on-die-cut
-- severity: error
-- title: A die-cut roll has a stripe
-- message: The roll stands in noncontinuous and in continuousstripe
-- because: The library calls it striped continuous media, whatever its labels.
-- remedy: Remove one of the two rows.
SELECT 'continuousstripe' AS "table", itemNum AS "key" FROM check_roll WHERE hasFormat AND hasStripe;

-- rule: stripe-incomplete
-- severity: error
-- title: A stripe has no width or no colour
-- message: The stripe has width {width} and colour {color}
-- because: Without a width above 0 the roll does not count as striped. Without a colour the stripe cannot be drawn.
-- remedy: Write both, the colour as a secId of color.
SELECT 'continuousstripe' AS "table", itemNum AS "key", coalesce(secColorWidth, 'NULL') AS width,
       coalesce(secColorId, 'NULL') AS color
FROM continuousstripe WHERE coalesce(secColorWidth, 0) <= 0 OR secColorId IS NULL;

-- rule: landscape-value
-- severity: warning
-- title: The landscape flag is neither 0 nor 1
-- message: landscape is {landscape}
-- because: The number is answered as it stands. -1 also means that the roll is unknown.
-- remedy: Write 1 for labels that print in landscape, else 0.
SELECT 'roll' AS "table", itemNum AS "key", landscape FROM roll
WHERE typeof(landscape) = 'integer' AND landscape NOT IN (0, 1);

-- rule: size-not-positive
-- severity: error
-- title: A size or a count is zero or negative
-- message: {column} is {value}
-- because: -1 means that the supply is unknown, and nothing has a size of 0.
-- remedy: Write the size. Only the label length of a continuous roll is 0.0.
WITH sizes("table", "key", "column", value, least) AS (
    SELECT 'roll', itemNum, 'nUpCount', nUpCount, 1 FROM roll
    UNION ALL SELECT 'materialwidth', id, 'width', width, 0.001 FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'length', length, 1 FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'nonContinuousLength', nonContinuousLength, 0 FROM materialwidth
    UNION ALL SELECT 'noncontinuous', itemNum, 'separatorWidth', separatorWidth, 0.001 FROM noncontinuous
    UNION ALL SELECT 'ribbon', sku, 'width', width, 0.001 FROM ribbon
    UNION ALL SELECT 'ribbon', sku, 'length', length, 0.001 FROM ribbon
    UNION ALL SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), 'max_offset', max_offset, 0 FROM ribbon_heat
    UNION ALL SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), 'max_speed', max_speed, 1 FROM ribbon_heat
    UNION ALL SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), 'tension', tension, 0 FROM ribbon_heat
)
SELECT "table", "key", "column", value FROM sizes WHERE value < least;

-- rule: size-absurd
-- severity: warning
-- title: A size is beyond anything that fits the printer
-- message: {column} is {value} {unit}, more than {most}
-- because: A size in another unit is the usual cause, and the lookups that compare sizes go wrong.
-- remedy: Widths and label lengths are inches, roll lengths feet or a count of labels, ribbon lengths inches.
WITH sizes("table", "key", "column", value, most, unit) AS (
    SELECT 'roll', itemNum, 'nUpCount', nUpCount, 32, 'labels' FROM roll
    UNION ALL SELECT 'materialwidth', id, 'width', width, 12, 'inches' FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'nonContinuousLength', nonContinuousLength, 60, 'inches' FROM materialwidth
    UNION ALL SELECT 'materialwidth', id, 'length', length, 511, 'feet' FROM materialwidth WHERE nonContinuousLength = 0
    UNION ALL SELECT 'materialwidth', id, 'length', length, 100000, 'labels' FROM materialwidth WHERE nonContinuousLength > 0
    UNION ALL SELECT 'noncontinuous', itemNum, 'separatorWidth', separatorWidth, 1, 'inches' FROM noncontinuous
    UNION ALL SELECT 'continuousstripe', itemNum, 'secColorWidth', stripeWidth, width, 'inches (the roll''s width)'
        FROM check_roll WHERE hasStripe AND width > 0
    UNION ALL SELECT 'ribbon', sku, 'width', width, 12, 'inches' FROM ribbon
    UNION ALL SELECT 'ribbon', sku, 'length', length, 24000, 'inches' FROM ribbon
    UNION ALL SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), 'max_speed', max_speed, 1000, 'mm a second'
        FROM ribbon_heat
)
SELECT "table", "key", "column", value, most, unit FROM sizes WHERE typeof(value) <> 'text' AND value > most;

-- rule: code-range
-- severity: warning
-- title: A code does not fit a tag
-- message: {column} is {value}, a tag holds {least} to {most}
-- because: No tag can name it. A stripe colour with code 0 is worse: tags of rolls without a stripe then name it.
-- remedy: Choose a code in the range.
WITH codes("table", "key", "column", value, least, most) AS (
    SELECT 'color', id, 'id', id, 0, 511 FROM color
    UNION ALL SELECT 'color', id, 'secId', secId, 1, 15 FROM color
    UNION ALL SELECT 'format', id, 'id', id, 1, 63 FROM format
    UNION ALL SELECT 'materialwidth', id, 'materialId', materialId, 0, 255 FROM materialwidth
)
SELECT "table", "key", "column", value, least, most FROM codes
WHERE typeof(value) = 'integer' AND value NOT BETWEEN least AND most;

-- rule: family-spelling
-- severity: warning
-- title: A machine family is almost one of those that are not offered
-- message: machineId is "{machineId}"
-- because: Families are compared exactly, so the rolls of this row are offered and found by their tags.
-- remedy: Write HM1, HM4, HM6, HMQ or WJA, in capitals and without blanks, if one of them is meant.
SELECT 'materialwidth' AS "table", id AS "key", machineId FROM materialwidth
WHERE machineId NOT IN (SELECT machineId FROM check_family)
AND upper(replace(replace(machineId, ' ', ''), '-', '')) IN (SELECT machineId FROM check_family);

-- Colours and names

-- rule: rgb-range
-- severity: error
-- title: A colour value is out of range
-- message: rgbValue is {rgbValue}
-- because: A colour is red * 65536 + green * 256 + blue, which is 0 to 16777215. -1 means that it is unknown.
-- remedy: Compute it anew. A value with an opacity has 4278190080 too much.
SELECT 'color' AS "table", id AS "key", rgbValue FROM color
WHERE typeof(rgbValue) = 'integer' AND rgbValue NOT BETWEEN 0 AND 16777215
UNION ALL
SELECT 'ribbon_color', id, rgbValue FROM ribbon_color
WHERE typeof(rgbValue) = 'integer' AND rgbValue NOT BETWEEN 0 AND 16777215;

-- rule: color-name-shared
-- severity: warning
-- title: Two colours have one English name
-- message: "{name}" names {rows} colours
-- because: The colour table of the library goes from name to value, and keeps the last one only.
-- remedy: Give each colour a name of its own.
SELECT 'color' AS "table", min(id) AS "key", name, count(*) AS rows FROM color
WHERE name IS NOT NULL GROUP BY name HAVING count(*) > 1
UNION ALL
SELECT 'ribbon_color', min(id), name, count(*) FROM ribbon_color
WHERE name IS NOT NULL GROUP BY name HAVING count(*) > 1;

-- rule: name-empty
-- severity: error
-- title: A name is empty
-- message: name is {name}
-- because: A name that is there but empty is shown as nothing.
-- remedy: Write the name, or remove the row.
SELECT "table", printf('%s/%s', code, languageId) AS "key", coalesce('"' || name || '"', 'NULL') AS name
FROM check_name WHERE trim(coalesce(name, '')) = ''
UNION ALL
SELECT 'color', id, coalesce('"' || name || '"', 'NULL') FROM color WHERE trim(coalesce(name, '')) = ''
UNION ALL
SELECT 'ribbon_color', id, coalesce('"' || name || '"', 'NULL') FROM ribbon_color WHERE trim(coalesce(name, '')) = '';

-- rule: name-without-english
-- severity: error
-- title: An English name is missing
-- message: {thing} {code} has no name in language 0
-- because: English names are asked for whatever the user's language, and the answer is "-1" or an empty text.
-- remedy: Add the row with languageId 0.
SELECT needed."table", printf('%s/0', needed.code) AS "key", needed.thing, needed.code
FROM check_named_code AS needed
LEFT JOIN check_name AS name ON name."table" = needed."table" AND name.code = needed.code AND name.languageId = 0
WHERE name.code IS NULL;

-- rule: name-untranslated
-- severity: warning
-- title: A name is missing in one of the catalogue's languages
-- message: {thing} {code} has no name in language {languageId}
-- because: The library does not fall back on English: the answer is "-1" or an empty text.
-- remedy: Add the row, with the English name where there is no other.
SELECT needed."table", printf('%s/%s', needed.code, language.languageId) AS "key", needed.thing, needed.code,
       language.languageId
FROM check_named_code AS needed
CROSS JOIN (SELECT languageId FROM check_language
            UNION
            SELECT languageId FROM check_name WHERE NOT EXISTS (SELECT 1 FROM check_language)) AS language
LEFT JOIN check_name AS name
    ON name."table" = needed."table" AND name.code = needed.code AND name.languageId = language.languageId
WHERE name.code IS NULL AND language.languageId <> 0;

-- rule: language-unlisted
-- severity: warning
-- title: A name is in a language that the catalogue does not list
-- message: languageId is {languageId}, meta has no row language.{languageId}
-- because: Nobody chooses the language, or the name is one that another language lacks.
-- remedy: Correct languageId, or list the language in meta and give every code a name in it.
SELECT "table", printf('%s/%s', code, languageId) AS "key", languageId FROM check_name
WHERE languageId NOT IN (SELECT languageId FROM check_language) AND EXISTS (SELECT 1 FROM check_language);

-- rule: name-english-differs
-- severity: warning
-- title: A colour has two English names
-- message: "{name}" here, "{translation}" in {other} with language 0
-- because: Which one is answered depends on the question.
-- remedy: Write the same name in both places.
SELECT 'color' AS "table", color.id AS "key", color.name, check_name.name AS translation, 'colorTS' AS other
FROM color JOIN check_name ON check_name."table" = 'colorTS' AND check_name.code = color.id
WHERE check_name.languageId = 0 AND trim(check_name.name) <> '' AND color.name <> check_name.name
UNION ALL
SELECT 'ribbon_color', ribbon_color.id, ribbon_color.name, check_name.name, 'ribbon_colorTS'
FROM ribbon_color JOIN check_name ON check_name."table" = 'ribbon_colorTS' AND check_name.code = ribbon_color.id
WHERE check_name.languageId = 0 AND trim(check_name.name) <> '' AND ribbon_color.name <> check_name.name;

-- rule: name-unused
-- severity: hint
-- title: A name belongs to a code that nothing has
-- message: Nothing has code {code}
-- because: The name is never answered, unless a tag of an unknown roll carries the code.
-- remedy: Correct the code or remove its names.
SELECT check_name."table", printf('%s/%s', check_name.code, min(check_name.languageId)) AS "key", check_name.code
FROM check_name
LEFT JOIN check_named_code AS needed ON needed."table" = check_name."table" AND needed.code = check_name.code
WHERE needed.code IS NULL AND check_name.code IS NOT NULL GROUP BY check_name."table", check_name.code;

-- rule: svg-unreadable
-- severity: error
-- title: A picture is not an SVG document
-- message: {error}
-- because: The bytes are handed to the host as they are, which then draws nothing.
-- remedy: Save the picture as plain SVG in UTF-8, and look at it in a browser.
-- code: svgUnreadable

-- Supply ids

-- rule: supply-id-missing
-- severity: warning
-- title: A roll has no supply id
-- message: supplyId is empty
-- because: The roll is never recognised by its tag.
-- remedy: Write the first 20 digits of its tag.
SELECT 'roll' AS "table", itemNum AS "key" FROM roll WHERE supplyId IS NULL OR trim(supplyId) = '';

-- rule: supply-id-form
-- severity: error
-- title: A supply id is not 20 hexadecimal digits in capitals
-- message: supplyId is "{supplyId}", {length} characters
-- because: The id is compared as text with the first 20 digits of the tag, so the roll is never recognised.
-- remedy: Write the first 20 of the tag's 24 digits, A to F in capitals.
SELECT 'roll' AS "table", itemNum AS "key", supplyId, length(supplyId) AS length FROM roll
WHERE trim(supplyId) <> '' AND (length(supplyId) <> 20 OR supplyId GLOB '*[^0-9A-F]*');

-- rule: supply-id-shared
-- severity: hint
-- title: Several rolls have one supply id
-- message: {skus} share {supplyId}: the tag answers {key}, {reason}
-- because: A tag names one SKU. The others are found only when they are named.
-- remedy: Nothing, if they are the same article. Otherwise give each an id of its own.
WITH ranked AS (
    SELECT supplyId, itemNum, rank() OVER (PARTITION BY supplyId ORDER BY length(itemNum)) AS place,
           count(*) OVER (PARTITION BY supplyId) AS rolls
    FROM check_roll WHERE isOffered AND supplyId IS NOT NULL
)
SELECT 'roll' AS "table", min(CASE place WHEN 1 THEN itemNum END) AS "key", supplyId,
       substr(group_concat(itemNum, ', '), 1, 200) AS skus,
       CASE sum(place = 1) WHEN 1 THEN 'the shortest SKU'
           ELSE 'in a built catalogue: of ' || sum(place = 1) || ' equally short SKUs the one that sorts first' END AS reason
FROM ranked WHERE rolls > 1 GROUP BY supplyId;

-- rule: family-shares-id
-- severity: hint
-- title: A roll that is not offered shares its supply id with one that is
-- message: Family {machineId} hides it: its id {supplyId} answers {winner}
-- because: The roll would be the answer, or one of the candidates, if its machine family were offered.
-- remedy: Nothing, if the family is right.
SELECT 'roll' AS "table", hidden.itemNum AS "key", hidden.machineId, hidden.supplyId,
       substr(min(printf('%08d%s', length(offered.itemNum), offered.itemNum)), 9) AS winner
FROM check_roll AS hidden JOIN check_roll AS offered ON offered.supplyId = hidden.supplyId
WHERE NOT hidden.isOffered AND offered.isOffered GROUP BY hidden.itemNum;

-- rule: family-hides-id
-- severity: hint
-- title: A supply id belongs to rolls that are not offered only
-- message: Family {machineId} hides it: its id {supplyId} answers "UnknownSupply"
-- because: The tag of such a roll is described by the tag alone.
-- remedy: Nothing, if the family is right.
SELECT 'roll' AS "table", itemNum AS "key", machineId, supplyId FROM check_roll
WHERE NOT isOffered AND supplyId IS NOT NULL
AND supplyId NOT IN (SELECT supplyId FROM check_roll WHERE isOffered AND supplyId IS NOT NULL);

-- Supply ids and rows, field by field. Both describe the same roll: the rows while the SKU is known, the tag otherwise.

-- rule: tag-revision
-- severity: error
-- title: A supply id has a revision that is not looked up
-- message: The tag has revision {revision}
-- because: From revision 2 on a tag describes its roll by itself, and the SKU is not looked up.
-- remedy: Use the id of a tag of revision 0 or 1.
SELECT 'roll' AS "table", itemNum AS "key", tag.revision FROM check_roll JOIN check_tag AS tag USING (supplyId)
WHERE tag.revision > 1;

-- rule: tag-width
-- severity: error
-- title: The width in the tag differs from the rows
-- message: The tag says {inTag} inches, materialwidth says {inRows}
-- because: The ribbon check takes the tag's width for an unknown roll and the rows' for a known one.
-- remedy: Correct the row or the supply id (digits 15 to 17).
SELECT 'roll' AS "table", itemNum AS "key", tag.width AS inTag, roll.width AS inRows
FROM check_roll AS roll JOIN check_tag AS tag USING (supplyId) WHERE tag.width <> roll.width;

-- rule: tag-length
-- severity: error
-- title: The length in the tag differs from the rows
-- message: The tag says {inTag} feet, the rows make {inRows}
-- because: The remaining fraction is computed from the tag, the length that is shown from the rows.
-- remedy: Correct length, which counts labels for die-cut media other than format 3, or the supply id (digits 7 to 9).
WITH lengths AS (
    SELECT itemNum, tag.lengthFeet AS inTag,
           CASE WHEN roll.labelLength = 0.0 OR roll.format = 3 THEN roll.length
                ELSE (roll.labelLength + roll.separatorWidth) * roll.length / 12.0 END AS inRows
    FROM check_roll AS roll JOIN check_tag AS tag USING (supplyId)
)
SELECT 'roll' AS "table", itemNum AS "key", inTag, inRows FROM lengths
WHERE abs(inTag - inRows) >= 1;

-- rule: tag-mileage
-- severity: warning
-- title: A tag's mileage base is below its length
-- message: The mileage base is {mileageFeet} feet, the length {lengthFeet}
-- because: The remaining fraction of a full roll is then above 1.
-- remedy: The base is the length, or a few feet more (digits 1 to 3 of the supply id).
SELECT 'roll' AS "table", itemNum AS "key", tag.mileageFeet, tag.lengthFeet
FROM check_roll JOIN check_tag AS tag USING (supplyId) WHERE tag.mileageFeet < tag.lengthFeet;

-- rule: tag-material
-- severity: error
-- title: The material in the tag differs from the rows
-- message: The tag says material {inTag}, materialwidth says {inRows}
-- because: Print heat and speed are found by the material.
-- remedy: Correct materialId or the supply id (digits 9 to 11).
SELECT 'roll' AS "table", itemNum AS "key", tag.material AS inTag, roll.materialId AS inRows
FROM check_roll AS roll JOIN check_tag AS tag USING (supplyId) WHERE tag.material <> roll.materialId;

-- rule: tag-color
-- severity: error
-- title: The colour in the tag differs from the rows
-- message: The tag says colour {inTag}, the roll says {inRows}
-- because: The installed roll is shown in the tag's colour, the same roll in a list in the other.
-- remedy: Correct colorId or the supply id (digits 13 to 15).
SELECT 'roll' AS "table", itemNum AS "key", tag.color AS inTag, roll.colorId AS inRows
FROM check_roll AS roll JOIN check_tag AS tag USING (supplyId) WHERE tag.color <> roll.colorId;

-- rule: tag-format
-- severity: error
-- title: The format in the tag differs from the rows
-- message: The tag says format {inTag}, the rows make it {inRows}
-- because: The format decides how the rest of the tag is read.
-- remedy: Correct formatId (without a row: 2 with a stripe, else 1) or the supply id (digits 11 to 13).
SELECT 'roll' AS "table", itemNum AS "key", tag.format AS inTag, roll.format AS inRows
FROM check_roll AS roll JOIN check_tag AS tag USING (supplyId) WHERE tag.format <> roll.format;

-- rule: tag-format-repeated
-- severity: error
-- title: A tag's second format field is wrong
-- message: The tag has revision {revision} and says format {repeated}, it should repeat {format}
-- because: For a tag of revision 1 the library answers the second field as the roll's format.
-- remedy: Repeat the format in a tag of revision 1, write 0 in one of revision 0 (digits 19 and 20 of the supply id).
SELECT 'roll' AS "table", itemNum AS "key", tag.revision, tag.formatRev1 AS repeated, tag.revision * tag.format AS format
FROM check_roll JOIN check_tag AS tag USING (supplyId)
WHERE tag.revision IN (0, 1) AND tag.formatRev1 <> tag.revision * tag.format;

-- rule: tag-label-length
-- severity: error
-- title: The label length in the tag differs from the rows
-- message: The tag says {inTag} inches, materialwidth says {inRows}
-- because: The length of the roll is computed from it.
-- remedy: Correct nonContinuousLength or the supply id (digits 4 to 7).
SELECT 'roll' AS "table", itemNum AS "key", tag.labelLength AS inTag, roll.labelLength AS inRows
FROM check_roll AS roll JOIN check_tag AS tag USING (supplyId)
WHERE NOT tag.isContinuous AND roll.hasFormat AND tag.labelLength <> roll.labelLength;

-- rule: tag-separator
-- severity: error
-- title: The separator in the tag differs from the rows
-- message: The tag says {inTag} inches, noncontinuous says {inRows}
-- because: The separator decides the roll's type.
-- remedy: Correct separatorWidth, 1 to 4 sixteenths, or the supply id (digit 4).
SELECT 'roll' AS "table", itemNum AS "key", tag.separatorWidth AS inTag, roll.separatorWidth AS inRows
FROM check_roll AS roll JOIN check_tag AS tag USING (supplyId)
WHERE NOT tag.isContinuous AND roll.hasFormat AND tag.separatorWidth <> roll.separatorWidth;

-- rule: tag-stripe
-- severity: error
-- title: The stripe in the tag differs from the rows
-- message: The tag says {inTag}, the rows say {inRows}
-- because: The installed roll is shown with the tag's stripe, the same roll in a list with the other.
-- remedy: Correct the row of continuousstripe or the supply id (digits 3 to 7).
SELECT 'roll' AS "table", itemNum AS "key",
       CASE WHEN tag.stripeWidth = 0.0 AND tag.stripeColor = 0 THEN 'no stripe'
            ELSE printf('%s inches of colour %s', tag.stripeWidth, tag.stripeColor) END AS inTag,
       CASE WHEN NOT roll.hasStripe THEN 'no stripe'
            ELSE printf('%s inches of %s', coalesce(roll.stripeWidth, 0.0),
                        coalesce('colour ' || roll.stripeColor, 'no colour')) END AS inRows
FROM check_roll AS roll JOIN check_tag AS tag USING (supplyId)
WHERE tag.isContinuous AND NOT roll.hasFormat
AND (tag.stripeWidth <> coalesce(roll.stripeWidth, 0.0) OR tag.stripeColor <> coalesce(roll.stripeColor, 0));

-- Ribbons

-- rule: ribbon-panels
-- severity: error
-- title: A ribbon's panels are not numbered from 1 to their count
-- message: ribbon.panels is {panels}, the panels with a row in ribbon_panel: {found}
-- because: Colours and print parameters are asked for by panel number, from 1 on. The first panel decides all checks.
-- remedy: Give each panel a row, numbered from 1 without gaps, and write their count in ribbon.panels.
SELECT 'ribbon' AS "table", ribbon.sku AS "key", ribbon.panels, coalesce(panel.numbers, 'none') AS found
FROM ribbon
LEFT JOIN (SELECT ribbonId, count(DISTINCT panel) AS count, min(panel) AS first, max(panel) AS last,
                  group_concat(panel, ', ') AS numbers
           FROM ribbon_panel GROUP BY ribbonId) AS panel ON panel.ribbonId = ribbon.id
WHERE ribbon.sku NOT IN (SELECT sku FROM check_special) AND ribbon.panels IS NOT NULL
AND NOT (ribbon.panels >= 1 AND coalesce(panel.count = ribbon.panels AND panel.first = 1 AND panel.last = ribbon.panels, 0));

-- rule: ribbon-special-rows
-- severity: warning
-- title: A special ribbon has panels or heats
-- message: Ribbon {sku} has {what}
-- because: The library answers -1 for this ribbon's colours and print parameters without looking.
-- remedy: Set ribbon.panels to 0 and remove the rows.
WITH special AS (SELECT id, sku, panels FROM ribbon WHERE sku IN (SELECT sku FROM check_special))
SELECT 'ribbon' AS "table", sku AS "key", sku, panels || ' panel(s)' AS what FROM special WHERE panels <> 0
UNION ALL
SELECT 'ribbon_panel', printf('%s/%s', ribbonId, panel), sku, 'a row for panel ' || panel
FROM ribbon_panel JOIN special ON special.id = ribbonId
UNION ALL
SELECT 'ribbon_heat', printf('%s/%s/%s', ribbonId, panel, materialId), sku, 'a heat for panel ' || panel
FROM ribbon_heat JOIN special ON special.id = ribbonId;

-- rule: ribbon-heat-zero
-- severity: error
-- title: A heat is not above 0
-- message: The heat is {heat}
-- because: Heat 0 is a ribbon that does not print on the material, as if there were no row.
-- remedy: Write the heat, or remove the rows of this ribbon and material.
SELECT 'ribbon_heat' AS "table", printf('%s/%s/%s', ribbonId, panel, materialId) AS "key", coalesce(heat, 'NULL') AS heat
FROM ribbon_heat WHERE heat IS NULL OR (heat <= 0 AND typeof(heat) <> 'text');

-- rule: ribbon-heat-some-panels
-- severity: error
-- title: A ribbon has heats for some of its panels only
-- message: Ribbon {sku} has no heat for panel {panel} on material {materialId}
-- because: The material passes the ribbon check by the first panel, and the other one prints without parameters.
-- remedy: Add the row, or remove those of the ribbon's other panels for this material.
WITH gap AS (
    SELECT pair.ribbonId, ribbon_panel.panel, pair.materialId
    FROM (SELECT DISTINCT ribbonId, materialId FROM ribbon_heat) AS pair
    JOIN ribbon_panel ON ribbon_panel.ribbonId = pair.ribbonId
    EXCEPT SELECT ribbonId, panel, materialId FROM ribbon_heat
)
SELECT 'ribbon_heat' AS "table", printf('%s/%s/%s', gap.ribbonId, gap.panel, gap.materialId) AS "key", ribbon.sku,
       gap.panel, gap.materialId
FROM gap JOIN ribbon ON ribbon.id = gap.ribbonId WHERE ribbon.sku NOT IN (SELECT sku FROM check_special);

-- rule: ribbon-prints-nothing
-- severity: warning
-- title: A ribbon prints on no material of any roll
-- message: {reason}
-- because: Every roll of the catalogue is refused with this ribbon.
-- remedy: Add its rows to ribbon_heat, one per panel and material.
SELECT 'ribbon' AS "table", ribbon.sku AS "key",
       coalesce('It prints on material ' || group_concat(DISTINCT ribbon_heat.materialId) || ', which no roll has',
                'It has no row in ribbon_heat') AS reason
FROM ribbon LEFT JOIN ribbon_heat ON ribbon_heat.ribbonId = ribbon.id
WHERE ribbon.sku NOT IN (SELECT sku FROM check_special)
GROUP BY ribbon.sku
HAVING NOT max(coalesce(ribbon_heat.materialId IN (SELECT materialId FROM check_roll WHERE materialId IS NOT NULL), 0));

-- rule: ribbon-heat-missing
-- severity: hint
-- title: A ribbon does not print on every material in use
-- message: It has no heat for material {materials}
-- because: Without a row the ribbon is refused on rolls of that material, which is how it is told not to print on it.
-- remedy: Nothing, if the ribbon is not meant for the material. Otherwise add the rows.
SELECT 'ribbon' AS "table", gap.sku AS "key", group_concat(gap.materialId, ', ') AS materials
FROM (SELECT ribbon.sku, material.materialId
      FROM ribbon CROSS JOIN (SELECT DISTINCT materialId FROM check_roll WHERE materialId IS NOT NULL) AS material
      WHERE ribbon.sku NOT IN (SELECT sku FROM check_special)
      EXCEPT
      SELECT ribbon.sku, ribbon_heat.materialId FROM ribbon JOIN ribbon_heat ON ribbon_heat.ribbonId = ribbon.id) AS gap
GROUP BY gap.sku;

-- rule: roll-unprintable
-- severity: warning
-- title: No ribbon prints on a roll
-- message: {reason}
-- because: The roll is refused with every ribbon of the catalogue.
-- remedy: Add a ribbon, or the heats of one, for the roll's material. Over 4 inches the ribbon is 4.5 inches or wider.
SELECT 'roll' AS "table", itemNum AS "key", materialId, width,
       CASE WHEN materialId IN (SELECT materialId FROM check_prints)
            THEN printf('It is %s inches wide, and every ribbon for material %d is narrower than 4.5', width, materialId)
            ELSE printf('No ribbon has a heat for material %d on its first panel', materialId) END AS reason
FROM check_roll
WHERE isOffered AND materialId IS NOT NULL
AND materialId NOT IN (SELECT materialId FROM check_prints WHERE isWide)
AND (width > 4.0 OR materialId NOT IN (SELECT materialId FROM check_prints));
