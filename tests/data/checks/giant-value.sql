-- fires: giant-value
UPDATE format SET type = printf('%300s', 'x') WHERE id = 5;
UPDATE background SET svg = CAST(replace(CAST(svg AS TEXT), '</svg>', '<!--' || printf('%300000s', '') || '--></svg>') AS BLOB)
WHERE id = 1;
