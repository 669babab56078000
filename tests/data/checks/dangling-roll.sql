-- fires: dangling-roll
INSERT INTO noncontinuous VALUES ('99999999', 5, 0.125);
INSERT INTO continuousstripe VALUES ('99999999', 0.5, 2);
