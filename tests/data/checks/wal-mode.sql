-- fires: wal-mode
PRAGMA journal_mode = WAL;
