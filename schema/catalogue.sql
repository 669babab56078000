-- The supply catalogue: one SQLite file with every media roll and every ribbon that the printer takes.
-- The library opens it read-only and never changes it. README.md tells how the tables join and how a file is built.
--
-- Every table is STRICT, so a value of the wrong type is refused when the file is built and not answered later.
-- An id is INTEGER and a SKU is TEXT on both sides of every join, so that a comparison with a quoted number or with
-- a SKU that starts with zeros finds its row through the index. Tables that are read by their whole key are
-- WITHOUT ROWID: the key is the table, one descent finds the row.
--
-- Keys are NOT NULL. Every other column may be NULL. A NULL that is read becomes 0, 0.0 or an empty text (the colour
-- of a roll or stripe: -1), a NULL in a joining column finds no row.
-- Comments here hold no semicolon, so that a reader may split the file into statements at semicolons.

PRAGMA page_size = 4096;
PRAGMA encoding = 'UTF-8';
PRAGMA application_id = 1515344708;  -- 0x5A525344, the letters ZRSD
PRAGMA user_version = 1;             -- schema version, copied into meta by build-catalogue

-- Facts about the file itself. The library does not read them.
CREATE TABLE meta (
    key   TEXT NOT NULL PRIMARY KEY,  -- schema_version, dataset_version, dataset_name, language.0 and so on
    value TEXT                        -- always text
) STRICT, WITHOUT ROWID;

-- Media rolls

CREATE TABLE roll (
    itemNum         TEXT NOT NULL PRIMARY KEY,  -- roll SKU, as printed on the box, leading zeros included
    supplyId        TEXT,     -- first 20 hexadecimal digits of the tag, upper case, several SKUs may share one
    materialWidthId INTEGER,  -- materialwidth.id
    colorId         INTEGER,  -- color.id and colorTS.colorId
    landscape       INTEGER,  -- 1 when labels print in landscape, 0 when not
    nUpCount        INTEGER,  -- labels side by side across the roll, 1 or more
    supplysensorId  INTEGER,  -- supplysensor.id, NULL when the roll needs no media sensor
    backgroundId    INTEGER   -- background.id, NULL when the roll has no picture
) STRICT, WITHOUT ROWID;

-- A material in one width and length, for one machine family. Several rolls share a row.
CREATE TABLE materialwidth (
    id                  INTEGER NOT NULL PRIMARY KEY,
    materialId          INTEGER,  -- material code, materialTS.materialId and ribbon_heat.materialId
    width               REAL,     -- roll width, inches
    length              INTEGER,  -- continuous media and format 3: feet, other die-cut media: labels along the roll
    nonContinuousLength REAL,     -- label length of die-cut media, inches, 0.0 for continuous media
    machineId           TEXT      -- machine family, rolls of HM1, HM4, HM6, HMQ and WJA are not offered
) STRICT;

-- A row makes a continuous roll a striped one.
CREATE TABLE continuousstripe (
    itemNum       TEXT NOT NULL PRIMARY KEY,  -- roll.itemNum
    secColorWidth REAL,     -- width of the stripe, inches, more than 0.0
    secColorId    INTEGER   -- color.secId
) STRICT, WITHOUT ROWID;

-- A row for every die-cut roll, none for a continuous one.
CREATE TABLE noncontinuous (
    itemNum        TEXT NOT NULL PRIMARY KEY,  -- roll.itemNum
    formatId       INTEGER,  -- format.id and formatTS.formatId
    separatorWidth REAL      -- gap between two labels along the roll, inches, the tag holds 1 to 4 sixteenths
) STRICT, WITHOUT ROWID;

CREATE TABLE color (
    id       INTEGER NOT NULL PRIMARY KEY,  -- colour code of a roll, 0 to 511 in the tag
    secId    INTEGER,  -- code of the same colour as a stripe, 1 to 15 in the tag, NULL when never a stripe
    rgbValue INTEGER,  -- red * 65536 + green * 256 + blue
    name     TEXT      -- English name
) STRICT;

CREATE TABLE format (
    id   INTEGER NOT NULL PRIMARY KEY,  -- format code, 0 to 63 in the tag, 1 is continuous, 2 is striped
    type TEXT                           -- type name for programs, not translated
) STRICT;

CREATE TABLE supplysensor (
    id               INTEGER NOT NULL PRIMARY KEY,  -- sensor code, as announced to the host
    supplysensortype TEXT                           -- type name by which a host asks for the code
) STRICT;

CREATE TABLE background (
    id  INTEGER NOT NULL PRIMARY KEY,
    svg BLOB                           -- picture of the bare roll, an SVG document in UTF-8
) STRICT;

-- Ribbons

CREATE TABLE ribbon (
    id     INTEGER NOT NULL,           -- id in the ribbon tag, unique
    sku    TEXT NOT NULL PRIMARY KEY,  -- ribbon SKU
    panels INTEGER,                    -- number of colour panels, numbered from 1, 0 for R4417TX and HVWA-ZEROSPOL
    width  REAL,                       -- inches
    length REAL                        -- inches, a full ribbon is about 4725
) STRICT, WITHOUT ROWID;

CREATE TABLE ribbon_panel (
    ribbonId INTEGER NOT NULL,  -- ribbon.id
    panel    INTEGER NOT NULL,  -- 1 is the first panel
    typeId   INTEGER,           -- ribbon_typeTS.ribbon_typeId
    colorId  INTEGER,           -- ribbon_color.id and ribbon_colorTS.ribbon_colorId
    PRIMARY KEY (ribbonId, panel)
) STRICT, WITHOUT ROWID;

CREATE TABLE ribbon_color (
    id       INTEGER NOT NULL PRIMARY KEY,  -- ribbon colour code, a numbering of its own
    rgbValue INTEGER,                       -- red * 65536 + green * 256 + blue
    name     TEXT                           -- English name
) STRICT;

-- How one panel prints on one material. No row: the ribbon does not print on that material.
CREATE TABLE ribbon_heat (
    ribbonId   INTEGER NOT NULL,  -- ribbon.id
    panel      INTEGER NOT NULL,  -- ribbon_panel.panel
    materialId INTEGER NOT NULL,  -- materialwidth.materialId
    heat       INTEGER,           -- print head heat, in steps of the print engine, more than 0
    max_offset INTEGER,           -- largest heat offset that a user may add, same steps
    max_speed  INTEGER,           -- fastest print speed, millimetres a second
    tension    INTEGER,           -- ribbon tension, in steps of the print engine
    PRIMARY KEY (ribbonId, panel, materialId)
) STRICT, WITHOUT ROWID;

-- Names in the languages of the user. Language 0 is English.

CREATE TABLE colorTS (
    colorId    INTEGER NOT NULL,  -- color.id
    languageId INTEGER NOT NULL,
    name       TEXT,
    PRIMARY KEY (colorId, languageId)
) STRICT, WITHOUT ROWID;

CREATE TABLE materialTS (
    materialId INTEGER NOT NULL,  -- materialwidth.materialId
    languageId INTEGER NOT NULL,
    name       TEXT,
    PRIMARY KEY (materialId, languageId)
) STRICT, WITHOUT ROWID;

CREATE TABLE formatTS (
    formatId   INTEGER NOT NULL,  -- format.id
    languageId INTEGER NOT NULL,
    name       TEXT,
    PRIMARY KEY (formatId, languageId)
) STRICT, WITHOUT ROWID;

CREATE TABLE ribbon_typeTS (
    ribbon_typeId INTEGER NOT NULL,  -- ribbon_panel.typeId
    languageId    INTEGER NOT NULL,
    name          TEXT,
    PRIMARY KEY (ribbon_typeId, languageId)
) STRICT, WITHOUT ROWID;

CREATE TABLE ribbon_colorTS (
    ribbon_colorId INTEGER NOT NULL,  -- ribbon_color.id
    languageId     INTEGER NOT NULL,
    name           TEXT,
    PRIMARY KEY (ribbon_colorId, languageId)
) STRICT, WITHOUT ROWID;

-- Indexes
-- build-catalogue applies everything from the line above on after the rows are loaded.

-- Both questions about a supply id are answered without touching roll: it orders the SKUs of one id by length,
-- the shorter first and the smaller on a tie, and carries the machine family join.
CREATE INDEX roll_supplyId ON roll (supplyId, length(itemNum), itemNum, materialWidthId);
-- The list of offered SKUs goes from the rows of the offered families to their rolls.
CREATE INDEX roll_materialWidthId ON roll (materialWidthId);
-- Stripe colours are found by their own numbering.
CREATE INDEX color_secId ON color (secId);
-- Ribbon tags carry the id. One id must not name two ribbons.
CREATE UNIQUE INDEX ribbon_id ON ribbon (id);
CREATE UNIQUE INDEX supplysensor_type ON supplysensor (supplysensortype);
