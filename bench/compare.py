#!/usr/bin/env python3
"""Measures qxparse beside other compilers: the same input, runs interleaved, medians.

usage: compare.py QXPARSE compare FILE.c [ROUNDS] [OPTION ...]   time and memory beside others
       compare.py QXPARSE preprocess FILE.c [ROUNDS] [OPTION ...] the same for preprocessing only
       compare.py QXPARSE series [ROUNDS]                        growth with each kind of thing
       compare.py QXPARSE preprocess_series [ROUNDS]             the same for preprocessing only
       compare.py QXPARSE shapes MODE [NAME ...]                 growth with everything that can repeat
       compare.py QXPARSE limits MODE [NAME ...]                 ten times as much in 2 GiB and 10 s
       compare.py QXPARSE start [ROUNDS]                         an empty file

Compilers that are not installed are left out. Options go to every compiler (-I, -D).
MODE is E, n or if; NAME is a name of shapes.py (all of them). Each shape grows until a run takes
long enough to be measured, then twice by two; "grows" stands where the time (of the processor, so
that other programs disturb little) or the memory became more than 2.6 times as much. A shape that
ends in a message is done when it says so.
"""
import os
import resource
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from shapes import SHAPES

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


MODES = {'E': lambda path: ['-E', f'--pp_output_file={path}.out'], 'n': lambda path: ['-n'],
         'if': lambda path: [f'--i_output_file={path}.out']}


def run_shape(qxparse, mode, name, size, directory, memory=0):
    """Seconds of the processor, peak memory in MB, status, the message that tells why."""
    path = os.path.join(directory, name + '.c')
    with open(path, 'w') as stream:
        subprocess.run([sys.executable, os.path.join(HERE, 'generate.py'), name, str(size)], stdout=stream, check=True)

    def prepare():
        resource.setrlimit(resource.RLIMIT_CPU, (20, 25))
        if memory:
            resource.setrlimit(resource.RLIMIT_AS, (memory, memory))
    with open(path + '.err', 'w+', errors='replace') as messages:
        process = subprocess.Popen([qxparse, '--c11', '--gcc', '--abi=eabi', '--error_limit=100000000', *MODES[mode](path), path],
                                   stdout=subprocess.DEVNULL, stderr=messages, preexec_fn=prepare)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = status
        messages.seek(0)
        text = messages.read(1 << 20)
    for name in os.listdir(directory):
        os.unlink(os.path.join(directory, name))
    lines = [line for line in text.split('\n') if 'rror: ' in line or 'INTERNAL' in line]
    return (usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024, os.waitstatus_to_exitcode(status),
            lines[0].replace(path, '')[:90] if lines else '')


def measurable_size(qxparse, mode, name, directory):
    size = 1000
    while True:
        run = run_shape(qxparse, mode, name, size, directory)
        if run[0] >= 0.15 or size >= 256000 or run[2] not in (0, 2, 4):
            return size, run
        size *= 2 if run[0] > 0.06 else 4


def shapes(qxparse, mode, names, directory):
    for name in names:
        size, run = measurable_size(qxparse, mode, name, directory)
        row, grows = [(size, run)], False
        while len(row) < 3 and row[-1][1][0] < 5:
            size *= 2
            before, run = row[-1][1], run_shape(qxparse, mode, name, size, directory)
            row.append((size, run))
            grows |= run[0] > 2.6 * max(before[0], 0.08) or run[1] > 2.6 * max(before[1], 30)
        print(f'{"grows" if grows else "":6}{name:24}' +
              '   '.join(f'{n}: {run[0] * 1000:6.0f} ms {run[1]:5.0f} MB' for n, run in row) +
              (f'   status {run[2]}{run[3]}' if run[2] != 0 else ''), flush=True)


def limits(qxparse, mode, names, directory):
    for name in names:
        size, _ = measurable_size(qxparse, mode, name, directory)
        seconds, memory, status, message = run_shape(qxparse, mode, name, size * 10, directory, 2 << 30)
        bad = status not in (0, 2, 4) or seconds > 10 or 'INTERNAL' in message
        print(f'{"bad" if bad else "":6}{name:24}{size * 10:9} {seconds:6.2f} s {memory:5.0f} MB   status {status} {message}', flush=True)


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
        elif form in ('shapes', 'limits') and rest and rest[0] in MODES:
            (shapes if form == 'shapes' else limits)(qxparse, rest[0], rest[1:] or list(SHAPES), directory)
        elif form == 'start':
            start(qxparse, int(rest[0]) if rest else 50, directory)
        else:
            sys.exit(__doc__)


if __name__ == '__main__':
    main()
