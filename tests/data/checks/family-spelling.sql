-- fires: family-spelling
UPDATE materialwidth SET machineId = 'hm 1' WHERE id = 50;
