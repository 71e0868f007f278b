#!/usr/bin/env python3
"""Every directive, every pragma that is known and every macro that computes its text is met by a case.

usage: directives.py ROOT

directives_without_case.txt holds the exceptions: a name and behind it the reason.
"""
import os
import re
import sys

from exceptions import judge, text_of


def cases(root):
    texts = []
    for folder in ('tests/cases', 'tests/programs', 'tests/unit'):
        for directory, _, names in sorted(os.walk(os.path.join(root, folder))):
            texts += [text_of(os.path.join(directory, n)) for n in sorted(names) if n.endswith(('.c', '.h', '.cpp', '.cc'))]
    return '\n'.join(texts)


def known_names(root):
    """(form, name) of everything that must be met."""
    directives = text_of(os.path.join(root, 'src/source/preproc_directive.cpp'))
    names = [('directive', n) for n in re.findall(r'is_word\(name, length, "(\w+)"\)', directives)]
    pragmas = text_of(os.path.join(root, 'src/target/pragma.def'))
    spelling = dict(re.findall(r'^PRAGMA_KIND\(\d+, (\w+), "([^"]*)"', pragmas, re.M))
    rows = re.findall(r'^(?:SAME|ON_SYMBOL|REGISTERED_PRAGMA)\((\w+), ', pragmas, re.M)
    names += [('pragma', spelling[row]) for row in rows]
    macros = text_of(os.path.join(root, 'src/source/macro_predef.cpp'))
    names += [('macro', n) for n in re.findall(r'enter_magic_macro\("(\w+)"', macros)]
    return names


def main():
    root = os.path.abspath(sys.argv[1])
    text = cases(root)
    met = {'directive': set(re.findall(r'^[ \t]*(?:#|%:|\?\?=)[ \t]*(\w+)', text, re.M)),
           'pragma': set(re.findall(r'(?:#[ \t]*pragma[ \t]+|_Pragma\(\\?"[ \t]*)(\w+)', text)),
           'macro': set(re.findall(r'\w+', text))}
    names = known_names(root)
    unmet = [f'{form} {name}' for form, name in names if name not in met[form]]
    judge(root, 'directives_without_case.txt', unmet, 'directives, pragmas and computed macros', len(names), 60)


if __name__ == '__main__':
    main()
