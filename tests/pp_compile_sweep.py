#!/usr/bin/env python3
"""Compiles the C sources of newlib, and beside each its preprocessed text, and compares the two
intermediate files: but for positions and the command line they must say the same.

usage: pp_compile_sweep.py QXPARSE IFDUMP NEWLIB_SOURCE INCLUDE_DIR OUTPUT_DIR [COUNT]

Takes the first COUNT (300) sources that compile, spread over all folders.
"""
import concurrent.futures
import os
import re
import sys

from newlib_sweep import GENERATED, OURS, run, sources

POSITION = re.compile(r'  @.*?:\d+:\d+$', re.M)
HEAD = re.compile(r'^(?:intermediate file|file \d+|comment) .*\n', re.M)


def facts(ifdump, path):
    """What an intermediate file says, without positions; None if it cannot be read."""
    status, text = run([ifdump, path])
    return HEAD.sub('', POSITION.sub('', text)) if status == 0 else None


def try_file(job):
    qxparse, ifdump, root, include, output_dir, path = job
    own = [f'-I{os.path.dirname(path)}', f'-I{root}/newlib/libc/include', f'-I{root}/newlib/libc/machine/arm',
           f'-I{root}/newlib/libc/stdlib', f'-I{root}/newlib/libc/locale', f'-I{root}/newlib/libc/stdio',
           f'-I{root}/newlib/libm/common', f'-I{GENERATED}', f'-I{include}', f'--preinclude={include}/foreign_macros.h']
    name = os.path.join(output_dir, os.path.relpath(path, root).replace('/', '-')[:-2])
    if run([qxparse, *OURS, *own, f'--i_output_file={name}.if', path])[0] != 0:
        return path, 'skipped', ''
    status, text = run([qxparse, *OURS, *own, '-E', f'--pp_output_file={name}.pp.c', path])
    if status == 0:
        # the macros of the command line are in the text already
        plain = [o for o in OURS if not o.startswith('-D')]
        status, text = run([qxparse, *plain, f'--i_output_file={name}.pp.if', f'{name}.pp.c'])
    if status != 0:
        return path, 'differs', text.split('\n')[0]
    one, other = facts(ifdump, f'{name}.if'), facts(ifdump, f'{name}.pp.if')
    if one is not None and one == other:
        return path, 'equal', ''
    pairs = zip((one or "").split('\n'), (other or "").split("\n"))
    return path, 'differs', next((f'{a.strip()} | {b.strip()}' for a, b in pairs if a != b), 'length')


def main():
    if len(sys.argv) < 6:
        sys.exit(__doc__)
    qxparse, ifdump, root, include, output_dir = (os.path.abspath(a) for a in sys.argv[1:6])
    count = int(sys.argv[6]) if len(sys.argv) > 6 else 300
    os.makedirs(output_dir, exist_ok=True)
    paths = sources(root)
    paths = paths[::max(1, len(paths) // count)][:count]
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        results = list(pool.map(try_file, [(qxparse, ifdump, root, include, output_dir, p) for p in paths]))
    for path, kind, text in results:
        if kind == 'differs':
            print(f'{os.path.relpath(path, root)}: {text}')
    number = {kind: sum(1 for r in results if r[1] == kind) for kind in ('skipped', 'equal', 'differs')}
    print(f'{len(results)} sources, {number["skipped"]} do not compile here, {number["equal"]} equal, {number["differs"]} differ')
    return 1 if number['differs'] else 0


if __name__ == '__main__':
    sys.exit(main())
