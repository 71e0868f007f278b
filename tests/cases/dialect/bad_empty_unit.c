/* options: --c89 --strict */
/* only this */

/* expect-at-end: error #97 a translation unit must contain at least one declaration */
