-- fires: ribbon-heat-some-panels
DELETE FROM ribbon_heat WHERE ribbonId = 22 AND panel = 2 AND materialId = 1;
