// The end of the front end: what the units still owe is done (instances, lowering, names), what
// nothing needs is dropped, and the files are closed.
#ifndef DRIVER_FE_WRAPUP_H
#define DRIVER_FE_WRAPUP_H

// Behind the last token: makes the IL complete, so that only the back end reads it.
void fe_wrapup();
// Behind the back end: closes the listings, writes the sign-off, releases the memory.
void fe_wrapup_part_2();

#endif
