#define SIZE 4
