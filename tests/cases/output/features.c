// options: -P --c11 --gcc
__LINE__ __FILE__ __BASE_FILE__ __COUNTER__ __COUNTER__ __INCLUDE_LEVEL__
__STDC__ __STDC_VERSION__ __STDC_HOSTED__
#line 7 "a\\b \"c\".c"
__LINE__ __FILE__ __BASE_FILE__
#define here __LINE__
here here \
here __LINE__
#define id(x) x
id(
__LINE__
here)
defined __has_feature(c_static_assert) __has_feature(no_such) __has_feature(__c_alignas__)
__has_extension(c_generic_selections) __has_attribute(packed) __has_attribute(no_such) __has_builtin(__builtin_expect)
#if __has_include("lines.h") && !__has_include("no_such.h") && !__has_include(<lines.h>)
found
#endif
#if defined here && !defined(nowhere) && defined __LINE__ && defined(__has_include)
all
#endif
#undef __FILE__
__VA_OPT__
