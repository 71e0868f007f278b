/* Common definitions. A library header may ask for one type alone by __need_NAME. */
#if !defined(__QX_STDDEF_H) || defined(__need_size_t) || defined(__need_ptrdiff_t) || \
    defined(__need_wchar_t) || defined(__need_wint_t) || defined(__need_NULL)

#if !defined(__need_size_t) && !defined(__need_ptrdiff_t) && !defined(__need_wchar_t) && \
    !defined(__need_wint_t) && !defined(__need_NULL)
#define __QX_STDDEF_H
#define __need_size_t
#define __need_ptrdiff_t
#define __need_wchar_t
#define __need_NULL
#define __QX_WHOLE_STDDEF
#endif

#ifdef __need_size_t
#undef __need_size_t
#ifndef __QX_SIZE_T
#define __QX_SIZE_T
typedef __SIZE_T_TYPE__ size_t;
#endif
#endif

#ifdef __need_ptrdiff_t
#undef __need_ptrdiff_t
#ifndef __QX_PTRDIFF_T
#define __QX_PTRDIFF_T
typedef __PTRDIFF_T_TYPE__ ptrdiff_t;
#endif
#endif

#ifdef __need_wchar_t
#undef __need_wchar_t
#if !defined(__QX_WCHAR_T) && !(defined(__cplusplus) && defined(_WCHAR_T))
#define __QX_WCHAR_T
#ifndef __cplusplus
typedef __WCHAR_T_TYPE__ wchar_t;
#endif
#endif
#endif

#ifdef __need_wint_t
#undef __need_wint_t
#ifndef __QX_WINT_T
#define __QX_WINT_T
typedef unsigned int wint_t;
#endif
#endif

#ifdef __need_NULL
#undef __need_NULL
#undef NULL
#ifdef __cplusplus
#define NULL 0
#else
#define NULL ((void *)0)
#endif
#endif

#ifdef __QX_WHOLE_STDDEF
#undef __QX_WHOLE_STDDEF
#define offsetof(type, member) __builtin_offsetof(type, member)
#if (defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L) || \
    (defined(__cplusplus) && __cplusplus >= 201103L)
typedef struct {
  long long __ll;
  long double __ld;
} max_align_t;
#endif
#if defined(__cplusplus) && __cplusplus >= 201103L
namespace std {
typedef decltype(nullptr) nullptr_t;
}
using std::nullptr_t;
#endif
#endif

#endif
