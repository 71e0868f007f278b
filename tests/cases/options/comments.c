int a; // in a line
int b; /* alone */
