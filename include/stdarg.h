/* Variable arguments. A library header may ask for the type alone by __need___va_list. */
#ifndef __QX_GNUC_VA_LIST
#define __QX_GNUC_VA_LIST
typedef __builtin_va_list __gnuc_va_list;
#endif

#ifdef __need___va_list
#undef __need___va_list
#elif !defined(__QX_STDARG_H)
#define __QX_STDARG_H

#ifdef __cplusplus
namespace std {
typedef __builtin_va_list va_list;
}
using std::va_list;
#else
typedef __builtin_va_list va_list;
#endif

#define va_start(ap, parm) __builtin_va_start(ap, parm)
#define va_arg(ap, type) __builtin_va_arg(ap, type)
#define va_end(ap) __builtin_va_end(ap)
#if !defined(__STRICT_ANSI__) || __STDC_VERSION__ >= 199901L || defined(__cplusplus)
#define va_copy(to, from) __builtin_va_copy(to, from)
#endif
#define __va_copy(to, from) __builtin_va_copy(to, from)

#define _VA_LIST_DEFINED
#endif
