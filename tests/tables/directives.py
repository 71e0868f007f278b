#!/usr/bin/env python3
"""Every directive, every pragma that is known and every macro that computes its text is met by a case.

usage: directives.py ROOT

directives_without_case.txt holds the exceptions: a name and behind it the reason.
"""
import os
import re
import sys


def text_of(path):
    with open(path, encoding='latin-1') as stream:
        return stream.read()


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
    listed = {}
    problems = []
    for line in text_of(os.path.join(root, 'tests/tables/directives_without_case.txt')).split('\n'):
        found = re.match(r'(\w+ \w+): (\S.*)', line)
        if found:
            listed[found[1]] = found[2]
        elif line:
            problems.append(f'no reason: {line}')
    problems += [f'{what} is met by no case' for what in unmet if what not in listed]
    problems += [f'{what} is an exception, but a case meets it or it is not known' for what in listed if what not in unmet]
    for problem in problems:
        print(problem)
    print(f'{len(names)} directives, pragmas and computed macros, {len(names) - len(unmet)} met by cases, {len(listed)} exceptions')
    return 1 if problems or len(names) < 60 else 0


if __name__ == '__main__':
    sys.exit(main())
