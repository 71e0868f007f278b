#!/usr/bin/env python3
"""Holds the initialisation table against the faces of the modules.

Every <module>_early_init, _one_time_init, _init and _trans_unit_init that a face declares has a row
in src/driver/fe_init.def, and every row has its declaration. Usage: init_rows.py [project root]
"""
import pathlib
import re
import sys

# Parts of a module that its own routine calls, or the driver's own levels.
CALLED_BY_OTHERS = {"fe", "fe_translation_unit", "input_stack", "pp_output", "il_alloc",
                    "il_constants", "il_needed"}
# Called by name: the unit's own reset, between two levels, and what only a checked rule set needs.
CALLED_BY_NAME = {("INIT", "trans_unit"), ("ONE_TIME_INIT", "misra")}
LEVELS = {"early_init": "EARLY_INIT", "one_time_init": "ONE_TIME_INIT",
          "trans_unit_init": "TRANS_UNIT_INIT", "init": "INIT"}

root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2])
table = (root / "src/driver/fe_init.def").read_text()
rows = set(re.findall(r"^(EARLY_INIT|ONE_TIME_INIT|INIT|TRANS_UNIT_INIT)\((\w+)\)$", table, re.M))

declared = set()
pattern = re.compile(r"\bvoid (\w+?)_(early_init|one_time_init|trans_unit_init|init)\(\)")
for face in sorted((root / "src").rglob("*.h")):
    for module, level in pattern.findall(face.read_text()):
        if module not in CALLED_BY_OTHERS:
            declared.add((LEVELS[level], module))

missing = sorted(declared - rows - CALLED_BY_NAME)
extra = sorted(rows - declared)
for level, module in missing:
    print(f"no row: {level}({module})")
for level, module in extra:
    print(f"row without a routine: {level}({module})")
sys.exit(1 if missing or extra else 0)
