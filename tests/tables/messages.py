#!/usr/bin/env python3
"""Every message that the code can report has a text, and a case or a place in messages_without_case.txt.

usage: messages.py ROOT [--write]

A case meets a message by its number, or by its text in the tables of command lines and golden texts.
The list holds the tags of messages that no case meets, one a line, a colon and the reason behind it.
A message that gets a case leaves the list; a new message does not enter it without somebody writing
it there. --write makes the list anew and keeps the reasons.
"""
import os
import re
import sys

ROW = re.compile(r'^ERROR_ROW\((\d+), (\w+),\s*(nullptr|"|$)')
USE = re.compile(r'\bec_(\w+)')
EXPECTED = re.compile(r'(?:error|warning|remark|advice) #(\d+)')


def text_of(path):
    with open(path, encoding='latin-1') as stream:
        return stream.read()


def files(folder, ends):
    for directory, _, names in sorted(os.walk(folder)):
        for name in sorted(names):
            if name.endswith(ends):
                yield os.path.join(directory, name)


def catalogue(root):
    """Number and text, by tag; the text of a row that has none is None."""
    rows = {}
    text = text_of(os.path.join(root, 'src/DIAG/error_codes.def'))
    for found in re.finditer(r'^ERROR_ROW\(\s*(\d+),\s*(\w+),\s*(nullptr\b)?((?:\s*"(?:[^"\\]|\\.)*")*)', text, re.M):
        parts = re.findall(r'"((?:[^"\\]|\\.)*)"', found[4])
        written = ''.join(parts).replace('\\"', '"').replace('\\\\', '\\')
        rows[found[2]] = (int(found[1]), None if found[3] else written)
    return rows


def met_texts(root, rows):
    """The numbers of the messages whose texts stand in tables of command lines and golden texts."""
    tables = '\n'.join(text_of(p) for p in files(os.path.join(root, 'tests/cases'), ('.txt',)))
    lines = {line.split(': ', 1)[1] for line in re.findall(r'^.*(?:error|warning|remark|advice)(?: #[\d-]+D?)?: .*$', tables, re.M)}
    numbers = set()
    for number, text in rows.values():
        fixed = [re.escape(part) for part in re.split(r'%[a-z]*\d*', text or '')]
        if sum(len(part) for part in fixed) < 12:
            continue
        pattern = re.compile(r'(?:.*: )?' + '.+?'.join(fixed) + '$')
        if any(pattern.match(line) for line in lines):
            numbers.add(number)
    return numbers


def reported(root, rows):
    tags = set()
    for path in files(os.path.join(root, 'src'), ('.cpp', '.h', '.def')):
        if os.path.basename(path).startswith('error_codes'):
            continue
        tags.update(tag for tag in USE.findall(text_of(path)) if tag in rows and tag != 'no_error')
    return tags


def met_numbers(root):
    numbers = set()
    for folder in ('tests/cases', 'tests/unit'):
        for path in files(os.path.join(root, folder), ('.c', '.cc', '.cpp', '.txt', '.h')):
            numbers.update(int(n) for n in EXPECTED.findall(text_of(path)))
            numbers.update(catalogue_number(tag) for tag in USE.findall(text_of(path)))
    return numbers


def catalogue_number(tag):
    return ROWS[tag][0] if tag in ROWS else 0


def main():
    global ROWS
    root = os.path.abspath(sys.argv[1])
    list_path = os.path.join(root, 'tests/tables/messages_without_case.txt')
    ROWS = catalogue(root)
    tags, met = reported(root, ROWS), met_numbers(root) | met_texts(root, ROWS)
    unmet = sorted(tag for tag in tags if ROWS[tag][0] not in met)
    reasons = {}
    for tag, reason in re.findall(r'^(\w+):?[ ]*(.*)$', text_of(list_path), re.M):
        reasons[tag] = reason or reasons.get(tag, '')
    if '--write' in sys.argv:
        reasons = {tag: reasons.get(tag, '') for tag in unmet}
        with open(list_path, 'w') as stream:
            stream.write(''.join(f'{tag}: {reason}'.rstrip() + '\n' for tag, reason in reasons.items()))
    listed = list(reasons)
    problems = [f'{tag} is reported and has no text' for tag in sorted(tags) if not ROWS[tag][1]]
    problems += [f'{tag} stands in the list without a reason' for tag in listed if not reasons[tag]]
    problems += [f'{tag} (#{ROWS[tag][0]}) is reported, and no case meets it' for tag in unmet if tag not in listed]
    problems += [f'{tag} is in the list, but a case meets it or nothing reports it' for tag in listed if tag not in unmet]
    for problem in problems:
        print(problem)
    print(f'messages: {len(tags)} reported, {len(tags) - len(unmet)} met by cases, {len(unmet)} listed as unmet')
    return 1 if problems else 0


if __name__ == '__main__':
    sys.exit(main())
