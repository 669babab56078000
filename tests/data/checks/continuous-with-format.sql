-- fires: continuous-with-format tag-format
INSERT INTO noncontinuous VALUES ('00143228', 5, 0.125);
