-- fires: name-empty
UPDATE colorTS SET name = ' ' WHERE colorId = 2 AND languageId = 1;
