#!/usr/bin/env python3
"""Random macros and conditions: the tokens that qxparse makes of them, compared with those of
arm-none-eabi-gcc.

usage: macro_sweep.py QXPARSE WORK_DIR FIRST_SEED COUNT [--c++]

Each seed makes one program of macros that name, paste and stringize each other and one of forty
conditions. Where one program refuses the macros, the other must too. A program that differs stays
in WORK_DIR under its seed.
"""
import os
import random
import re
import subprocess
import sys

from pp_sweep import tokens

OTHER = 'arm-none-eabi-gcc'
NAMES = ['a', 'b', 'c', 'd', 'f', 'g', 'h', 'k', 'xy', 'ab']
PARAMETERS = ['p', 'q', 'r', 's', 'x', 'y']
WORDS = ['1', '2', 'x', 'y', 'z', 'w1', 'e', 'E', 'L', 'n_', '7u']
SIGNS = ['1', '2', '+', '-', 'x', 'y', 'z', '"s"', "'c'", '.', '0x1', 'e', 'E', '<', '=', '&', '->', 'L']

CONDITION_MACROS = '''#define X 1
#define Y
#define EMPTY
#define F(x) (x*2-1)
#define G F
#define UN -X
'''
# No narrow characters: in a condition the other compiler gives them the sign of char.
OPERANDS = ['0', '1', '2', '-1', '3u', '7L', '0x7fffffffffffffff', '0xffffffffffffffff', '9223372036854775807', '1ull',
            'defined X', 'defined(Y)', 'defined ( Z )', 'X', 'F(1)', 'F(X)', 'G', 'undefd', '010', '0x1F', '0b11', '0b11u',
            '18446744073709551615u', '2147483648', '4294967296', 'UN', "L'a'", "u'b'", 'EMPTY 1']
OPERATORS = ['+', '-', '*', '/', '%', '<<', '>>', '<', '>', '<=', '>=', '==', '!=', '&', '|', '^', '&&', '||']


class MacroProgram:
    """A program of random macros and invocations that mostly have the right number of arguments."""

    def __init__(self, seed, cxx):
        self.random = random.Random(seed)
        # In C++ the other compiler writes a literal and a macro behind it without the blank that they need.
        self.words = [w for w in self.random.choice([WORDS, SIGNS]) if not (cxx and w[0] in '"\'')]
        self.arity = {}  # None: object-like; whether more may follow
        for name in NAMES:
            kind = self.random.random()
            if kind >= 0.1:
                self.arity[name] = (None, False) if kind < 0.4 else (self.random.randint(0, 3), self.random.random() < 0.3)

    def several(self, params, depth, most):
        return ' '.join(self.piece(params, depth) for _ in range(self.random.randint(0, most)))

    def invocation(self, params, depth):
        name = self.random.choice(NAMES)
        count, more = self.arity.get(name, (1, False))
        count = self.random.choice([0, 1, 2]) if count is None else count
        count += self.random.choice([0, 1, 1, 2]) if more else 0
        comma = self.random.choice([',', ' , ', ', '])
        return f'{name}{self.random.choice(["", " "])}({comma.join(self.several(params, depth + 1, 2) for _ in range(count))})'

    def piece(self, params, depth=0):
        kind = self.random.random()
        if params and kind < 0.35:
            return self.random.choice(params)
        if kind < 0.6:
            return self.random.choice(NAMES)
        if kind < 0.68 and depth < 2:
            return f'({self.several(params, depth + 1, 3)})'
        if kind < 0.8 and depth < 3:
            return self.invocation(params, depth)
        return self.random.choice(self.words)

    def definition(self, name):
        count, more = self.arity[name]
        params = self.random.sample(PARAMETERS, count or 0)
        head = name if count is None else f'{name}({",".join(params + ["..."] * more)})'
        params += ['__VA_ARGS__'] * more
        body = []
        for _ in range(self.random.randint(0, 6)):
            stringize = params and self.random.random() < 0.08
            body.append('#' + self.random.choice(params) if stringize else self.piece(params))
            body.append(self.random.choice([' ', ' ', '', '  ', '/**/'] if self.random.random() < 0.85 else ['##', ' ## ']))
        return f'#define {head} {"".join(body[:-1])}'

    def text(self):
        lines = [self.definition(name) for name in self.arity]
        for _ in range(self.random.randint(1, 6)):
            lines.append(' '.join(self.piece([]) for _ in range(self.random.randint(1, 6))))
        return '\n'.join(self.spread(line) for line in lines) + '\n;\n'

    def spread(self, line):
        """The line with comments, splices and, where it is no definition, line ends for some blanks."""
        gaps = [' ', ' ', ' ', '/* c */', ' \\\n', '/* a\n b */']
        gaps += ['\n', '\n\n#if 0\n(\n#endif\n'] if not line.startswith('#') else []
        head, *rest = line.split(' ') if not line.startswith('#') else [' '.join(line.split(' ')[:3]), *line.split(' ')[3:]]
        return head + ''.join(self.random.choice(gaps) + word for word in rest)


def condition(rng, depth=0):
    kind = rng.random()
    if depth > 4 or kind < 0.3:
        return rng.choice(OPERANDS)
    if kind < 0.45:
        return rng.choice(['!', '-', '~', '+', '- -', '!!']) + condition(rng, depth + 1)
    if kind < 0.55:
        return f'({condition(rng, depth + 1)})'
    if kind < 0.63:
        return f'({condition(rng, depth + 1)} ? {condition(rng, depth + 1)} : {condition(rng, depth + 1)})'
    return f'{condition(rng, depth + 1)} {rng.choice(OPERATORS)} {condition(rng, depth + 1)}'


def run(command):
    done = subprocess.run(command, capture_output=True, timeout=60)
    return done.returncode, done.stdout.decode('utf-8', 'replace'), done.stderr.decode('utf-8', 'replace')


def compare_macros(commands, path):
    (status, text, _), (other_status, other_text, other_messages) = (run([*c, path]) for c in commands)
    if status not in (0, 2) and 'Error limit' not in text:
        return f'status {status}'
    if (status != 0) != (other_status != 0) and 'does not give a valid preprocessing token' not in other_messages:
        return f'status {status} and {other_status}'
    if status or other_status:
        return None
    return '' if tokens(text) == tokens(other_text) else 'other tokens'


def compare_conditions(commands, path, first_line):
    ours, theirs = (run([*c, path]) for c in commands)
    refused = [{(int(line) - first_line) // 5 for line in re.findall(pattern, messages) if int(line) >= first_line}
               for pattern, messages in ((r'line (\d+): error', ours[2]), (r':(\d+):\d+: (?:error|note: in exp)', theirs[2]))]
    if refused[0] != refused[1]:
        return f'refused are {sorted(refused[0] ^ refused[1])} by one'
    answers = [{word for word in text.split() if int(word[1:]) not in refused[0]} for text in (ours[1], theirs[1])]
    return f'different are {sorted(answers[0] ^ answers[1])}' if answers[0] != answers[1] else ''


def main():
    qxparse, work, first, count = sys.argv[1], sys.argv[2], int(sys.argv[3]), int(sys.argv[4])
    cxx = '--c++' in sys.argv
    os.makedirs(work, exist_ok=True)
    commands = ([qxparse, '-P', *(['--c++14'] if cxx else ['--c11', '--gcc'])],
                [OTHER, '-E', '-P', '-x', 'c++' if cxx else 'c', '-std=gnu++14' if cxx else '-std=gnu11'])
    compared = faults = 0
    for seed in range(first, first + count):
        path = os.path.join(work, f'macros{seed}.c')
        rng, conditions_path = random.Random(seed), os.path.join(work, f'conditions{seed}.c')
        conditions = [condition(rng) for _ in range(40)]
        with open(path, 'w') as out:
            out.write(MacroProgram(seed, cxx).text())
        with open(conditions_path, 'w') as out:
            out.write(CONDITION_MACROS + ''.join(f'#if {c}\nT{i}\n#else\nF{i}\n#endif\n' for i, c in enumerate(conditions)))
        for name, problem in ((path, compare_macros(commands, path)),
                              (conditions_path, compare_conditions(commands, conditions_path, 7))):
            compared += problem is not None
            if problem:
                faults += 1
                print(f'{name}: {problem}')
            else:
                os.unlink(name)
    print(f'{2 * count} programs, {compared} compared, {faults} differ')
    return 1 if faults else 0


if __name__ == '__main__':
    sys.exit(main())
