=== computed --c11 --gcc -I.
#define Q "a.h"
#define DIR <dir/a.h>
#define s(x) #x
#define xs(x) s(x)
#define name(n) n.h
#define angle(d,n) <d/n.h>
#define E
#define QUOTED(x) xs(x)
#include Q
#include DIR
#include xs(name(a))
#include angle(dir,a)
#include QUOTED(dir/a.h)
#include <dir/a.h> E
--- a.h
plain a
--- dir/a.h
dir a
--- gives
plain a
dir a
plain a
dir a
dir a
dir a
=== guards
#include "ifndef.h"
#include "ifndef.h"
#include "ifnotdef.h"
#include "ifnotdef.h"
#include "once.h"
#include "./once.h"
#include "not.h"
#include "not.h"
#include "else.h"
#include "else.h"
#include "after.h"
#include "after.h"
#undef IFNDEF_H
#include "ifndef.h"
#include "commented.h"
#include "commented.h"
--- ifndef.h
#ifndef IFNDEF_H
#define IFNDEF_H
one ifndef
#endif
--- ifnotdef.h
#if !defined(IFNOTDEF_H)
#define IFNOTDEF_H
one ifnotdef
#endif /* end */

--- once.h
#pragma once
one once
--- not.h
#ifndef NOT_H
#define NOT_H
first not
#endif
each not
--- else.h
#ifndef ELSE_H
#define ELSE_H
first else
#else
second else
#endif
--- after.h
int before;
#ifndef AFTER_H
#define AFTER_H
one after
#endif
--- commented.h
// text
/* more
   text */
#ifndef COMMENTED_H
#define COMMENTED_H
one commented
#endif
// end
--- gives
one ifndef
one ifnotdef
one once
first not
each not
each not
first else
second else
int before;
one after
int before;
one ifndef
one commented
=== next --c11 --gcc -Ione -Itwo
#include <x.h>
#include "x.h"
#if __has_include_next("x.h")
wrong
#endif
--- one/x.h
one
#if __has_include_next(<x.h>)
has
#endif
#include_next <x.h>
__INCLUDE_LEVEL__
--- two/x.h
two
#if __has_include_next(<x.h>)
wrong
#else
ends
#endif
--- gives alone
one
has
two
ends
1
one
has
two
ends
1
wrong
=== has-include
#if __has_include("here.h") && !__has_include("absent.h")
a
#endif
#if __has_include(<stdio_absent.h>)
b
#endif
#define H "here.h"
#define A <here.h>
#if __has_include(H)
c
#endif
#if defined __has_include && defined(__has_include_next)
d
#endif
#ifdef __has_include
e
#endif
#if 0
f
#elif __has_include("here.h")
g
#endif
--- here.h
here
--- gives
a
c
d
e
g
=== conditionals-across-macros
#define T 1
#define F 0
#define AND(a,b) ((a)&&(b))
#define HAS_T defined(T)
#define HAS_U defined U
#if AND(T,!F) && HAS_T && !HAS_U
a
#elif UNKNOWN
b
#endif
#if T
c
# if F
d
# elif T
e
# else
f
# endif
#else
g
# if T
h
# endif
#endif
#if 'a' == 97 && '\377' != 0 && -1 < 0u + 0 || 1
i
#endif
#if (2 || 1/0) && !(0 && 1/0) && (1 ? 1 : 1/0)
j
#endif
#if -1 > 0u && 0x7fffffffffffffff > 0 && 18446744073709551615u == -1
k
#endif
#if UNDEFINED_NAME == 0 && true == 0 && int == 0
l
#endif
#if (1, 2) == 2
m
#endif
#if 1 ? 0 : 1
#else
n
#endif
#ifndef T
#elif F
#else
o
#endif
--- gives
a
c
e
i
j
k
l
m
n
o
=== level-and-names
#include "deep/one.h"
__INCLUDE_LEVEL__ __BASE_FILE__ __FILE__
--- deep/one.h
__INCLUDE_LEVEL__ __BASE_FILE__ __FILE__
#include "two.h"
--- deep/two.h
__INCLUDE_LEVEL__ __BASE_FILE__ __FILE__ __LINE__
--- gives
1 "program.c" "deep/one.h"
2 "program.c" "deep/two.h" 1
0 "program.c" "program.c"
=== file-in-macros
#define where __FILE__ __LINE__
#define call(x) x where
where
#include "f.h"
call(1)
#line 9 "other.c"
where
# 5 "third.c" 1
where
# 11 "other.c" 2
where call(call(2))
--- f.h
where call(where)
--- gives
"program.c" 3
"f.h" 1 "f.h" 1 "f.h" 1
1 "program.c" 5
"other.c" 9
"third.c" 5
"other.c" 11 2 "other.c" 11 "other.c" 11
=== types-in-conditions
#if -L'a' > 0 && -u'a' > 0 && -U'a' > 0
wide characters are unsigned
#endif
#if -1 > 0b1u && -1 > 0B1UL && -1 < 0b1 && -1 < 0x7
suffixes count
#endif
#if 'ab' != 0 && '\n' == 10 && '\x41' == 65 && '\101' == 65
plain ones are int
#endif
#if (1 ? -1 : 0u) > 0 && (0u || -1) - 2 < 0 && (2u > 1) - 2 < 0
only the value of a comparison is int
#endif
#if 0x8000000000000000 > 0 && 9223372036854775807 + 0 > 0 && -9223372036854775807 - 1 < 0
intmax_t
#endif
--- gives
wide characters are unsigned
suffixes count
plain ones are int
only the value of a comparison is int
intmax_t
