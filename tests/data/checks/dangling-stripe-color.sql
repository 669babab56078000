-- fires: dangling-stripe-color tag-stripe
UPDATE continuousstripe SET secColorId = 20 WHERE itemNum = '00144314';
