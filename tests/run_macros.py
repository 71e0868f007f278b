#!/usr/bin/env python3
"""Macro programs: the stream of tokens that each gives, compared with the stored one and, where it is
installed, with that of arm-none-eabi-gcc.

usage: run_macros.py QXPARSE OUTPUT_DIR [--write] [NAME ...]

A file tests/cases/macros/*.pp holds programs:
    === name [option ...]         a program; options in place of --c11 --gcc
    source
    --- name.h                    (any number of them) a file that it includes
    text
    --- gives [alone]             what comes out; "alone": the other compiler is not asked, since it
    tokens                        does something else on purpose
White space between tokens does not count. --write stores what came. NAME selects programs.
"""
import glob
import os
import re
import shutil
import subprocess
import sys

from pp_sweep import tokens

HERE = os.path.dirname(os.path.abspath(__file__))
OTHER = 'arm-none-eabi-gcc'
DIALECTS = {'--c11': '-std=gnu11', '--c99': '-std=gnu99', '--c89': '-std=gnu89', '--c++14': '-std=gnu++14',
            '--c++03': '-std=gnu++03', '--c++11': '-std=gnu++11'}


def programs(path):
    """The programs of a file: [name, options, {file: text}, alone, expected]."""
    result, part = [], None
    with open(path, encoding='utf-8') as stream:
        for line in stream:
            head = re.match(r'(===|---) (\S+) ?(.*)', line)
            if head and head[1] == '===':
                options = head[3].split() or ['--c11', '--gcc']
                result.append({'name': head[2], 'head': line, 'options': options, 'files': {'program': ''}, 'gives': 'gives'})
                part = 'program'
            elif head:
                part = head[2]
                if part == 'gives':
                    result[-1]['gives'] = line[4:].strip()
                result[-1]['files'][part] = ''
            elif part:
                result[-1]['files'][part] += line
    for program in result:
        program['expected'] = program['files'].pop('gives', '')
    return result


def run(command, folder):
    done = subprocess.run(command, cwd=folder, capture_output=True, timeout=60)
    return done.returncode, done.stdout.decode('utf-8', 'replace'), done.stderr.decode('utf-8', 'replace')


def first_difference(wanted, found):
    at = next((i for i, (a, b) in enumerate(zip(wanted, found)) if a != b), min(len(wanted), len(found)))
    return f'wanted {" ".join(wanted[max(0, at - 4):at + 6])} | found {" ".join(found[max(0, at - 4):at + 6])}'


def check(qxparse, folder, program, has_other):
    """The text that came and the list of what is wrong with it."""
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    for name, text in program['files'].items():
        path = os.path.join(folder, 'program.c' if name == 'program' else name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, 'w', encoding='utf-8') as stream:
            stream.write(text)
    status, text, messages = run([qxparse, '-P', *program['options'], 'program.c'], folder)
    problems = [f'status {status}: {messages[:300]}'] if status else []
    found = tokens(text)
    if tokens(program['expected']) != found:
        problems.append('stored text: ' + first_difference(tokens(program['expected']), found))
    if has_other and 'alone' not in program['gives']:
        words = [DIALECTS.get(o, o) for o in program['options'] if o not in ('--gcc', '--g++')]
        language = 'c++' if any('c++' in o for o in program['options']) else 'c'
        _, other, _ = run([OTHER, '-E', '-P', '-w', '-x', language, *words, 'program.c'], folder)
        if tokens(other) != found:
            problems.append(f'{OTHER}: ' + first_difference(tokens(other), found))
    return text, problems


def main():
    words = [w for w in sys.argv[1:] if w != '--write']
    qxparse, output, selected = os.path.abspath(words[0]), os.path.abspath(words[1]), words[2:]
    has_other = shutil.which(OTHER) is not None
    count = failed = 0
    for path in sorted(glob.glob(os.path.join(HERE, 'cases', 'macros', '*.pp'))):
        stored = ''
        for program in programs(path):
            text = program['expected']
            if not selected or program['name'] in selected:
                text, problems = check(qxparse, os.path.join(output, program['name']), program, has_other)
                count += 1
                failed += bool(problems)
                for problem in problems:
                    print(f'FAILED {os.path.basename(path)} {program["name"]}: {problem}')
            parts = {k: v for k, v in program['files'].items() if k != 'program'}
            stored += program['head'] + program['files']['program']
            stored += ''.join(f'--- {name}\n{body}' for name, body in parts.items())
            stored += f'--- {program["gives"]}\n' + re.sub(r'\n\s*\n+', '\n', text).strip('\n') + '\n'
        if '--write' in sys.argv:
            with open(path, 'w', encoding='utf-8') as stream:
                stream.write(stored)
    print(f'macro programs: {count - failed} passed, {failed} failed'
          + ('' if has_other else f' ({OTHER} is not installed)'))
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
