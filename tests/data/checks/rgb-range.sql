-- fires: rgb-range
UPDATE color SET rgbValue = -1 WHERE id = 2;
UPDATE ribbon_color SET rgbValue = 16777216 WHERE id = 1;
