#define NAME2 NAME
