int found_in_headers;
