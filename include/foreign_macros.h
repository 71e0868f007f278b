/* Macros that other compilers for this target predefine and foreign C libraries expect. Give it with
   --preinclude; it says nothing that would claim to be one of those compilers. */
#ifndef __QX_FOREIGN_MACROS_H
#define __QX_FOREIGN_MACROS_H

#define __arm__ 1
#ifdef __QX_EABI__
#define __ARM_EABI__ 1
#define __VFP_FP__ 1 /* the words of a double are in the order of the bytes */
#endif
#ifdef __little_endian__
#define __ARMEL__ 1
#else
#define __ARMEB__ 1
#endif

#define __ORDER_LITTLE_ENDIAN__ 1234
#define __ORDER_BIG_ENDIAN__ 4321
#define __ORDER_PDP_ENDIAN__ 3412
#ifdef __little_endian__
#define __BYTE_ORDER__ __ORDER_LITTLE_ENDIAN__
#else
#define __BYTE_ORDER__ __ORDER_BIG_ENDIAN__
#endif
#define __FLOAT_WORD_ORDER__ __BYTE_ORDER__

#define __ATOMIC_RELAXED 0
#define __ATOMIC_CONSUME 1
#define __ATOMIC_ACQUIRE 2
#define __ATOMIC_RELEASE 3
#define __ATOMIC_ACQ_REL 4
#define __ATOMIC_SEQ_CST 5

#define __USER_LABEL_PREFIX__
#define __REGISTER_PREFIX__
#define __CHAR_UNSIGNED__ 1
#define __SIZEOF_POINTER__ 4
#define __BIGGEST_ALIGNMENT__ 8
#define __FLT_EVAL_METHOD__ 0

#define __SIZE_TYPE__ unsigned int
#define __PTRDIFF_TYPE__ int
#define __WCHAR_TYPE__ __WCHAR_T_TYPE__
#define __WINT_TYPE__ unsigned int
#ifndef __CHAR16_TYPE__ /* the GNU modes have them */
#define __CHAR16_TYPE__ unsigned short
#define __CHAR32_TYPE__ unsigned int
#endif

#define __INT8_TYPE__ signed char
#define __UINT8_TYPE__ unsigned char
#define __INT_LEAST8_TYPE__ signed char
#define __UINT_LEAST8_TYPE__ unsigned char
#define __INT_FAST8_TYPE__ int
#define __UINT_FAST8_TYPE__ unsigned int
#define __INT16_TYPE__ short
#define __UINT16_TYPE__ unsigned short
#define __INT_LEAST16_TYPE__ short
#define __UINT_LEAST16_TYPE__ unsigned short
#define __INT_FAST16_TYPE__ int
#define __UINT_FAST16_TYPE__ unsigned int
#define __INT32_TYPE__ long
#define __UINT32_TYPE__ unsigned long
#define __INT_LEAST32_TYPE__ long
#define __UINT_LEAST32_TYPE__ unsigned long
#define __INT_FAST32_TYPE__ int
#define __UINT_FAST32_TYPE__ unsigned int
#define __INT64_TYPE__ long long
#define __UINT64_TYPE__ unsigned long long
#define __INT_LEAST64_TYPE__ long long
#define __UINT_LEAST64_TYPE__ unsigned long long
#define __INT_FAST64_TYPE__ long long
#define __UINT_FAST64_TYPE__ unsigned long long
#define __INTMAX_TYPE__ long long
#define __UINTMAX_TYPE__ unsigned long long
#define __INTPTR_TYPE__ int
#define __UINTPTR_TYPE__ unsigned int

#define __SIZE_MAX__ 0xffffffffU
#define __PTRDIFF_MAX__ 0x7fffffff
#define __INTMAX_MAX__ 0x7fffffffffffffffLL
#define __INT8_MAX__ 0x7f
#define __UINT8_MAX__ 0xff
#define __INT16_MAX__ 0x7fff
#define __UINT16_MAX__ 0xffff
#define __INT32_MAX__ 0x7fffffffL
#define __UINT32_MAX__ 0xffffffffUL
#define __INT64_MAX__ 0x7fffffffffffffffLL
#define __UINT64_MAX__ 0xffffffffffffffffULL
#define __INTPTR_MAX__ 0x7fffffff
#define __UINTPTR_MAX__ 0xffffffffU
#define __WINT_MAX__ 0xffffffffU
#define __WINT_MIN__ 0U
#if __QX_WCHAR_T_BITS__ == 32
#define __WCHAR_MAX__ 0xffffffffU
#else
#define __WCHAR_MAX__ 0xffff
#endif
#define __WCHAR_MIN__ 0
#define __INT64_C(value) value##LL
#define __UINT64_C(value) value##ULL
#define __INTMAX_C(value) value##LL
#define __UINTMAX_C(value) value##ULL

#define __FLT_MANT_DIG__ 24
#define __FLT_MIN_EXP__ (-125)
#define __FLT_MAX_EXP__ 128
#define __FLT_DIG__ 6
#define __FLT_MAX__ 3.40282346638528859811704183484516925e+38F
#define __FLT_MIN__ 1.17549435082228750796873653722224568e-38F
#define __FLT_EPSILON__ 1.1920928955078125e-7F
#define __FLT_DENORM_MIN__ 1.40129846432481707092372958328991613e-45F
#define __DBL_MANT_DIG__ 53
#define __DBL_MIN_EXP__ (-1021)
#define __DBL_MAX_EXP__ 1024
#define __DBL_DIG__ 15
#define __DBL_MAX__ 1.79769313486231570814527423731704357e+308
#define __DBL_MIN__ 2.22507385850720138309023271733240406e-308
#define __DBL_EPSILON__ 2.22044604925031308084726333618164062e-16
#define __DBL_DENORM_MIN__ 4.94065645841246544176568792868221372e-324
#define __LDBL_MANT_DIG__ 53
#define __LDBL_MIN_EXP__ (-1021)
#define __LDBL_MAX_EXP__ 1024
#define __LDBL_DIG__ 15
#define __LDBL_MAX__ 1.79769313486231570814527423731704357e+308L
#define __LDBL_MIN__ 2.22507385850720138309023271733240406e-308L
#define __LDBL_EPSILON__ 2.22044604925031308084726333618164062e-16L
#define __LDBL_DENORM_MIN__ 4.94065645841246544176568792868221372e-324L

#endif
