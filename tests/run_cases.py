#!/usr/bin/env python3
"""Compiles the cases of tests/cases and compares the messages with those that each case expects.

usage: run_cases.py QXPARSE IFDUMP OUTPUT_DIR [CASE ...]

A case is one C or C++ file. Its first line may give options:
    // options: --c99 --strict
A line that must give a message has, directly under it, a comment for each one:
    int x = y;
    //      ^
    // expect: error #20 identifier "y"
Where the dialect has no such comments, /* and */ stand around each of them.
The caret, where there is one, stands under the column. Severity, number and a part of the text must
agree, and no message may come that is not expected. A name that begins with bad_ means that the
compilation fails with status 2 (or that of a second line "// status: N") and leaves no file; every other case must give a file that ifdump can
read. A file NAME.dump beside the case has what ifdump prints of it, without the lines that tell of the
command. OUTPUT_DIR receives the files.
"""
import difflib
import os
import re
import subprocess
import sys

MESSAGE = re.compile(r'^"(?P<file>[^"]*)", line (?P<line>\d+): '
                     r'(?P<severity>[a-z -]+?)(?: #(?P<number>\d+)(?:-D)?)?: (?P<text>.*)$')
AT_END = re.compile(r'^At end of source: '
                    r'(?P<severity>[a-z -]+?)(?: #(?P<number>\d+)(?:-D)?)?: (?P<text>.*)$')
EXPECT = re.compile(r'^\s*(?://|/\*)\s*expect(?P<end>-at-end)?:\s*(?P<severity>[a-z -]+?) #(?P<number>\d+)'
                    r'\s*(?P<text>.*?)\s*(?:\*/)?$')
CARET = re.compile(r'^\s*(?://|/\*)\s*\^\s*(?:\*/)?$')
LISTING = re.compile(r'^[A-Za-z] "(?P<file>[^"]*)" (?P<line>\d+) (?P<column>\d+) ')


def expectations(lines):
    """The expected messages: (line, column or None, severity, number, text)."""
    result, line, column = [], 0, None
    for number, text in enumerate(lines, 1):
        expect = EXPECT.match(text)
        if expect:
            at = 0 if expect['end'] else line
            result.append((at, column, expect['severity'], int(expect['number']), expect['text']))
        elif CARET.match(text):
            column = text.index('^') + 1
        else:
            line, column = number, None
    return result


def messages(stderr, listing):
    """The messages that came: (line, column, severity, number, text)."""
    columns = {}
    for row in listing:
        found = LISTING.match(row)
        if found:
            columns.setdefault(int(found['line']), []).append(int(found['column']))
    result = []
    for row in stderr.splitlines():
        found = MESSAGE.match(row)
        if found:
            line = int(found['line'])
            queue = columns.get(line) or [None]
            column = queue.pop(0) if len(queue) > 1 else queue[0]
            result.append((line, column, found['severity'], int(found['number'] or 0), found['text']))
            continue
        found = AT_END.match(row)
        if found:
            result.append((0, None, found['severity'], int(found['number'] or 0), found['text']))
    return result


def differences(expected, came):
    """What does not agree, as lines for a person."""
    rest, problems = list(came), []
    for line, column, severity, number, text in expected:
        for message in rest:
            if message[0] == line and message[2:4] == (severity, number) and text in message[4]:
                if column is not None and message[1] not in (None, column):
                    problems.append(f'line {line}: #{number} at column {message[1]}, not {column}')
                rest.remove(message)
                break
        else:
            problems.append(f'line {line}: missing {severity} #{number} {text}')
    for line, column, severity, number, text in rest:
        problems.append(f'line {line}, column {column}: unexpected {severity} #{number}: {text}')
    return problems


def dump_differences(ifdump, output, wanted_path):
    dump = subprocess.run([ifdump, output], capture_output=True, text=True).stdout.split('\n')
    came = [row for row in dump if not row.startswith(('intermediate file ', 'comment '))]
    with open(wanted_path) as stream:
        wanted = stream.read().split('\n')
    if came == wanted:
        return []
    return list(difflib.unified_diff(wanted, came, 'expected', 'came', lineterm='', n=2))[:40]


def run_case(qxparse, ifdump, output_dir, path):
    name = os.path.splitext(os.path.basename(path))[0]
    area = os.path.basename(os.path.dirname(path))
    output = os.path.join(output_dir, f'{area}-{name}.if')
    listing_name = os.path.join(output_dir, f'{area}-{name}.lst')
    for old in (output, listing_name):
        if os.path.exists(old):
            os.remove(old)
    with open(path, encoding='latin-1') as stream:
        lines = stream.read().split('\n')
    options = []
    found = re.match(r'^(?://|/\*)\s*options:\s*(.*?)\s*(?:\*/)?$', lines[0])
    if found:
        options = found[1].split()
    command = [qxparse, '--display_error_number', *options, f'--list={listing_name}',
               f'--i_output_file={output}', os.path.basename(path)]
    try:
        run = subprocess.run(command, cwd=os.path.dirname(path), capture_output=True, timeout=20)
    except subprocess.TimeoutExpired:
        return ['does not end']
    stderr = run.stderr.decode('latin-1')
    listing = []
    if os.path.exists(listing_name):
        with open(listing_name, encoding='latin-1') as stream:
            listing = stream.read().split('\n')
        os.remove(listing_name)
    problems = differences(expectations(lines), messages(stderr, listing))
    must_fail = name.startswith('bad_')
    status = next((int(row.split(':')[1]) for row in lines[:2] if row.startswith('// status:')), 2 if must_fail else 0)
    if run.returncode != status:
        problems.append(f'status {run.returncode}')
        problems += ['  ' + row for row in stderr.splitlines()[:8]]
    if must_fail and os.path.exists(output):
        problems.append('a failed compilation left a file')
    preprocess_only = any(o in ('-E', '-P', '-C', '-M', '-H', '-n', '--preprocess') for o in options)
    if not must_fail and run.returncode == 0 and not preprocess_only:
        check = subprocess.run([ifdump, '--check', output], capture_output=True, text=True)
        if check.returncode != 0:
            problems.append(check.stderr.strip() or 'ifdump refuses the file')
        dump = os.path.splitext(path)[0] + '.dump'
        if os.path.exists(dump):
            problems += dump_differences(ifdump, output, dump)
    return problems


def main():
    qxparse, ifdump, output_dir = map(os.path.abspath, sys.argv[1:4])
    os.makedirs(output_dir, exist_ok=True)
    cases = [os.path.abspath(case) for case in sys.argv[4:]]
    if not cases:
        root = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'cases')
        for folder, _, files in sorted(os.walk(root)):
            if os.path.basename(folder) in ('diag', 'options', 'output'):
                continue  # the inputs of run_options.py and run_output.py
            cases += [os.path.join(folder, f) for f in sorted(files) if f.endswith(('.c', '.cpp'))]
    failed = 0
    for case in cases:
        problems = run_case(qxparse, ifdump, output_dir, case)
        if problems:
            failed += 1
            print(f'FAILED {os.path.relpath(case)}')
            for problem in problems:
                print(f'    {problem}')
    print(f'cases: {len(cases) - failed} passed, {failed} failed')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
