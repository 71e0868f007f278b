#!/usr/bin/env python3
"""Compiles every program, example and case twice with equal options, in different folders, with a
different environment and different contents of fresh memory; files, messages and status must agree
to the last byte.

usage: run_twice.py QXPARSE INCLUDE_DIR OUTPUT_DIR [SOURCE ...]
"""
import os
import re
import shutil
import subprocess
import sys

from run_programs import OPTIONS

# (folder, what stands in the environment besides the path, the byte of fresh memory)
WORLDS = [('a', {'HOME': '/', 'LC_ALL': 'C'}, 0x55),
          ('another/and/deeper', {'LC_ALL': 'en_US.UTF-8', 'PADDING': 'x' * 20000, 'TMPDIR': '/tmp'}, 0xAA)]


def options_of(path):
    with open(path, encoding='latin-1') as stream:
        found = re.match(r'^(?://|/\*)\s*options:\s*(.*?)\s*(?:\*/)?$', stream.readline())
    return found[1].split() if found else OPTIONS


def results(qxparse, include, folder, variables, fill, path):
    """What a compilation leaves: its status and messages, and the files that it wrote."""
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    sanitizer = f'{os.environ.get("ASAN_OPTIONS", "")}:max_malloc_fill_size=1000000:malloc_fill_byte={fill}'
    environment = {'PATH': os.environ['PATH'], 'MALLOC_PERTURB_': str(fill),
                   'ASAN_OPTIONS': sanitizer.strip(':'), **variables}
    command = [qxparse, *options_of(path), f'-I{include}', f'-I{os.path.dirname(path)}',
               '--list=messages.lst', '--i_output_file=out.if', path]
    run = subprocess.run(command, cwd=folder, env=environment, capture_output=True, timeout=120)
    left = {'status': str(run.returncode).encode(), 'output': run.stdout, 'messages': run.stderr}
    for name in os.listdir(folder):
        with open(os.path.join(folder, name), 'rb') as stream:
            left[name] = stream.read()
    return left


def main():
    qxparse, include, output_dir = map(os.path.abspath, sys.argv[1:4])
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    sources = [os.path.abspath(p) for p in sys.argv[4:]]
    if not sources:
        for top in ('examples', 'tests/programs', 'tests/cases'):
            for folder, _, files in sorted(os.walk(os.path.join(root, top))):
                sources += [os.path.join(folder, f) for f in sorted(files) if f.endswith(('.c', '.cpp'))]
    failed = written = 0
    for path in sources:
        first, second = [results(qxparse, include, os.path.join(output_dir, folder), variables, fill, path)
                         for folder, variables, fill in WORLDS]
        written += 'out.if' in first
        different = [name for name in sorted({*first, *second}) if first.get(name) != second.get(name)]
        if different:
            failed += 1
            print(f'FAILED {os.path.relpath(path)}: {", ".join(different)}')
    print(f'twice: {len(sources) - failed} equal, {failed} different, {written} files')
    return 1 if failed or written == 0 else 0


if __name__ == '__main__':
    sys.exit(main())
