#!/usr/bin/env python3
"""Every name and letter of the command line is met by a case: a call in tests/cases/options, the
options of a case, or a command line of a unit test.

usage: options.py ROOT

options_without_case.txt holds the exceptions: a name, a colon and the reason.
"""
import os
import re
import sys

from exceptions import files, judge, text_of


def option_names(root):
    """(name, letter) of each row; the letter is empty where there is none."""
    table = text_of(os.path.join(root, 'src/options/options.def'))
    return re.findall(r"^(?:FLAG_)?OPTION\(\s*\w+,\s*\"([^\"]+)\",\s*(?:'(.)'|0)", table, re.M)


def words(root):
    """All words of command lines."""
    found = set()
    for path in files(root, 'tests/cases', ('.txt', '.cmd')):
        for line in text_of(path).split('\n'):
            if line.startswith(('$ ', 'always:')) or path.endswith('.cmd'):
                found.update(line.replace('"', ' ').split())
    for path in files(root, 'tests/cases', ('.c', '.cc', '.cpp')):
        found.update(re.sub(r'^(//|/\*)\s*options:', '', text_of(path).split('\n', 1)[0]).split())
    for path in files(root, 'tests/unit', ('.cpp', '.def')):
        found.update(w for text in re.findall(r'"([^"\n]*)"', text_of(path)) for w in text.split())
    return found


def main():
    root = os.path.abspath(sys.argv[1])
    names = option_names(root)
    met = words(root)
    long_met = {w[2:].split('=', 1)[0] for w in met if w.startswith('--')}
    letters = {c for w in met if re.match(r'-[^-]', w) for c in (w[1:] if w[1] not in 'IDUeLX@t' else w[1])}
    unmet = [f'--{name}' for name, _ in names if name not in long_met]
    unmet += [f'-{letter}' for _, letter in names if letter and letter not in letters]
    total = len(names) + sum(1 for _, letter in names if letter)
    judge(root, 'options_without_case.txt', unmet, 'names and letters of options', total, 300)


if __name__ == '__main__':
    main()
