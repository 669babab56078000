-- fires: language-unlisted
INSERT INTO colorTS VALUES (1, 9, 'Blanko');
