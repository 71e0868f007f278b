/* The specifier of functions that do not return, under its common name. */
#ifndef __QX_STDNORETURN_H
#define __QX_STDNORETURN_H

#ifndef __cplusplus
#define noreturn _Noreturn
#endif

#endif
