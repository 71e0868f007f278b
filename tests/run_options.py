#!/usr/bin/env python3
"""Calls the compiler with the command lines of tests/cases/options/*.txt and tests/cases/diag/*.txt
and compares what it says.

usage: run_options.py QXPARSE OUTPUT_DIR [--write] [TABLE ...]

A table holds calls, with blank lines and comments (# and no number) between them:
    $ --c --c++ one.c
    = 4
    Command-line error: language modes specified are incompatible
    1 catastrophic error detected in this compilation.
    Compilation terminated.
A line "always: --strict" gives words that stand in front of those of each call behind it. The words
behind $ are the arguments, read as a shell reads them; = is the exit status, 0 where the line is
missing. The other lines are the output and the messages: all of them, in order; a line "..." at the
start or the end stands for any others. The last two lines of a refused command line, which are
always the same, are left out when the status is written "= 4 refused". Files are named as seen from
the folder of the table; {out} is the output folder, a line "? NAME" a file that must stand there
afterwards, "! NAME" one that must not, and "< NAME" one whose text comes behind the messages.

A table that begins with the line "exact" tells every byte: behind $, = (always there) and < stands
the text up to a line of eight dashes, blanks and empty lines included. --write replaces these texts
by what came.
"""
import difflib
import glob
import os
import re
import shlex
import shutil
import subprocess
import sys


def calls(path):
    """The calls of a table: line number, arguments, status, refused, output lines, file tests."""
    call, always = None, ''
    with open(path, encoding='utf-8') as stream:
        for number, row in enumerate(stream.read().split('\n') + ['$'], 1):
            if row.startswith('$'):
                if call:
                    yield call
                call = {'line': number, 'words': always + row[1:], 'status': 0, 'refused': False,
                        'lines': [], 'files': [], 'read': None}
            elif row.startswith('always: '):
                always = row[8:]
            elif row.startswith('= '):
                words = row[2:].split()
                call['status'], call['refused'] = int(words[0]), 'refused' in words
            elif row[:2] in ('? ', '! '):
                call['files'].append((row[0] == '?', row[2:].strip()))
            elif row.startswith('< '):
                call['read'] = row[2:].strip()
            elif row and not re.match(r'# (?!\d)', row):
                call['lines'].append(row)


END_OF_TEXT = '--------'


def exact_calls(rows):
    """The calls of an exact table, with what stands in front of each."""
    call, before = None, []
    for number, row in enumerate(rows, 1):
        if call is None and row.startswith('$ '):
            call = {'line': number, 'words': row[1:], 'read': None, 'lines': [], 'before': before}
        elif call is None:
            before.append(row)
        elif row == END_OF_TEXT:
            yield call
            call, before = None, []
        elif 'status' not in call:
            call['status'] = int(row.split()[1])
        elif not call['lines'] and row.startswith('< '):
            call['read'] = row[2:].strip()
        else:
            call['lines'].append(row)


def run_exact_call(qxparse, folder, output_dir, call):
    shutil.rmtree(output_dir, ignore_errors=True)
    os.makedirs(output_dir)
    words = shlex.split(call['words'].replace('{out}', output_dir))
    run = subprocess.run([qxparse, *words], cwd=folder, capture_output=True, timeout=20)
    text = run.stdout + run.stderr
    if call['read']:
        with open(call['read'].replace('{out}', output_dir), 'rb') as stream:
            text += stream.read()
    came = text.decode('latin-1').replace(output_dir, '{out}').removesuffix('\n').split('\n')
    problems = [] if run.returncode == call['status'] else [f'status {run.returncode}']
    if came != call['lines']:
        problems += difflib.unified_diff(call['lines'], came, 'expected', 'came', lineterm='', n=1)
    call['status'], call['lines'] = run.returncode, came
    return problems


def check_exact_table(qxparse, output_dir, table, rows, write):
    """Yields each call with its problems; with write the table is made anew."""
    text = []
    for call in exact_calls(rows):
        yield call, run_exact_call(qxparse, os.path.dirname(table), output_dir, call)
        text += call['before'] + ['$' + call['words'], f'= {call["status"]}']
        text += ([f'< {call["read"]}'] if call['read'] else []) + call['lines'] + [END_OF_TEXT]
    if write:
        with open(table, 'w', encoding='latin-1', newline='') as stream:
            stream.write('\n'.join(text) + '\n')


def check_table(qxparse, output_dir, table, write):
    with open(table, encoding='latin-1', newline='') as stream:
        rows = stream.read().split('\n')
    if rows[0] == 'exact':
        yield from check_exact_table(qxparse, output_dir, table, rows, write)
        return
    for call in calls(table):
        yield call, run_call(qxparse, os.path.dirname(table), output_dir, call)


def agree(expected, came):
    if expected and expected[0] == '...':
        return came[len(came) - len(expected) + 1:] == expected[1:]
    if expected and expected[-1] == '...':
        return came[:len(expected) - 1] == expected[:-1]
    return expected == came


def run_call(qxparse, folder, output_dir, call):
    shutil.rmtree(output_dir, ignore_errors=True)
    os.makedirs(output_dir)
    words = shlex.split(call['words'].replace('{out}', output_dir))
    run = subprocess.run([qxparse, *words], cwd=folder, capture_output=True, timeout=20)
    text = (run.stdout + run.stderr).decode('utf-8', 'replace').replace(output_dir, '{out}')
    came = [row.rstrip() for row in text.split('\n') if row.strip()]
    if call['refused'] and came[-1:] == ['Compilation terminated.'] and 'detected in' in came[-2]:
        came = came[:-2]
    read = call['read'] and call['read'].replace('{out}', output_dir)
    if read and os.path.exists(read):
        with open(read, encoding='utf-8', errors='replace') as stream:
            came += stream.read().rstrip().split('\n')
    problems = []
    if run.returncode != call['status']:
        problems.append(f'status {run.returncode}')
    if not agree(call['lines'], came):
        problems += ['came:'] + ['  ' + row for row in came]
    for must_stand, name in call['files']:
        if os.path.exists(os.path.join(folder, name.replace('{out}', output_dir))) != must_stand:
            problems.append(f'{name} ' + ('is missing' if must_stand else 'was left'))
    return problems


def main():
    words = [w for w in sys.argv[1:] if w != '--write']
    qxparse, output_dir = map(os.path.abspath, words[:2])
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'cases')
    tables = [os.path.abspath(t) for t in words[2:]] or sorted(
        glob.glob(root + '/options/*.txt') + glob.glob(root + '/diag/*.txt'))
    passed = failed = 0
    for table in tables:
        for call, problems in check_table(qxparse, output_dir, table, '--write' in sys.argv):
            if not problems:
                passed += 1
                continue
            failed += 1
            print(f'FAILED {os.path.relpath(table)}:{call["line"]}:{call["words"]}')
            for problem in problems:
                print(f'    {problem}')
    print(f'command lines: {passed} passed, {failed} failed')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
