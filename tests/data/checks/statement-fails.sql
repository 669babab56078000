-- fires: statement-fails
-- Where a statement names the column without its table, it could now be either.
ALTER TABLE materialwidth ADD COLUMN itemNum TEXT;
