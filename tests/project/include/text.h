#pragma once
int text_length(const char *text);
