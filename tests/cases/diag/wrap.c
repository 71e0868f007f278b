#pragma diag_warning unused_param_at_all
#warning seventy-nine columns are filled by this text to the last of them 67890
#warning but eighty columns, of which this is made, want a second line below it 12
#warning a blank in column 80 ends the line, and what stands behind it goes on 80 below, in lines that are indented by ten columns and broken in the same way
#warning wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwww end
#warning Ünïcödé Ünïcödé Ünïcödé Ünïcödé Ünïcödé Ünïcödé Ünïcödé Ünïcödé Ünïcödé Ünïcödé Ünïcödé Ünïcödé
#warning 漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字漢字
int f(int first, char *second, double third, struct tag *fourth, int (*fifth)(int, char *));
char *f(int first, char *second);
