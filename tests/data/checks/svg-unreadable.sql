-- fires: svg-unreadable
UPDATE background SET svg = CAST(replace(CAST(svg AS TEXT), '</svg>', '') AS BLOB) WHERE id = 1;
