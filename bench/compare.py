#!/usr/bin/env python3
"""Measures qxparse beside other compilers: the same input, runs interleaved, medians.

usage: compare.py QXPARSE compare FILE.c [ROUNDS] [OPTION ...]   time and memory beside others
       compare.py QXPARSE preprocess FILE.c [ROUNDS] [OPTION ...] the same for preprocessing only
       compare.py QXPARSE series [ROUNDS]                        growth with each kind of thing
       compare.py QXPARSE preprocess_series [ROUNDS]             the same for preprocessing only
       compare.py QXPARSE start [ROUNDS]                         an empty file

Compilers that are not installed are left out. Options go to every compiler (-I, -D).
"""
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
OURS = ['--c11', '--abi=eabi', '--no_warnings']


def measure(command):
    """Elapsed seconds, peak memory in KB, status."""
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    elapsed = time.perf_counter() - start
    process.returncode = status
    return elapsed, usage.ru_maxrss, os.waitstatus_to_exitcode(status)


def interleaved(commands, rounds):
    results = {name: [] for name, _ in commands}
    for _ in range(rounds):
        for name, command in commands:
            results[name].append(measure(command))
    return results


def report(path, rounds, candidates, first):
    """Runs what is installed of (name, command) and prints a table; ratios are to `first`."""
    commands = [(name, command) for name, command in candidates if shutil.which(command[0])]
    results = interleaved(commands, rounds)
    base = statistics.median(r[0] for r in results[first])
    print(f'{os.path.basename(path)}: {sum(1 for _ in open(path, errors="replace"))} lines, {rounds} rounds')
    for name, runs in results.items():
        median = statistics.median(r[0] for r in runs)
        memory = max(r[1] for r in runs)
        status = {r[2] for r in runs}
        note = '' if status == {0} else f'  status {sorted(status)}'
        print(f'  {name:34} {median * 1000:9.1f} ms  {median / base:6.2f} x  {memory / 1024:7.1f} MB{note}')


def compare(qxparse, path, rounds, options, directory):
    ours = [qxparse, *OURS, *options]
    output = os.path.join(directory, 'out')
    candidates = [
        ('qxparse -n', [*ours, '-n', path]),
        ('qxparse to .if', [*ours, f'--i_output_file={output}.if', path]),
        ('arm-none-eabi-gcc -fsyntax-only', ['arm-none-eabi-gcc', '-std=gnu11', '-w', *options, '-fsyntax-only', path]),
        ('clang -fsyntax-only', ['clang', '-std=gnu11', '-w', *options, '--target=arm-none-eabi', '-fsyntax-only', path]),
        ('clang -O0 -c', ['clang', '-std=gnu11', '-w', *options, '--target=arm-none-eabi', '-O0', '-c', path, '-o', output + '.o']),
        ('tcc -c', ['tcc', '-w', *options, '-c', path, '-o', output + '.tcc.o']),
    ]
    report(path, rounds, candidates, 'qxparse -n')


def preprocess(qxparse, path, rounds, options, directory):
    output = os.path.join(directory, 'out.i')
    report(path, rounds, [
        ('qxparse -E', [qxparse, '--c11', '--gcc', '--no_warnings', *options, '-E', f'--pp_output_file={output}', path]),
        ('arm-none-eabi-gcc -E', ['arm-none-eabi-gcc', '-std=gnu11', '-w', *options, '-E', path, '-o', output]),
        ('clang -E', ['clang', '-std=gnu11', '-w', *options, '--target=arm-none-eabi', '-E', path, '-o', output]),
        ('tcc -E', ['tcc', '-w', *options, '-E', path, '-o', output]),
    ], 'qxparse -E')


def growth(qxparse, form, sizes, rounds, directory, generator, options):
    """One row of a series: the median for each size."""
    commands = []
    for size in sizes:
        path = os.path.join(directory, f'{form}-{size}.c')
        folder = [os.path.join(directory, f'{form}-{size}')] if generator == 'generate_pp.py' else []
        with open(path, 'w') as stream:
            subprocess.run([sys.executable, os.path.join(HERE, generator), form, str(size), *folder],
                           stdout=stream, check=True)
        commands.append((size, [qxparse, *options(path), *(f'-I{f}' for f in folder), path]))
    row = []
    for size, runs in interleaved(commands, rounds).items():
        median = statistics.median(r[0] for r in runs)
        status = {r[2] for r in runs}
        row.append(f'{size}: {median * 1000:8.1f} ms ({median / size * 1e6:6.2f} us each, '
                   f'{max(r[1] for r in runs) / 1024:6.1f} MB)' + ('' if status == {0} else f' status {sorted(status)}'))
    print(f'{form:15} ' + '   '.join(row))


def series(qxparse, rounds, directory):
    for form, sizes in (('functions', (25000, 50000, 100000)), ('globals', (25000, 50000, 100000)),
                        ('types', (25000, 50000, 100000)), ('macros', (25000, 50000, 100000)),
                        ('strings', (25000, 50000, 100000)), ('cases', (10000, 20000, 40000)),
                        ('elements', (100000, 200000, 400000)), ('members', (10000, 20000, 40000)),
                        ('constants', (10000, 20000, 40000)), ('labels', (10000, 20000, 40000)),
                        ('names', (25000, 50000, 100000))):
        growth(qxparse, form, sizes, rounds, directory, 'generate.py',
               lambda path: [*OURS, f'--i_output_file={path}.if'])


def preprocess_series(qxparse, rounds, directory):
    for form, sizes in (('definitions', (50000, 100000, 200000)), ('invocations', (50000, 100000, 200000)),
                        ('includes', (2000, 4000, 8000)), ('repeated', (50000, 100000, 200000)),
                        ('arguments', (100000, 200000, 400000)), ('argument_tokens', (100000, 200000, 400000)),
                        ('line', (100000, 200000, 400000)), ('nesting', (20000, 40000, 80000)),
                        ('conditions', (50000, 100000, 200000))):
        growth(qxparse, form, sizes, rounds, directory, 'generate_pp.py',
               lambda path: ['--c11', '--gcc', '--no_warnings', '-E', f'--pp_output_file={path}.i'])


def start(qxparse, rounds, directory):
    path = os.path.join(directory, 'empty.c')
    open(path, 'w').close()
    runs = [measure([qxparse, *OURS, f'--i_output_file={path}.if', path]) for _ in range(rounds)]
    print(f'empty file: {statistics.median(r[0] for r in runs) * 1000:.2f} ms, '
          f'{max(r[1] for r in runs) / 1024:.1f} MB, status {sorted({r[2] for r in runs})}')


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    qxparse, form, rest = os.path.abspath(sys.argv[1]), sys.argv[2], sys.argv[3:]
    with tempfile.TemporaryDirectory() as directory:
        if form == 'compare' and rest:
            path = os.path.abspath(rest[0])
            rounds = int(rest[1]) if len(rest) > 1 else 5
            compare(qxparse, path, rounds, rest[2:], directory)
        elif form == 'preprocess' and rest:
            preprocess(qxparse, os.path.abspath(rest[0]), int(rest[1]) if len(rest) > 1 else 5, rest[2:], directory)
        elif form == 'preprocess_series':
            preprocess_series(qxparse, int(rest[0]) if rest else 3, directory)
        elif form == 'series':
            series(qxparse, int(rest[0]) if rest else 3, directory)
        elif form == 'start':
            start(qxparse, int(rest[0]) if rest else 50, directory)
        else:
            sys.exit(__doc__)


if __name__ == '__main__':
    main()
