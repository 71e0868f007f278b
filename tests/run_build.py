#!/usr/bin/env python3
"""Builds a small project with make and with ninja, which read the lists of dependencies that qxparse
writes, and behind ccache, and checks that a change rebuilds what depends on it and nothing else.

usage: run_build.py QXPARSE OUTPUT_DIR

A build tool that is not installed is passed over and named.
"""
import os
import shutil
import subprocess
import sys
import time

HERE = os.path.dirname(os.path.abspath(__file__))
ALL = ['main.c', 'table.c', 'text.c']
# a header that changes, and what must be built again
CHANGES = [(None, []), ('include/size.h', ['main.c', 'table.c']), ('include/text.h', ['main.c', 'text.c']),
           ('table.c', ['table.c'])]
problems = 0


def check(what, found, expected):
    global problems
    if found != expected:
        problems += 1
        print(f'{what}: compiled {found}, expected {expected}')


class Project:
    """A fresh copy of the project, and the log of what is compiled in it."""

    def __init__(self, name, qxparse, output_dir):
        self.folder = os.path.join(output_dir, name)
        shutil.rmtree(self.folder, ignore_errors=True)
        shutil.copytree(os.path.join(HERE, 'project'), self.folder)
        self.log = os.path.join(self.folder, 'log')
        # the caller's own settings of the cache stay outside
        outside = {k: v for k, v in os.environ.items() if not k.startswith('CCACHE_')}
        self.environment = {**outside, 'QXPARSE': qxparse, 'QXCC_LOG': self.log}

    def build(self, command, **environment):
        """The sources that the build compiled."""
        open(self.log, 'w').close()
        done = subprocess.run(command, cwd=self.folder, capture_output=True, text=True,
                              env={**self.environment, **environment})
        if done.returncode != 0:
            sys.exit(f'{" ".join(command)} failed:\n{done.stdout}{done.stderr}')
        with open(self.log) as stream:
            return sorted(line.split()[1] for line in stream)

    def change(self, path, text):
        time.sleep(0.05)  # file systems count time in steps
        with open(os.path.join(self.folder, path), 'a') as stream:
            stream.write(text)
        time.sleep(0.05)

    def clean(self):
        for name in os.listdir(self.folder):
            if name.endswith('.if'):
                os.remove(os.path.join(self.folder, name))


def check_dependencies(tool, qxparse, output_dir):
    project = Project(tool, qxparse, output_dir)
    check(f'{tool}, first build', project.build([tool]), ALL)
    for path, expected in CHANGES:
        if path is not None:
            project.change(path, '/* changed */\n')
        check(f'{tool}, changed {path}', project.build([tool]), expected)


def check_cache(qxparse, output_dir):
    """Behind a compiler cache only a change of the tokens compiles again."""
    project = Project('ccache', qxparse, output_dir)
    cache = {'CCACHE_DIR': os.path.join(project.folder, 'cache'), 'CCACHE_COMPILERTYPE': 'other', 'LAUNCHER': 'ccache'}
    command = ['make', '-B']
    check('ccache, empty', project.build(command, **cache), ALL)
    names = [n for n in sorted(os.listdir(project.folder)) if n.endswith('.if')]
    first = {n: open(os.path.join(project.folder, n), 'rb').read() for n in names}
    project.clean()
    check('ccache, again', project.build(command, **cache), [])
    for name in names:
        if open(os.path.join(project.folder, name), 'rb').read() != first[name]:
            check(f'ccache, {name}', 'another file', 'the same file')
    project.change('include/size.h', '#define UNUSED 1\n')
    check('ccache, another macro that nobody uses', project.build(command, **cache), [])
    project.change('include/size.h', '#undef SIZE\n#define SIZE 5\n')
    check('ccache, another value', project.build(command, **cache), ['main.c', 'table.c'])


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    qxparse, output_dir = (os.path.abspath(a) for a in sys.argv[1:])
    tools = [t for t in ('make', 'ninja') if shutil.which(t)]
    for tool in tools:
        check_dependencies(tool, qxparse, output_dir)
    if 'make' in tools and shutil.which('ccache'):
        check_cache(qxparse, output_dir)
        tools.append('ccache')
    absent = [t for t in ('make', 'ninja', 'ccache') if t not in tools]
    print(f'built with {", ".join(tools)}{"; not installed: " + ", ".join(absent) if absent else ""}: {problems} problems')
    return 1 if problems or not tools else 0


if __name__ == '__main__':
    sys.exit(main())
