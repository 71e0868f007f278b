#!/usr/bin/env python3
"""Compiles the programs of tests/programs and examples in both byte orders, executes them with
ifrun, and compares output and status with the folder expected beside them.

usage: run_programs.py QXPARSE IFDUMP IFRUN INCLUDE_DIR OUTPUT_DIR [PROGRAM ...]
"""
import os
import subprocess
import sys

OPTIONS = ['--c11', '--abi=eabi', '--small-enum', '--wchar_t_bits=32', '--no_warnings',
           '-D__SIZE_TYPE__=unsigned', '-D__PTRDIFF_TYPE__=int']


def run(command, **more):
    try:
        return subprocess.run(command, capture_output=True, timeout=120, **more)
    except subprocess.TimeoutExpired:
        return None


def expected(root, name):
    with open(os.path.join(root, 'expected', name + '.txt'), 'rb') as stream:
        text = stream.read()
    status_file = os.path.join(root, 'expected', name + '.status')
    status = 0
    if os.path.exists(status_file):
        with open(status_file) as stream:
            status = int(stream.read())
    return text, status


def first_difference(text, wanted):
    rows, wanted_rows = text.split(b'\n'), wanted.split(b'\n')
    for number, (row, wanted_row) in enumerate(zip(rows, wanted_rows), 1):
        if row != wanted_row:
            return f'output line {number}: {row.decode(errors="replace")!r}, not {wanted_row.decode(errors="replace")!r}'
    return f'{len(rows)} lines of output, not {len(wanted_rows)}'


def try_program(tools, output_dir, path, order):
    qxparse, ifdump, ifrun, include = tools
    root, name = os.path.dirname(path), os.path.splitext(os.path.basename(path))[0]
    output = os.path.join(output_dir, f'{name}-{order}.if')
    compiled = run([qxparse, *OPTIONS, f'--{order}_endian', f'-I{include}', f'--i_output_file={output}', path])
    if compiled is None:
        return 'the compiler does not end'
    if compiled.returncode != 0:
        return 'compiler status %d\n%s' % (compiled.returncode, compiled.stderr.decode(errors='replace')[:1500])
    checked = run([ifdump, '--check', output])
    if checked is None or checked.returncode != 0:
        return 'ifdump: ' + (checked.stderr.decode() if checked else 'does not end')
    done = run([ifrun, output])
    if done is None:
        return 'the program does not end'
    text, status = expected(root, name)
    if done.stdout != text or done.returncode != status:
        return (f'status {done.returncode}, not {status}; ' if done.returncode != status else '') + \
            (first_difference(done.stdout, text) if done.stdout != text else '') + ' ' + \
            done.stderr.decode(errors='replace')[:500]
    return None


def main():
    tools = [os.path.abspath(p) for p in sys.argv[1:5]]
    output_dir = os.path.abspath(sys.argv[5])
    os.makedirs(output_dir, exist_ok=True)
    tests = os.path.dirname(os.path.abspath(__file__))
    roots = [os.path.join(tests, 'programs'), os.path.join(os.path.dirname(tests), 'examples')]
    programs = [os.path.abspath(p) for p in sys.argv[6:]] or \
        [os.path.join(root, f) for root in roots for f in sorted(os.listdir(root)) if f.endswith('.c')]
    failed = 0
    for path in programs:
        for order in ('little', 'big'):
            problem = try_program(tools, output_dir, path, order)
            if problem:
                failed += 1
                print(f'FAILED {os.path.basename(path)} ({order} endian): {problem}')
    total = 2 * len(programs)
    print(f'programs: {total - failed} passed, {failed} failed')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
