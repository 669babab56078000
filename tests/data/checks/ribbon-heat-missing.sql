-- fires: ribbon-heat-missing
DELETE FROM ribbon_heat WHERE ribbonId = 1 AND materialId = 1;
