-- fires: statement-scans
DROP INDEX ribbon_id;
