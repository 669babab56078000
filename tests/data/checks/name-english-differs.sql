-- fires: name-english-differs
UPDATE ribbon_colorTS SET name = 'Crimson' WHERE ribbon_colorId = 3 AND languageId = 0;
