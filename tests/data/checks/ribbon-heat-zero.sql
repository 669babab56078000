-- fires: ribbon-heat-zero
UPDATE ribbon_heat SET heat = 0 WHERE ribbonId = 1 AND materialId = 1;
UPDATE ribbon_heat SET heat = NULL WHERE ribbonId = 1 AND materialId = 2;
