-- fires: missing-column statement-fails
ALTER TABLE ribbon_heat DROP COLUMN tension;
