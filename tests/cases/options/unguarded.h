int in_header; /* a /* comment */
