int caller(void) { return missing(); }
