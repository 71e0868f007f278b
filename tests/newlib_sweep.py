#!/usr/bin/env python3
"""Compiles the C sources of newlib with arm-none-eabi-gcc (syntax only) and with qxparse, and tells
which of the files that the other compiler takes do not become a valid intermediate file.

usage: newlib_sweep.py QXPARSE IFDUMP NEWLIB_SOURCE INCLUDE_DIR OUTPUT_DIR [--decoder=FILE] [FILTER ...]

NEWLIB_SOURCE is the folder with newlib/libc in it. The headers are those of the installed newlib
where the sources need generated ones. A FILTER is a part of a file's path.
"""
import concurrent.futures
import os
import subprocess
import sys

DIRECTORIES = ['string', 'stdlib', 'ctype', 'search', 'stdio', 'time', 'errno', 'locale', 'signal', 'misc', 'reent']
MATH = ['math', 'common']
GENERATED = '/usr/include/newlib'
DEFINES = ['-D__GNUC_MINOR__=8', '-DHAVE_CONFIG_H=0', '-D_COMPILING_NEWLIB']
OURS = ['--c11', '--gcc', '--abi=eabi', '--wchar_t_bits=32', '--no_warnings', '-D__GNUC__=4', *DEFINES]
THEIRS = ['arm-none-eabi-gcc', '-std=gnu11', '-w', '-fsyntax-only', '-D_COMPILING_NEWLIB']


def sources(root):
    folders = [os.path.join(root, 'newlib/libc', d) for d in DIRECTORIES]
    folders += [os.path.join(root, 'newlib/libm', d) for d in MATH]
    return [os.path.join(f, n) for f in folders for n in sorted(os.listdir(f)) if n.endswith('.c')]


def run(command):
    try:
        done = subprocess.run(command, capture_output=True, timeout=60, errors='replace')
        return done.returncode, done.stdout + done.stderr
    except subprocess.TimeoutExpired:
        return -1, 'does not end within 60 s'


def first_problem(text):
    lines = text.split('\n')
    for line in lines:
        if 'INTERNAL ERROR' in line or ' error' in line:
            return line
    return lines[0]


def try_file(job):
    tools, root, include, output_dir, decoder, path = job
    own = [f'-I{os.path.dirname(path)}', f'-I{root}/newlib/libc/include', f'-I{root}/newlib/libc/machine/arm',
           f'-I{root}/newlib/libc/stdlib', f'-I{root}/newlib/libc/locale', f'-I{root}/newlib/libc/stdio',
           f'-I{root}/newlib/libm/common', f'-I{GENERATED}']
    if run([*THEIRS, *own, path])[0] != 0:
        return path, 'refused', ''
    name = os.path.relpath(path, root).replace('/', '-')[:-2]
    output = os.path.join(output_dir, name + '.if')
    status, text = run([tools[0], *OURS, f'-I{include}', *own, f'--preinclude={include}/foreign_macros.h',
                        f'--i_output_file={output}', path])
    if status not in (0, 1):
        return path, 'failed', first_problem(text)
    status, text = run([tools[1], '--check', output])
    if status == 0 and decoder:
        status, text = run([sys.executable, decoder, output])
    return (path, 'compiled', '') if status == 0 else (path, 'invalid', text.split('\n')[0])


def main():
    decoder = next((a.split('=', 1)[1] for a in sys.argv if a.startswith('--decoder=')), None)
    arguments = [a for a in sys.argv[1:] if not a.startswith('--decoder=')]
    if len(arguments) < 5:
        sys.exit(__doc__)
    tools = [os.path.abspath(a) for a in arguments[:2]]
    root, include, output_dir = (os.path.abspath(a) for a in arguments[2:5])
    os.makedirs(output_dir, exist_ok=True)
    paths = [p for p in sources(root) if all(f in p for f in arguments[5:])]
    jobs = [(tools, root, include, output_dir, decoder, p) for p in paths]
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        results = list(pool.map(try_file, jobs))
    count = {kind: sum(1 for r in results if r[1] == kind) for kind in ('refused', 'compiled', 'failed', 'invalid')}
    for path, kind, text in results:
        if kind in ('failed', 'invalid'):
            print(f'{kind} {os.path.relpath(path, root)}: {text}')
    accepted = len(results) - count['refused']
    print(f"{len(results)} files, {accepted} accepted by the other compiler; of these {count['compiled']} compiled to a "
          f"valid file, {count['failed']} failed, {count['invalid']} were invalid: "
          f"{100 * count['compiled'] / max(accepted, 1):.1f} %")
    return 0 if count['failed'] + count['invalid'] == 0 else 1


if __name__ == '__main__':
    sys.exit(main())
