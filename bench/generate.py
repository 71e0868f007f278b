#!/usr/bin/env python3
"""Writes C programs for measurements; the same arguments give the same bytes.

usage: generate.py mixed LINES | functions N | globals N | types N | macros N | strings N |
       cases N | elements N | members N | constants N | labels N | names N | SHAPE N

mixed is like a real program: records, tables, macros, functions of all sizes that call each other.
The other forms grow one thing only, so that the cost of it can be seen; SHAPE is a name of
shapes.py, which has the rarer things.
"""
import random
import sys

from shapes import SHAPES


class Program:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.lines = []
        self.functions = []
        self.records = []
        self.globals = []
        self.macros = []

    def add(self, text):
        self.lines.append(text)

    def pick(self, names, start):
        return self.random.choice(names[-start:]) if names else None

    def record(self, number):
        name = f'record_{number}'
        self.add(f'/* The state of unit {number}. */')
        self.add(f'struct {name} {{')
        fields = []
        for i in range(self.random.randint(3, 12)):
            form = self.random.randrange(6)
            field = f'member_{i}'
            if form == 0:
                self.add(f'  unsigned {field} : {self.random.randint(1, 31)};')
            elif form == 1:
                self.add(f'  short {field}[{self.random.randint(2, 9)}];')
                field += '[1]'
            elif form == 2:
                self.add(f'  const char *{field};')
                field = None
            else:
                self.add(f'  {self.random.choice(["int", "unsigned", "char", "long long"])} {field};')
            if field:
                fields.append(field)
        self.add('  int always;')
        self.add('};')
        self.add(f'static struct {name} {name}_instance;')
        self.records.append((name, fields + ['always']))

    def table(self, number):
        name = f'table_{number}'
        rows = self.random.randint(4, 40)
        self.add(f'static const int {name}[{rows * 8}] = {{')
        for _ in range(rows):
            self.add('  ' + ', '.join(str(self.random.randint(-5000, 5000)) for _ in range(8)) + ',')
        self.add('};')
        self.globals.append((name, rows * 8))

    def macro(self, number):
        name = f'COMBINE_{number}'
        form = self.random.randrange(3)
        if form == 0:
            self.add(f'#define {name}(a, b) ((a) * {self.random.randint(2, 90)} + (b))')
        elif form == 1:
            self.add(f'#define {name}(a, b) \\')
            self.add(f'  ((a) > (b) ? (a) - (b) : (b) & 0x{self.random.randrange(65536):x})')
        else:
            self.add(f'#define {name}(a, b) (((a) << {self.random.randint(1, 7)}) ^ (b))')
        self.macros.append(name)

    def value(self, depth):
        r = self.random
        form = r.randrange(11)
        if depth <= 0 or form < 3:
            return r.choice(['a', 'b', 'n', 'i', 'total', str(r.randint(0, 999)), f"'{chr(r.randint(97, 122))}'"])
        if form == 3 and self.macros:
            return f'{self.pick(self.macros, 40)}({self.value(depth - 1)}, {self.value(depth - 1)})'
        if form == 4 and self.globals:
            name, size = self.pick(self.globals, 20)
            return f'{name}[({self.value(depth - 1)}) & {2 ** (size.bit_length() - 1) - 1}]'
        if form == 5 and self.records:
            name, fields = self.pick(self.records, 20)
            return f'(int){name}_instance.{r.choice(fields)}'
        if form == 6 and self.functions:
            return f'{self.pick(self.functions, 60)}({self.value(depth - 1)}, {self.value(depth - 1)}, 0)'
        if form == 7:
            return f'({self.value(depth - 1)} ? {self.value(depth - 1)} : {self.value(depth - 1)})'
        operator = r.choice(['+', '-', '*', '&', '|', '^', '<', '==', '&&', '||'])
        return f'({self.value(depth - 1)} {operator} {self.value(depth - 1)})'

    def statement(self, indent, depth):
        r, pad = self.random, '  ' * indent
        form = r.randrange(10)
        if depth <= 0 or form < 4:
            self.add(f'{pad}{r.choice(["a", "b", "total"])} {r.choice(["=", "+=", "^=", "-="])} {self.value(3)};')
        elif form == 4:
            self.add(f'{pad}if ({self.value(2)}) {{')
            self.statements(indent + 1, depth - 1)
            self.add(f'{pad}}} else {{')
            self.statements(indent + 1, depth - 1)
            self.add(f'{pad}}}')
        elif form == 5:
            self.add(f'{pad}for (i = 0; i < {r.randint(2, 50)}; i++) {{')
            self.statements(indent + 1, depth - 1)
            self.add(f'{pad}}}')
        elif form == 6:
            self.add(f'{pad}switch ({self.value(2)} & 7) {{')
            for case in range(r.randint(2, 6)):
                self.add(f'{pad}  case {case}:')
                self.statement(indent + 2, 0)
                self.add(f'{pad}    break;')
            self.add(f'{pad}  default:')
            self.add(f'{pad}    total++;')
            self.add(f'{pad}}}')
        elif form == 7 and self.records:
            name, fields = self.pick(self.records, 20)
            self.add(f'{pad}{name}_instance.{r.choice(fields)} = {self.value(2)};')
        elif form == 8:
            self.add(f'{pad}/* What remains of it is kept for the next round. */')
            self.add(f'{pad}while (n-- > {r.randint(0, 9)}) total += {self.value(2)};')
        else:
            self.add(f'{pad}log_text("{r.choice(["start", "stop", "value of unit"])} %d\\n", {self.value(2)});')

    def statements(self, indent, depth):
        for _ in range(self.random.randint(1, 4)):
            self.statement(indent, depth)

    def function(self, number):
        name = f'compute_{number}'
        self.add('')
        self.add(f'int {name}(int a, int b, int n)')
        self.add('{')
        self.add('  int i = 0, total = a;')
        for _ in range(self.random.randint(2, 7)):
            self.statements(1, 2)
        self.add('  return total;')
        self.add('}')
        self.functions.append(name)


def mixed(count):
    program = Program(1)
    program.add('extern int log_text(const char *format, ...);')
    number = 0
    while len(program.lines) < count:
        if number % 5 == 0:
            program.record(number)
        if number % 7 == 0:
            program.table(number)
        if number % 3 == 0:
            program.macro(number)
        program.function(number)
        number += 1
    program.add('int main(void) { return ' + ' + '.join(f'{f}(1, 2, 3)' for f in program.functions[-9:]) + '; }')
    return program.lines


def series(form, n):
    if form == 'functions':
        return [f'int f{i}(int a, int b) {{ if (a > b) return a * {i}; return b - a; }}' for i in range(n)]
    if form == 'globals':
        return [f'int g{i} = {i}; extern int *p{i};' for i in range(n)]
    if form == 'types':
        return [f'struct s{i} {{ int a; char *b; struct s{max(i - 1, 0)} *next; }}; typedef struct s{i} t{i}; '
                f'extern t{i} *v{i}(t{i} *);' for i in range(n)]
    if form == 'macros':
        lines = [f'#define M{i}(a) ((a) + {i})' for i in range(n)]
        return lines + [f'int x{i} = M{i}({i});' for i in range(0, n, 4)]
    if form == 'strings':
        return [f'const char *s{i} = "the text of number {i}" " and what follows it";' for i in range(n)]
    if form == 'cases':
        lines = ['int f(int a) { switch (a) {'] + [f'case {i * 3}: return {i};' for i in range(n)]
        return lines + ['default: return -1; } }']
    if form == 'elements':
        return [f'int table[] = {{'] + [f'{i}, {i + 1}, {i * 7}, -{i},' for i in range(n // 4)] + ['};']
    if form == 'members':
        lines = ['struct s {'] + [f'int m{i};' for i in range(n)] + ['} s;', 'int f(void) { int t = 0;']
        return lines + [f't += s.m{i};' for i in range(n)] + ['return t; }']
    if form == 'constants':
        lines = ['long long f(int x) { long long s = 0;'] + [f's += x * {i * 7 + 1}LL + {i}.5;' for i in range(n)]
        return lines + ['return s; }']
    if form == 'labels':
        lines = ['void f(int x) {'] + [f'if (x == {i}) goto l{i};' for i in range(n)]
        return lines + [f'l{i}: x++;' for i in range(n)] + ['}']
    if form == 'names':
        return [f'int some_module_register_{i:06}_with_a_long_end;' for i in range(n)]
    if form in SHAPES:
        return SHAPES[form](n)
    sys.exit(__doc__)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    count = int(sys.argv[2])
    lines = mixed(count) if sys.argv[1] == 'mixed' else series(sys.argv[1], count)
    sys.stdout.write('\n'.join(lines) + '\n')


if __name__ == '__main__':
    main()
