/* Integer types of exact, least and fastest widths. */
#ifndef __QX_STDINT_H
#define __QX_STDINT_H

/* A C library's headers may have chosen between int and long already, by macros. */
#ifdef __INT32_TYPE__
#define __qx_int32 __INT32_TYPE__
#define __qx_uint32 __UINT32_TYPE__
#else
#define __qx_int32 int
#define __qx_uint32 unsigned int
#endif

/* The names by which such headers know that a type is there. */
#ifndef _INT8_T_DECLARED
#define _INT8_T_DECLARED
typedef signed char int8_t;
#endif
#ifndef _UINT8_T_DECLARED
#define _UINT8_T_DECLARED
typedef unsigned char uint8_t;
#endif
#ifndef _INT16_T_DECLARED
#define _INT16_T_DECLARED
typedef short int16_t;
#endif
#ifndef _UINT16_T_DECLARED
#define _UINT16_T_DECLARED
typedef unsigned short uint16_t;
#endif
#ifndef _INT32_T_DECLARED
#define _INT32_T_DECLARED
typedef __qx_int32 int32_t;
#endif
#ifndef _UINT32_T_DECLARED
#define _UINT32_T_DECLARED
typedef __qx_uint32 uint32_t;
#endif
#ifndef _INT64_T_DECLARED
#define _INT64_T_DECLARED
typedef long long int64_t;
#endif
#ifndef _UINT64_T_DECLARED
#define _UINT64_T_DECLARED
typedef unsigned long long uint64_t;
#endif

typedef int8_t int_least8_t;
typedef uint8_t uint_least8_t;
typedef int16_t int_least16_t;
typedef uint16_t uint_least16_t;
typedef int32_t int_least32_t;
typedef uint32_t uint_least32_t;
typedef int64_t int_least64_t;
typedef uint64_t uint_least64_t;

typedef int int_fast8_t;
typedef unsigned int uint_fast8_t;
typedef int int_fast16_t;
typedef unsigned int uint_fast16_t;
typedef int int_fast32_t;
typedef unsigned int uint_fast32_t;
typedef int64_t int_fast64_t;
typedef uint64_t uint_fast64_t;

#ifndef _INTPTR_T_DECLARED
#define _INTPTR_T_DECLARED
typedef int intptr_t;
#endif
#ifndef _UINTPTR_T_DECLARED
#define _UINTPTR_T_DECLARED
typedef unsigned int uintptr_t;
#endif
#ifndef _INTMAX_T_DECLARED
#define _INTMAX_T_DECLARED
typedef long long intmax_t;
#endif
#ifndef _UINTMAX_T_DECLARED
#define _UINTMAX_T_DECLARED
typedef unsigned long long uintmax_t;
#endif

#define INT8_MIN (-128)
#define INT8_MAX 127
#define UINT8_MAX 255
#define INT16_MIN (-32767 - 1)
#define INT16_MAX 32767
#define UINT16_MAX 65535
#define INT32_MIN (-2147483647 - 1)
#define INT32_MAX 2147483647
#define UINT32_MAX 4294967295U
#define INT64_MIN (-9223372036854775807LL - 1)
#define INT64_MAX 9223372036854775807LL
#define UINT64_MAX 18446744073709551615ULL

#define INT_LEAST8_MIN INT8_MIN
#define INT_LEAST8_MAX INT8_MAX
#define UINT_LEAST8_MAX UINT8_MAX
#define INT_LEAST16_MIN INT16_MIN
#define INT_LEAST16_MAX INT16_MAX
#define UINT_LEAST16_MAX UINT16_MAX
#define INT_LEAST32_MIN INT32_MIN
#define INT_LEAST32_MAX INT32_MAX
#define UINT_LEAST32_MAX UINT32_MAX
#define INT_LEAST64_MIN INT64_MIN
#define INT_LEAST64_MAX INT64_MAX
#define UINT_LEAST64_MAX UINT64_MAX

#define INT_FAST8_MIN INT32_MIN
#define INT_FAST8_MAX INT32_MAX
#define UINT_FAST8_MAX UINT32_MAX
#define INT_FAST16_MIN INT32_MIN
#define INT_FAST16_MAX INT32_MAX
#define UINT_FAST16_MAX UINT32_MAX
#define INT_FAST32_MIN INT32_MIN
#define INT_FAST32_MAX INT32_MAX
#define UINT_FAST32_MAX UINT32_MAX
#define INT_FAST64_MIN INT64_MIN
#define INT_FAST64_MAX INT64_MAX
#define UINT_FAST64_MAX UINT64_MAX

#define INTPTR_MIN INT32_MIN
#define INTPTR_MAX INT32_MAX
#define UINTPTR_MAX UINT32_MAX
#define INTMAX_MIN INT64_MIN
#define INTMAX_MAX INT64_MAX
#define UINTMAX_MAX UINT64_MAX
#define PTRDIFF_MIN INT32_MIN
#define PTRDIFF_MAX INT32_MAX
#define SIZE_MAX UINT32_MAX
#define SIG_ATOMIC_MIN INT32_MIN
#define SIG_ATOMIC_MAX INT32_MAX
#define WINT_MIN 0U
#define WINT_MAX UINT32_MAX
#define WCHAR_MIN 0
#if __QX_WCHAR_T_BITS__ == 32
#define WCHAR_MAX UINT32_MAX
#else
#define WCHAR_MAX UINT16_MAX
#endif

#define INT8_C(value) value
#define UINT8_C(value) value
#define INT16_C(value) value
#define UINT16_C(value) value
#define INT32_C(value) value
#define UINT32_C(value) value##U
#define INT64_C(value) value##LL
#define UINT64_C(value) value##ULL
#define INTMAX_C(value) value##LL
#define UINTMAX_C(value) value##ULL

#endif
