#!/usr/bin/env python3
"""A rule of src/target/misra.def is marked as checked if, and only if, the sources report its message.

usage: misra_rules.py ROOT
"""
import os
import re
import sys


def main():
    root = os.path.join(os.path.abspath(sys.argv[1]), 'src')
    reported = set()
    for folder, _, names in os.walk(root):
        for name in names:
            if name.endswith('.cpp') and name != 'misra.cpp':
                with open(os.path.join(folder, name), encoding='utf-8') as stream:
                    reported.update(re.findall(r'\bec_misra_c_2004_(\w+)', stream.read()))
    with open(os.path.join(root, 'target/misra.def'), encoding='utf-8') as stream:
        rows = re.findall(r'^MISRA_RULE\((\d+), (\d+), \w+, (\w+), (\w+), (true|false)\)', stream.read(), re.M)
    faults = [f'{major}.{minor} is marked {marked}' for major, minor, tag, named, marked in rows
              if (tag in reported or named in reported) != (marked == 'true')]
    for fault in faults:
        print(fault)
    checked = sum(1 for row in rows if row[4] == 'true')
    print(f'{len(rows)} rules, {checked} checked, {len(faults)} faults')
    return 1 if faults or len(rows) < 100 else 0


if __name__ == '__main__':
    sys.exit(main())
