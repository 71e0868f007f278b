#!/usr/bin/env python3
"""Preprocessed text: compares it with what is expected, and compiles it again.

usage: run_output.py QXPARSE IFRUN INCLUDE_DIR OUTPUT_DIR [--write]

Each tests/cases/output/NAME.c is preprocessed with the options of its first line; NAME.txt beside it
is the text that must come out, and --write replaces it by what came. A name L12 in a source that is
preprocessed with line control must come out so that its line counts as line 12 or, inside an
invocation that began there, later.
Each program of tests/programs must do the same whether it or its preprocessed text is compiled.
"""
import glob
import os
import re
import subprocess
import sys

from run_programs import OPTIONS, expected

HERE = os.path.dirname(os.path.abspath(__file__))
LINE_CONTROL = re.compile(r'^#(?:line)? (\d+) ')


def misplaced_marks(text):
    """The marks L12 that come out on a line in front of their own."""
    line, problems = 1, []
    for row in text.split('\n'):
        control = LINE_CONTROL.match(row)
        if control:
            line = int(control[1])
            continue
        marks = [int(m) for m in re.findall(r'\bL(\d+)\b', row)]
        if marks and max(marks) > line:
            problems.append(f'line {line}: {row}')
        line += 1
    return problems


def check_text(qxparse, output_dir, path, write):
    with open(path, encoding='utf-8') as stream:
        options = stream.readline().split('options:')[1].split()
    if '--no_preproc_only' in options:
        options.append(f'--i_output_file={os.path.join(output_dir, "beside.if")}')
    run = subprocess.run([qxparse, *options, os.path.basename(path)], cwd=os.path.dirname(path),
                         capture_output=True, timeout=20)
    text = run.stdout.decode('utf-8', 'replace')
    answer = path[:-2] + '.txt'
    if write:
        with open(answer, 'w', encoding='utf-8') as stream:
            stream.write(text)
    problems = [f'status {run.returncode}'] if run.returncode else []
    with open(answer, encoding='utf-8') as stream:
        wanted = stream.read()
    if wanted != text:
        pairs = zip(wanted.split('\n') + [''], text.split('\n') + [''])
        first = next((n for n, (a, b) in enumerate(pairs, 1) if a != b), 0)
        problems.append(f'line {first} differs: {(text.split(chr(10)) + [""])[first - 1]}')
    if '-E' in options:
        problems += misplaced_marks(text)
    return problems


def check_program(qxparse, ifrun, include_dir, output_dir, path):
    name = os.path.splitext(os.path.basename(path))[0]
    text, code = os.path.join(output_dir, name + '.i.c'), os.path.join(output_dir, name + '.if')
    steps = [[qxparse, *OPTIONS, '-E', f'--sys_include={include_dir}', f'--pp_output_file={text}',
              os.path.basename(path)],
             [qxparse, *OPTIONS, f'--i_output_file={code}', text]]
    for step in steps:
        run = subprocess.run(step, cwd=os.path.dirname(path), capture_output=True, timeout=60)
        if run.returncode:
            return [f'status {run.returncode}', run.stderr.decode('latin-1')[:400]]
    run = subprocess.run([ifrun, code], capture_output=True, timeout=120)
    wanted, status = expected(os.path.dirname(path), name)
    if run.stdout != wanted or run.returncode != status:
        return [f'does something else, status {run.returncode}']
    return []


def main():
    words = [w for w in sys.argv[1:] if w != '--write']
    qxparse, ifrun, include_dir, output_dir = map(os.path.abspath, words[:4])
    os.makedirs(output_dir, exist_ok=True)
    results = []
    for path in sorted(glob.glob(os.path.join(HERE, 'cases', 'output', '*.c'))):
        results.append((path, check_text(qxparse, output_dir, path, '--write' in sys.argv)))
    for path in sorted(glob.glob(os.path.join(HERE, 'programs', '*.c'))):
        results.append((path, check_program(qxparse, ifrun, include_dir, output_dir, path)))
    failed = [r for r in results if r[1]]
    for path, problems in failed:
        print(f'FAILED {os.path.relpath(path)}')
        for problem in problems:
            print(f'    {problem}')
    print(f'preprocessed texts: {len(results) - len(failed)} passed, {len(failed)} failed')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
