// options: --c99 --unsigned_bit_fields --remarks
// A bit-field is signed only where "signed" stands, also behind a typedef's name.
typedef int number;
typedef signed int with_sign;
struct s {
  int plain : 1;
  const number named : 1;
  long long wide : 1;
  signed written : 1;
  // expect: remark #109 signed bit field of length 1
  with_sign behind : 1;
  // expect: remark #109 signed bit field of length 1
};
