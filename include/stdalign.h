/* Alignment under its common names. */
#ifndef __QX_STDALIGN_H
#define __QX_STDALIGN_H

#ifndef __cplusplus
#define alignas _Alignas
#define alignof _Alignof
#endif
#define __alignas_is_defined 1
#define __alignof_is_defined 1

#endif
