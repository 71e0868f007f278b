int nested[] = {
