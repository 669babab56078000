-- fires: computed-column
ALTER TABLE format RENAME COLUMN type TO stored;
ALTER TABLE format ADD COLUMN type TEXT AS (lower(stored));
