// The fixed orders of initialisation. Every module with state has up to four routines, which are
// called at four times: before the command line is read (early), once behind it (one-time), once
// for the compilation, and at the start of each translation unit. fe_init.cpp holds all orders in
// one table.
#ifndef DRIVER_FE_INIT_H
#define DRIVER_FE_INIT_H

// Before the command line: every option and counter gets its default. No region exists.
void fe_early_init();
// Behind the command line: fixed tables, variables that differ per unit.
void fe_one_time_init();
// At the start of the compilation, for the primary unit: regions, the IL, the output files.
void fe_init_part_1();
// At the start of every unit: keywords, predefined macros, the file scope.
void fe_translation_unit_init();
// Opens the source file and reads its first line.
void fe_init_part_2();

#endif
