#!/usr/bin/env python3
"""Preprocesses real headers and sources with qxparse and with arm-none-eabi-gcc, both with the macros
that the latter predefines, and tells where the streams of tokens differ. White space and line
markers do not count.

usage: pp_sweep.py QXPARSE WORK_DIR [--c++] FILE_OR_FOLDER ... [-- OPTION ...]

A header (a file without suffix or with .h, .hh, .hpp, .tcc) is included by a file of its own. The
options behind "--" (-I..., -D...) go to both programs. A file that the other compiler refuses is
skipped. Prints one line for each file that differs, with the first tokens that do, and a count.
"""
import concurrent.futures
import os
import re
import subprocess
import sys

HEADER = ('', '.h', '.hh', '.hpp', '.tcc')
SOURCE = ('.c', '.cc', '.cpp')
TOKEN = re.compile(r'''(?:u8|[uUL])?R"(?P<d>[^()\\\s]{0,16})\(.*?\)(?P=d)"\w*
    |(?:u8|[uUL])?"(?:[^"\\\n]|\\.)*"\w*|(?:u8|[uUL])?'(?:[^'\\\n]|\\.)*'\w*
    |\.?\d(?:[eEpP][+-]|'\w|[\w.])*|(?:[^\W\d]|[$])[\w$]*
    |%:%:|\.\.\.|<<=|>>=|->\*|<=>|::|\.\*|\#\#|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-*/%+&^|]=|<:|:>|<%|%>|%:|\S''',
                   re.X | re.S)


def run(command, cwd=None):
    try:
        done = subprocess.run(command, capture_output=True, timeout=60, cwd=cwd)
    except subprocess.TimeoutExpired:
        return 99, '', 'no end within 60 s'
    return done.returncode, done.stdout.decode('utf-8', 'replace'), done.stderr.decode('utf-8', 'replace')


def as_directive(match):
    """An operator _Pragma that stays in the text, as the directive that the other compiler writes."""
    return '\n#pragma ' + match.group(1).replace('\\"', '"').replace('\\\\', '\\') + '\n'


def tokens(text):
    """The tokens of preprocessed text; line markers go, pragmas stay. A splice that stands in a literal
    as it stood in the source joins its lines, as it does for whoever reads the text. Universal names are
    taken for their characters, _Pragma for the directive."""
    lines = [line for line in text.replace('\\\n', '').split('\n') if not re.match(r'\s*#\s*(line\b|\d)', line)]
    lines = [re.sub(r'\b_Pragma ?\(L?"((?:[^"\\]|\\.)*)"\)', as_directive, line) for line in lines]
    text = re.sub(r'\\u([0-9a-fA-F]{4})|\\U000([0-9a-fA-F]{5})', lambda m: chr(int(m[1] or m[2], 16)), '\n'.join(lines))
    return [m.group(0) for m in TOKEN.finditer(text)]


def same_macros(qxparse, ours, theirs, work):
    """A file that takes our predefined macros away and defines those of the other compiler."""
    empty = os.path.join(work, 'empty.c')
    open(empty, 'w').close()
    # a predefined macro may only be taken away in GNU mode, and the file-bound ones are the same anyway
    names = [line.split()[1].split('(')[0] for line in run([qxparse, *ours, '--list_macros', '-E', empty])[1].split('\n')
             if line.startswith('#define ')]
    path = os.path.join(work, 'same_macros.h')
    with open(path, 'w') as out:
        out.write(''.join(f'#undef {name}\n' for name in names))
        out.write(run([*theirs, '-dM', empty])[1])
        # each program answers for itself what it has: here nothing
        out.write(''.join(f'#undef __has_{what}\n#define __has_{what}(x) 0\n' for what in ('attribute', 'cpp_attribute', 'builtin', 'feature', 'extension')))
    return path


def only_lines_differ(expected, found):
    """In the arguments of an invocation over several lines __LINE__ is the line where the argument ends;
    the other compiler takes the line of the name or of the closing parenthesis. Names pasted of it
    differ with it."""
    if len(expected) != len(found):
        return False

    def near(a, b):
        (a_name, a_line), (b_name, b_line) = (re.fullmatch(r'(\w*?)(\d*)', t).groups() if re.fullmatch(r'\w+', t) else (t, '')
                                              for t in (a, b))
        return a_name == b_name and a_line and b_line and abs(int(b_line) - int(a_line)) < 100

    return all(near(a, b) for a, b in zip(expected, found) if a != b)


def main():
    arguments = sys.argv[1:]
    extra = []
    if '--' in arguments:
        extra = arguments[arguments.index('--') + 1:]
        arguments = arguments[:arguments.index('--')]
    cxx = '--c++' in arguments
    arguments = [a for a in arguments if a != '--c++']
    if len(arguments) < 3:
        sys.exit(__doc__)
    qxparse, work = (os.path.abspath(a) for a in arguments[:2])
    os.makedirs(work, exist_ok=True)
    language = ['-x', 'c++', '-std=gnu++14'] if cxx else ['-x', 'c', '-std=gnu11']
    theirs = ['arm-none-eabi-gcc', '-E', '-P', *language]
    ours = ['--c++14', '--g++', '--gnu_version=120201'] if cxx else ['--c11', '--gcc', '--gnu_version=120201']
    search = run(['arm-none-eabi-gcc', '-v', '-E', *language, '/dev/null'])[2]
    folders = search.split('<...> search starts here:\n')[1].split('End of search')[0].split('\n')
    folders = [f'-I{os.path.realpath(f.strip())}' for f in folders if f.strip()]
    macros = same_macros(qxparse, ours, theirs, work)
    ours.append('--preinclude_macros=' + macros)
    theirs += ['-w', '-imacros', macros]
    paths = []
    for a in arguments[2:]:
        if os.path.isdir(a):
            for folder, _, names in sorted(os.walk(a)):
                paths += [os.path.join(folder, n) for n in sorted(names)]
        else:
            paths.append(a)
    paths = [p for p in paths if os.path.splitext(p)[1] in HEADER + SOURCE]

    def compare(job):
        number, path = job
        subject = os.path.abspath(path)
        if os.path.splitext(path)[1] in HEADER:
            subject = os.path.join(work, f'unit{number}.cc' if cxx else f'unit{number}.c')
            with open(subject, 'w') as out:
                out.write(f'#include "{os.path.abspath(path)}"\n')
        own = [e.replace('@', os.path.dirname(os.path.abspath(path))) for e in extra]
        status, expected, _ = run([*theirs, *own, subject])
        if status != 0:
            return path, 'refused', ''
        status, text, messages = run([qxparse, '-E', '-P', *ours, *own, *folders, subject])
        a, b = tokens(expected), tokens(text)
        if a == b and status in (0, 1):
            return path, 'equal', len(a)
        if status in (0, 1) and only_lines_differ(a, b):
            return path, 'lines', ''
        where = next((i for i in range(min(len(a), len(b))) if a[i] != b[i]), min(len(a), len(b)))
        note = messages.split('\n')[0] if status not in (0, 1) else ''
        return path, 'differs', f'{note} expected {" ".join(a[where - 3:where + 5])} | found {" ".join(b[where - 3:where + 5])}'

    results = []
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        for path, kind, text in pool.map(compare, enumerate(paths)):
            results.append((path, kind, text))
            if kind == 'differs':
                print(f'{path}: {text}'[:400], flush=True)
    count = {kind: sum(1 for r in results if r[1] == kind) for kind in ('refused', 'equal', 'lines', 'differs')}
    total = sum(r[2] for r in results if r[1] == 'equal')
    print(f'{len(paths)} files, {count["refused"]} refused by the other compiler, {count["equal"]} equal '
          f'({total} tokens), {count["lines"]} differ in __LINE__ inside long invocations only, {count["differs"]} differ')
    return 1 if count['differs'] else 0


if __name__ == '__main__':
    sys.exit(main())
