-- fires: page-moves
PRAGMA auto_vacuum = FULL;
VACUUM;
