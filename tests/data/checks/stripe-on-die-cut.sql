-- fires: stripe-on-die-cut
INSERT INTO continuousstripe VALUES ('00144617', 0.5, 2);
