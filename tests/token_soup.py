#!/usr/bin/env python3
"""Compiles random rows of tokens in all dialects: nothing may crash, hang, tell of an internal error
or leave a file behind.

usage: token_soup.py QXPARSE OUTPUT_DIR COUNT [--first=SEED]

A text that goes wrong is kept in OUTPUT_DIR.
"""
import os
import random
import subprocess
import sys

WORDS = ('int char void struct union enum typedef static extern const volatile if else for while do switch case '
         'default break continue return goto sizeof _Alignof _Generic _Static_assert __attribute__ asm inline register '
         'auto float double long short unsigned signed _Bool __typeof__ __extension__ __builtin_va_arg '
         '__builtin_offsetof __builtin_choose_expr __label__').split()
SIGNS = ('{ } ( ) [ ] ; , . -> + - * / % = == != < > <= >= << >> && || ! ~ & | ^ ? : ... ++ -- += -= # ##').split()
NAMES = list('abcxyzfgst')
TEXTS = ['0', '1', '2', '3.5', '"s"', "'c'", '0x7f', '1.0f', '10LL', '((', '({', '})', '\n', '\n#define M(x) x\n', 'M(',
         '\n#if 1\n', '\n#else\n', '\n#endif\n', '\n#include "x.h"\n', '/*', '*/', '//', '\\\n', '"', "'",
         '\n#pragma pack(1)\n', '__attribute__((packed))', 'struct s { int a; } ', 'int f(int x) {', '}',
         'for (int i = 0;', 'switch (a) { case 1:']
OPTIONS = [['--c11', '--gcc'], ['--c89', '--strict'], ['--old_c'], ['--c99', '--strict'], ['--c11', '--clang'], ['-E']]


def try_seed(qxparse, directory, seed):
    """What went wrong; null: nothing."""
    chance = random.Random(seed)
    groups = [WORDS, SIGNS, NAMES, TEXTS, SIGNS, NAMES]
    text = ' '.join(chance.choice(chance.choice(groups)) for _ in range(chance.randrange(5, 120))) + '\n'
    path, output = os.path.join(directory, f'soup{seed}.c'), os.path.join(directory, 'soup.if')
    with open(path, 'w') as stream:
        stream.write(text)
    options = chance.choice(OPTIONS)
    try:
        run = subprocess.run([qxparse, *options, f'--i_output_file={output}', path], capture_output=True, timeout=30)
    except subprocess.TimeoutExpired:
        return f'{options}: does not end'
    left = os.path.exists(output)
    if left:
        os.unlink(output)
    if run.returncode not in (0, 2, 4) or b'Internal error' in run.stderr or b'runtime error' in run.stderr:
        return f'{options}: status {run.returncode}: {run.stderr.decode(errors="replace")[-300:]}'
    if left and run.returncode != 0:
        return f'{options}: a failed compilation left a file'
    os.unlink(path)
    return None


def main():
    options = dict(a[2:].split('=', 1) for a in sys.argv if a.startswith('--'))
    arguments = [a for a in sys.argv[1:] if not a.startswith('--')]
    if len(arguments) != 3:
        sys.exit(__doc__)
    qxparse, directory, count = os.path.abspath(arguments[0]), os.path.abspath(arguments[1]), int(arguments[2])
    os.makedirs(directory, exist_ok=True)
    first, failed = int(options.get('first', 1)), 0
    for seed in range(first, first + count):
        problem = try_seed(qxparse, directory, seed)
        if problem:
            failed += 1
            print(f'seed {seed}: {problem}', flush=True)
    print(f'{count} rows of tokens, {failed} with a problem')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
