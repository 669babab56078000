-- fires: name-without-english
DELETE FROM materialTS WHERE materialId = 2 AND languageId = 0;
