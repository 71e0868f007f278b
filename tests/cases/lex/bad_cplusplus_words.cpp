// options: --c++17 --clang --no_namespaces --no_typename --remarks
struct __is_pod *trait;
// expect: warning #2909 keyword "__is_pod" will be treated as a context-sensitive keyword from this point
struct __is_pod;
int namespace, namespace1;
// expect: remark #562 "namespace" is reserved for future use as a keyword
int f(int using, int typename);
// expect: remark #562 "using" is reserved for future use as a keyword
// expect: remark #562 "typename" is reserved for future use as a keyword
int h = u8'ab' + u8'\u00e9';
// expect: error #3048 a UTF-8 character literal value cannot occupy more than one code unit
// expect: error #3048 a UTF-8 character literal value cannot occupy more than one code unit
int k = 1 %::f;
// expect: warning #726 use of alternative token "%:" appears to be unintended
// expect: error #10 "#" not expected here
const char *raw = R"-(never closed)"
// expect: error #2812 ending delimiter for raw string not found
