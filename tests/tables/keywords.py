#!/usr/bin/env python3
"""Every keyword, and every kind of token, is met by a test or stands in keywords_without_case.txt.

usage: keywords.py ROOT [--write]

A keyword is met where it stands as a word in the code of a case or program (not in a comment or in
quotes), or in a text that a unit test gives to the tokenizer; the list of all keywords by dialect
does not count. A kind of token is met by a keyword that has it, by its spelling in a case, or by
its name in a unit test. The list of those not met has one word and a reason a line; kinds stand
there as tok_NAME. --write adds what is missing, without a reason, for somebody to fill in.
"""
import os
import re
import sys

QUOTED = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:[^"\\\n]|\\.)*"|\'(?:[^\'\\\n]|\\.)*\'', re.S)
STRING = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
WORD = re.compile(r'[A-Za-z_]\w*')
LISTS_ALL = 'keywords_test.cpp'


def text_of(path):
    with open(path, encoding='latin-1') as stream:
        return stream.read()


def files(folder):
    for directory, _, names in sorted(os.walk(folder)):
        for name in sorted(names):
            if name.endswith(('.c', '.cpp', '.h')):
                yield os.path.join(directory, name)


def table(root):
    """The kinds (name, spelling, class) and the kind of each keyword."""
    text = text_of(os.path.join(root, 'src/source/token_kinds.def'))
    kinds = re.findall(r'^TOKEN\(\d+, (\w+), "([^"]+)", (\w+)\)', text, re.M)
    words = {}
    for macro, kind, word in re.findall(r'^(KEYWORD|GNU_KEYWORD)\((\w+), "([^"]+)"', text, re.M):
        spellings = [word]
        if macro == 'GNU_KEYWORD':
            spellings = [word, word + '__'] if word[0] == '_' else [word, f'__{word}', f'__{word}__']
        for spelling in spellings:
            words[spelling] = kind
    for word in re.findall(r'^DISABLED_KEYWORD\("([^"]+)"', text, re.M):
        words.setdefault(word, 'unimplemented')
    return kinds, words


def met(root):
    """Words and other texts of cases and programs, words of the unit tests' texts, kinds they name."""
    code, words, names = '', set(), set()
    for folder in ('tests/cases', 'tests/programs', 'tests/project'):
        for path in files(os.path.join(root, folder)):
            code += QUOTED.sub(' ', text_of(path)) + '\n'
    words.update(WORD.findall(code))
    for path in files(os.path.join(root, 'tests/unit')):
        text = text_of(path)
        names.update(re.findall(r'\btok_(\w+)', text))
        if os.path.basename(path) != LISTS_ALL:
            for string in STRING.findall(text):
                words.update(WORD.findall(string))
    return code, words, names


def main():
    root = os.path.abspath(sys.argv[1])
    list_path = os.path.join(root, 'tests/tables/keywords_without_case.txt')
    kinds, keywords = table(root)
    code, words, names = met(root)
    unmet = {word for word in keywords if word not in words}
    met_kinds = {kind for word, kind in keywords.items() if word in words}
    for name, spelling, token_class in kinds:
        by_spelling = token_class in ('punctuator', 'opener', 'closer') and spelling in code
        if name not in names and name not in met_kinds and not by_spelling:
            unmet.add('tok_' + name)
    lines = [line.split(None, 1) for line in text_of(list_path).splitlines() if line.strip()]
    listed = {line[0]: line[1] if len(line) > 1 else '' for line in lines}
    if '--write' in sys.argv:
        with open(list_path, 'w') as stream:
            for word in sorted(unmet):
                stream.write(f'{word} {listed.get(word, "")}'.rstrip() + '\n')
        return 0
    problems = [f'{word} is met by no case' for word in sorted(unmet) if word not in listed]
    problems += [f'{word} is in the list, but a case meets it or nothing has it'
                 for word in sorted(listed) if word not in unmet]
    problems += [f'{word} is in the list without a reason' for word in sorted(listed) if not listed[word]]
    for problem in problems:
        print(problem)
    print(f'keywords: {len(keywords)} words and {len(kinds)} kinds, {len(unmet)} listed as unmet')
    return 1 if problems else 0


if __name__ == '__main__':
    sys.exit(main())
