-- fires: missing-table statement-fails
DROP TABLE supplysensor;
