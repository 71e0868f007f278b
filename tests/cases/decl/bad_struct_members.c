// options: --c99
struct bits {
  int a : 33;
  //      ^
  // expect: error #106 invalid size for bit field
  int b : 0;
  //      ^
  // expect: error #108 a zero-length bit field must be unnamed
  int : 0;
  float c : 3;
  //    ^
  // expect: error #107 invalid type for a bit field
  unsigned d : 32, e : 1;
};
struct members {
  int a;
  char a;
  //   ^
  // expect: error #102 "a" has already been declared
  int f(void);
  //  ^
  // expect: error #170 function type is not allowed here
  struct members self;
  //             ^
  // expect: error #71 incomplete type is not allowed
  struct members *next;
  int open[];
  //  ^
  // expect: error #71 incomplete type is not allowed
  int last;
  static int s;
  // expect: error #81 a storage class may not be specified here
};
struct anonymous {
  int a;
  struct {
    int b;
    union {
      int c;
      int a;
      //  ^
      // expect: error #102 "a" has already been declared
    };
  };
};
struct flexible {
  int n;
  int data[];
};
