-- fires: stripe-incomplete tag-stripe
UPDATE continuousstripe SET secColorId = NULL WHERE itemNum = '00144314';
