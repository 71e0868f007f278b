/* Variable arguments. They follow the last named parameter in memory, each in slots of 4 bytes; under
   the EABI a type of alignment 8 starts at a multiple of 8. A class that is passed by reference has
   its address in the slot. A library header may ask for the type alone by __need___va_list. */
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

#define __va_slot_size(type) ((sizeof(type) + 3u) & ~3u)
#define __va_skip(ap, size) \
  ((ap).__ap = (void *)((char *)(ap).__ap + (size)), (void *)((char *)(ap).__ap - (size)))

#ifdef __QX_EABI__
#define __va_align(ap, type)                                        \
  ((ap).__ap = (void *)(((unsigned)(ap).__ap +                      \
                         (__ALIGNOF__(type) > 4u ? 7u : 0u)) &      \
                        ~(__ALIGNOF__(type) > 4u ? 7u : 0u)))
#else
#define __va_align(ap, type) ((void)0)
#endif

#define va_start(ap, parm)                                     \
  ((void)((ap).__ap = (void *)((char *)__va_parmadr(parm) +    \
                               (__va_argref(parm) ? 4u : __va_slot_size(parm)))))
#define va_arg(ap, type)                                                 \
  (*(__va_argref(type) ? *(type **)__va_skip(ap, 4u)                     \
                       : (__va_align(ap, type),                          \
                          (type *)__va_skip(ap, __va_slot_size(type)))))
#define va_end(ap) ((void)0)
#if !defined(__STRICT_ANSI__) || __STDC_VERSION__ >= 199901L || defined(__cplusplus)
#define va_copy(to, from) ((void)((to) = (from)))
#endif
#define __va_copy(to, from) ((void)((to) = (from)))

#define _VA_LIST_DEFINED
#endif
