-- fires: name-untranslated
DELETE FROM formatTS WHERE formatId = 5 AND languageId = 4;
