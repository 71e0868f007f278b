/* The boolean type under its common names. */
#ifndef __QX_STDBOOL_H
#define __QX_STDBOOL_H

#ifndef __cplusplus
#define bool _Bool
#define true 1
#define false 0
#endif
#define __bool_true_false_are_defined 1

#endif
