#!/usr/bin/env python3
"""Writes inputs for measurements of the preprocessor; the same arguments give the same bytes.

usage: generate_pp.py macro_heavy LINES | headers N DIR | definitions N | invocations N | includes N DIR |
       repeated N DIR | arguments N | argument_tokens N | line N | nesting N | conditions N

macro_heavy is C whose text comes from macros: lists that are expanded several times, wrappers in
wrappers, pasted names, texts, variable arguments. headers is a source with N small headers that
include each other. The other forms grow one thing only. The forms with DIR write their headers
there. The source goes to the standard output.
"""
import os
import random
import sys

PRELUDE = '''#define CAT_(a, b) a##b
#define CAT(a, b) CAT_(a, b)
#define STR_(x) #x
#define STR(x) STR_(x)
#define FIRST(a, ...) a
#define REST(a, ...) __VA_ARGS__
#define COUNT_(a, b, c, d, e, f, n, ...) n
#define COUNT(...) COUNT_(__VA_ARGS__, 6, 5, 4, 3, 2, 1, 0)
#define LIKELY(x) __builtin_expect(!!(x), 1)
#define MIN(a, b) ((a) < (b) ? (a) : (b))
#define MAX(a, b) ((a) > (b) ? (a) : (b))
#define CLAMP(x, low, high) MIN(MAX(x, low), high)
#define BIT(n) (1u << (n))
#define FIELD(value, shift, width) (((value) >> (shift)) & (BIT(width) - 1u))
#define SET_FIELD(word, value, shift, width) ((word) = ((word) & ~((BIT(width) - 1u) << (shift))) | ((value) << (shift)))
#define CHECK(condition, ...) do { if (!LIKELY(condition)) fail(__FILE__, __LINE__, STR(condition), COUNT(__VA_ARGS__), __VA_ARGS__); } while (0)
#define REPEAT_2(m, x) m(x, 0) m(x, 1)
#define REPEAT_4(m, x) REPEAT_2(m, x) REPEAT_2(m, CAT(x, _))
#define MEMBER(x, n) int CAT(CAT(x, n), _member);
void fail(const char *, int, const char *, int, ...);
'''


def macro_heavy(count):
    r = random.Random(2)
    lines = PRELUDE.split('\n')[:-1]
    number = 0
    while len(lines) < count:
        name = f'unit_{number}'
        items = [f'X({name}_item_{i}, {r.randint(0, 9999)}, "text {i}")' for i in range(r.randint(4, 9))]
        lines.append(f'#define {name.upper()}_LIST(X) \\')
        lines += [f'  {item} \\' for item in items[:-1]] + [f'  {items[-1]}']
        lines.append(f'#define {name.upper()}_ENUM(item, value, text) item = value,')
        lines.append(f'#define {name.upper()}_TEXT(item, value, text) [FIRST(item, value)] = STR(item) ": " text,')
        lines.append(f'enum {name} {{ {name.upper()}_LIST({name.upper()}_ENUM) CAT({name}_, end) }};')
        lines.append(f'static const char *const {name}_texts[] = {{ {name.upper()}_LIST({name.upper()}_TEXT) 0 }};')
        lines.append(f'struct {name}_members {{ REPEAT_4(MEMBER, {name}) }};')
        lines.append(f'unsigned {name}_step(unsigned a, unsigned b) {{')
        for _ in range(r.randint(3, 9)):
            form = r.randrange(4)
            if form == 0:
                lines.append(f'  a = CLAMP(FIELD(a, {r.randint(0, 9)}, {r.randint(2, 9)}), MIN(b, {r.randint(0, 9)}u), MAX(a, b));')
            elif form == 1:
                lines.append(f'  SET_FIELD(b, FIELD(a, {r.randint(0, 7)}, 3) + BIT({r.randint(0, 9)}), {r.randint(0, 9)}, 4);')
            elif form == 2:
                lines.append(f'  CHECK(a != {r.randint(0, 99)} && b < MAX(a, {r.randint(0, 99)}), a, b, {r.randint(0, 9)});')
            else:
                lines.append(f'  b += CAT({name}_item_, {r.randint(0, 3)}) + sizeof STR(CAT({name}, _{r.randint(0, 9)}));')
        lines.append('  return a ^ b;')
        lines.append('}')
        number += 1
    return lines


def write(folder, name, lines):
    os.makedirs(os.path.dirname(os.path.join(folder, name)), exist_ok=True)
    with open(os.path.join(folder, name), 'w') as out:
        out.write('\n'.join(lines) + '\n')


def headers(count, folder):
    """Headers that include up to six earlier ones, with guards of three forms, and little else."""
    r = random.Random(3)
    for i in range(count):
        lines = ['/*', f' * Part {i} of the interface.', ' *', ' * ' + 'The terms of use stand here. ' * 3, ' */']
        lines += {0: [f'#ifndef H{i}_H', f'#define H{i}_H'], 1: [f'#if !defined(H{i}_H)', f'#define H{i}_H'],
                  2: ['#pragma once']}[i % 3]
        lines += [f'#include "part{j % 10}/h{j}.h"' for j in sorted(r.sample(range(i), min(i, r.randint(0, 6))))]
        lines += [f'#define H{i}_{k}(x) ((x) + {k})' for k in range(r.randint(2, 12))]
        lines += ['#ifdef __cplusplus', 'extern "C" {', '#endif']
        lines += [f'extern int h{i}_f{k}(int a, const char *b);  /* call {k} */' for k in range(r.randint(2, 12))]
        lines += ['#ifdef __cplusplus', '}', '#endif', ''] + (['#endif'] if i % 3 != 2 else [])
        write(folder, f'part{i % 10}/h{i}.h', lines)
    return [f'#include "part{i % 10}/h{i}.h"' for i in range(count)]


def growth(form, n, folder):
    if form == 'definitions':
        return [f'#define NAME_{i}(a, b) ((a) + {i} * (b))' for i in range(n)]
    if form == 'invocations':
        return PRELUDE.split('\n')[:-1] + [f'int v{i} = CLAMP({i}, MIN({i}, 3), 7);' for i in range(n)]
    if form == 'includes':
        for i in range(n):
            write(folder, f'i{i}.h', [f'int i{i};'])
        return [f'#include "i{i}.h"' for i in range(n)]
    if form == 'repeated':
        write(folder, 'guarded.h', ['#ifndef GUARDED_H', '#define GUARDED_H', 'int once;', '#endif'])
        return ['#include "guarded.h"' for _ in range(n)]
    if form == 'arguments':
        return ['#define all(...) __VA_ARGS__', 'int t[] = { all(' + ', '.join(str(i) for i in range(n)) + ') };']
    if form == 'argument_tokens':
        return ['#define twice(x) x x', '#define id(x) x', 'twice(id(' + ' '.join(f'a{i}' for i in range(n)) + '))']
    if form == 'line':
        return ['int x = ' + ' + '.join(str(i) for i in range(n)) + ';']
    if form == 'nesting':
        return ['#define f(x) (x)'] + ['f(' * 100 + str(i) + ')' * 100 for i in range(n // 100)]
    if form == 'conditions':
        return [line for i in range(n) for line in (f'#if {i} % 3 == 0 && !defined(X{i})', f'int c{i};', '#else', f'int d{i};', '#endif')]
    sys.exit(__doc__)


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    form, count = sys.argv[1], int(sys.argv[2])
    folder = sys.argv[3] if len(sys.argv) > 3 else None
    if folder is None and form in ('headers', 'includes', 'repeated'):
        sys.exit(__doc__)
    if form == 'macro_heavy':
        lines = macro_heavy(count)
    elif form == 'headers':
        lines = headers(count, folder)
    else:
        lines = growth(form, count, folder)
    sys.stdout.write('\n'.join(lines) + '\n')


if __name__ == '__main__':
    main()
