char *s = "not closed
;
