-- fires: unused-row
INSERT INTO materialwidth VALUES (99, 1, 3.0, 100, 0.0, 'QKA');
