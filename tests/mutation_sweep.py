#!/usr/bin/env python3
"""Compiles damaged programs: each one cut off after every tenth token, and with tokens left out,
doubled or exchanged at places that a fixed seed chooses.

usage: mutation_sweep.py QXPARSE INCLUDE_DIR OUTPUT_DIR MUTATIONS PROGRAM ...

Whatever stands in the input: the compiler ends within 10 s, by itself and not by a signal or an
internal error, it says why when it refuses, and it leaves no file when it does.
"""
import concurrent.futures
import os
import random
import re
import subprocess
import sys

TOKEN = re.compile(r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'|//[^\n]*|/\*.*?\*/|[A-Za-z_]\w*|\.?\d[\w.]*|\s+|'
                   r'<<=|>>=|\.\.\.|->|\+\+|--|&&|\|\||[-+*/%&|^<>=!]=|<<|>>|##|.', re.S)


def variants(path, count):
    with open(path, encoding='latin-1') as stream:
        tokens = TOKEN.findall(stream.read())
    places = [i for i, t in enumerate(tokens) if not t.isspace()]
    for n in range(10, len(places), 10):
        yield f'cut{n}', ''.join(tokens[:places[n]])
    chooser = random.Random(os.path.basename(path))
    for n in range(count):
        changed = list(tokens)
        i, j = chooser.choice(places), chooser.choice(places)
        form = chooser.randrange(4)
        if form == 0:
            changed[i] = ' '
        elif form == 1:
            changed[i] = tokens[i] + ' ' + tokens[i]
        elif form == 2:
            changed[i], changed[j] = tokens[j], tokens[i]
        else:
            changed[i] = tokens[j]
        yield f'change{n}', ''.join(changed)


def problem_with(job):
    qxparse, include, directory, path, name, text = job
    stem = os.path.join(directory, f'{os.path.basename(path)[:-2]}-{name}')
    source, output = stem + '.c', stem + '.if'
    with open(source, 'w', encoding='latin-1') as stream:
        stream.write(text)
    first = text.split('\n', 1)[0]
    options = first.split('options:', 1)[1].split() if 'options:' in first else ['--c11']
    if '--error_limit' not in first:
        options = [o for o in options if not o.startswith('--list')]
    command = [qxparse, *options, '--abi=eabi', f'-I{include}', f'--i_output_file={output}', source]
    try:
        done = subprocess.run(command, capture_output=True, timeout=10)
    except subprocess.TimeoutExpired:
        return source, 'does not end'
    text = (done.stdout + done.stderr).decode('latin-1')
    found = None
    if done.returncode not in (0, 1, 2, 4) or 'INTERNAL ERROR' in text or 'Sanitizer' in text or 'runtime error' in text:
        lines = [row for row in text.split('\n') if 'ERROR' in row or 'runtime error' in row or 'rror:' in row]
        found = f'status {done.returncode} {(lines or [""])[0][:200]}'
    elif done.returncode >= 2 and 'rror' not in text:
        found = f'status {done.returncode} without a message'
    elif done.returncode >= 2 and os.path.exists(output):
        found = 'a file was left'
    for name in (output, source) if found is None else (output,):
        if os.path.exists(name):
            os.unlink(name)
    return source, found


def main():
    if len(sys.argv) < 6:
        sys.exit(__doc__)
    qxparse, include, directory = (os.path.abspath(a) for a in sys.argv[1:4])
    os.makedirs(directory, exist_ok=True)
    jobs = [(qxparse, include, directory, path, name, text)
            for path in sys.argv[5:] for name, text in variants(path, int(sys.argv[4]))]
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        bad = [r for r in pool.map(problem_with, jobs) if r[1]]
    for source, text in bad:
        print(f'{os.path.basename(source)}: {text}')
    print(f'{len(jobs)} damaged programs, {len(bad)} with a problem')
    return 1 if bad else 0


if __name__ == '__main__':
    sys.exit(main())
