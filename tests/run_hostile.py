#!/usr/bin/env python3
"""The program against a hostile world: signals, limits, files that cannot be read or written, and
sources made to break it. However a run ends, it must say so, with the right status, in good time,
and must leave no output that is not whole.

usage: run_hostile.py QXPARSE OUTPUT_DIR [--large] [NAME ...]

--large makes the sources ten times as long; NAME chooses groups (signals, limits, files, streams,
sources). Works without privileges, and in a build with sanitizers all but the limits of memory.
"""
import os
import random
import resource
import signal
import subprocess
import sys
import threading
import time

LONGEST_RUN = 60  # seconds; a run that takes longer is killed, which no group expects
TERMINATED = 'Compilation terminated.'
TOO_LARGE = 'program too large or complicated to compile'
FUNCTION = 'int g{0}; int f{0}(int a, int b) {{ for (a = {0}; a < b; a++) g{0} += a * b - g{0}; return a; }}\n'
ENDLESS = '#define A0 x\n' + ''.join(f'#define A{i + 1} {f"A{i} " * 10}\n' for i in range(40)) + 'int f(void) { A40; }\n'


class Run:
    """One run of the program in the output folder; what it wrote and how it ended."""
    qxparse = ''
    limits = {}  # for all runs of a group
    failures = 0
    count = 0

    def __init__(self, *words, wait_for=None, work=0, send=None, limits=None, stdout=None, stderr=None, closed=()):
        """wait_for, work: the signal is sent when a file is there and so many seconds of time were used."""
        self.words = words

        def prepare():
            for kind, value in {**Run.limits, **(limits or {}), resource.RLIMIT_CORE: 0}.items():
                resource.setrlimit(kind, (value, value + 5 if kind == resource.RLIMIT_CPU else value))
            for descriptor in closed:
                os.close(descriptor)
        start = time.monotonic()
        errors = open('messages', 'w+b')  # a file, since a pipe would have to be emptied
        process = subprocess.Popen([Run.qxparse, *words], preexec_fn=prepare, stdin=subprocess.DEVNULL,
                                   stdout=stdout or subprocess.DEVNULL, stderr=stderr or errors)
        watch = threading.Timer(LONGEST_RUN, process.kill)
        watch.start()
        while wait_for and process.poll() is None and not os.path.exists(wait_for):
            time.sleep(0.001)
        while work and process.poll() is None and seconds_used(process.pid) < work:
            time.sleep(0.01)
        if send and process.returncode is None:
            process.send_signal(send)
        _, status, usage = os.wait4(process.pid, 0) if process.returncode is None else (0, 0, None)
        watch.cancel()
        process.returncode = self.status = os.waitstatus_to_exitcode(status)
        self.seconds = time.monotonic() - start
        self.cpu = usage.ru_utime + usage.ru_stime if usage else 0
        self.megabytes = usage.ru_maxrss / 1024 if usage else 0
        errors.seek(0)
        self.messages = errors.read().decode('utf-8', 'replace')
        errors.close()

    def expect(self, status, *texts, no=()):
        """The status (or one of several), and texts among the messages; files that must not be there."""
        Run.count += 1
        problems = []
        if self.status not in (status if isinstance(status, tuple) else (status,)):
            problems.append(f'status {self.status}, not {status}')
        problems += [f'no {text!r}' for text in texts if text not in self.messages]
        problems += [f'{name} is left' for name in ([no] if isinstance(no, str) else no) if os.path.exists(name)]
        if problems:
            Run.failures += 1
            print('FAILED', ' '.join(self.words)[:200], *problems, self.messages[-600:], sep='\n    ')
        return not problems


def seconds_used(pid):
    with open(f'/proc/{pid}/stat', encoding='latin-1') as stream:
        fields = stream.read().rsplit(')', 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf('SC_CLK_TCK')


def write(name, text):
    with open(name, 'wb') as stream:
        stream.write(text if isinstance(text, bytes) else text.encode())


def remove(*names):
    for name in names:
        if os.path.lexists(name):
            os.unlink(name)


# ---- Signals -----------------------------------------------------------------------------------

REASONS = {
    signal.SIGILL: 'executed an illegal instruction', signal.SIGTRAP: 'received a TRAP signal',
    signal.SIGABRT: 'had an internal inconsistency and aborted', signal.SIGBUS: 'experienced a bus alignment fault',
    signal.SIGFPE: 'received a floating point exception', signal.SIGSEGV: 'experienced a segmentation fault',
    signal.SIGXCPU: 'exceeded the CPU time limit', signal.SIGSYS: 'experienced a bad system call',
}


def signals():
    write('endless.c', ENDLESS)
    write('many.c', ''.join(FUNCTION.format(i) for i in range(6000)))
    write('bad.c', 'int x = y;\n' + ENDLESS)

    def interrupt(sig, source='endless.c', file='out.i', *words):
        remove('out.i', 'out.if', 'out.lst')
        return Run('--c', *(words or ('-E', '--pp_output_file=out.i')), source, wait_for=file, send=sig,
                   work=0.15 if source == 'endless.c' else 0)
    for sig in (signal.SIGINT, signal.SIGTERM):
        run = interrupt(sig)
        run.expect(4, '\n' + TERMINATED, no='out.i')
        if 'catastrophic' in run.messages or 'error' in run.messages:
            run.expect('no sign-off without an error')
    interrupt(signal.SIGHUP).expect(2, f'[{Run.qxparse} forced exit]', no='out.i')
    for sig, reason in REASONS.items():
        interrupt(sig).expect(2, f'\nINTERNAL ERROR: {Run.qxparse} {reason}\n' + ' ' * 18 + 'while processing function ',
                              'file endless.c line 42\n\nThis is caused by a defect in the QX EABI C/C++ Parser.\n',
                              'Include the .pp file created by option --preproc_with_comment\n\n', no='out.i')
    interrupt(signal.SIGSEGV, 'endless.c', 'out.lst', '--list=out.lst', '-n').expect(
        2, 'while processing function f file endless.c line 42')
    for sig in (signal.SIGQUIT, signal.SIGALRM, signal.SIGUSR1):
        interrupt(sig).expect(-sig, no='out.i')
    for _ in range(5):  # the back end may be through before the signal comes
        run = interrupt(signal.SIGTERM, 'many.c', 'out.if', '--i_output_file=out.if')
        if run.status != 0:
            break
    run.expect(4, TERMINATED, no='out.if')
    Run('--c', '-n', 'endless.c', limits={resource.RLIMIT_CPU: 1}).expect(2, REASONS[signal.SIGXCPU])


def has_sanitizers():
    """Their shadow memory does not go with a limit of address space."""
    return Run('--toolversion', limits={resource.RLIMIT_AS: 1 << 30}).status != 0


# ---- Limits ------------------------------------------------------------------------------------

def limits():
    write('small.c', 'int x;\n')
    write('many.c', ''.join(FUNCTION.format(i) for i in range(1500)))
    write('deep.c', 'int x = ' + '(' * 15000 + '1' + ')' * 15000 + ';\n')

    def run(file_size, *words):
        remove('out.if', 'out.i', 'out.lst')
        return Run('--c', *words, limits={resource.RLIMIT_FSIZE: file_size})
    for size in (4096, 100000):
        run(size, '--i_output_file=out.if', 'many.c').expect(
            4, 'atal error: error while writing generated IL output file', TERMINATED, no='out.if')
        run(size, '-E', '--pp_output_file=out.i', 'many.c').expect(
            4, 'error while writing preprocessing output file: File too large', no='out.i')
        run(size, '--list=out.lst', '-n', 'many.c').expect(4, 'error while writing raw listing file', TERMINATED)
        run(size, '--list=out.lst', '--i_output_file=out.if', 'many.c').expect(4, TERMINATED, no='out.if')
        run(size, '--xref=out.lst', '--i_output_file=out.if', 'many.c').expect(
            4, 'error while writing cross-reference file: File too large', no='out.if')
    # The listing fails when the intermediate file is whole: it goes too.
    write('listed.c', '/* ' + '\n'.join(['long' * 20] * 200) + ' */ int x;\n')
    run(8192, '--list=out.lst', '--i_output_file=out.if', 'listed.c').expect(
        4, 'error while writing raw listing file', TERMINATED, no='out.if')
    mib = 1 << 20
    if has_sanitizers():
        print('limits of memory: not in this build')
        return
    # Enough for a small program is enough: what is reserved for large ones gives way.
    Run('--c', '-n', 'small.c', limits={resource.RLIMIT_AS: 64 * mib}).expect(0)
    ended_early = 0
    for size in [*range(10, 40, 2), *range(40, 200, 20)]:
        remove('out.if')
        run = Run('--c', '--i_output_file=out.if', 'many.c', limits={resource.RLIMIT_AS: size * mib})
        if run.status == 0:
            continue
        ended_early += 1
        if run.status == 4:
            if 'internal buffer' not in run.messages:
                run.expect(4, 'atal error: out of memory\n', '1 catastrophic error detected', TERMINATED, no='out.if')
        elif run.status == 1:
            run.expect(1, 'ut of memory', no='out.if')
        else:
            run.expect(127, 'loading shared libraries')
    if ended_early == 0:
        run.expect('a size that is too small')
    Run('--c', '-n', 'deep.c', limits={resource.RLIMIT_AS: 80 * mib}).expect(4, TOO_LARGE, TERMINATED)


# ---- Files -------------------------------------------------------------------------------------

def files():
    write('good.c', '#include "good.h"\nint x;\n')
    write('good.h', 'int y;\n')
    os.makedirs('folder', exist_ok=True)
    remove('loop.c', 'pipe', 'name.c', 'link.if', 'linked.if', 'out.if', 'out.i')
    os.symlink('loop.c', 'loop.c')
    os.symlink('good.c', 'name.c')
    os.symlink('linked.if', 'link.if')
    os.mkfifo('pipe')
    source = {'folder': 'is a directory', 'missing.c': 'file "missing.c"\n', '': 'invalid file name',
              'loop.c': 'Too many levels of symbolic links', 'good.c/x': 'file "good.c/x"', 'pipe': 'not a regular file',
              'x' * 300: 'File name too long', '/dev/null': 'not a regular file'}
    for name, reason in source.items():
        Run('--c', name).expect(4, f'cannot open source file "{name}"', reason, TERMINATED)
        Run('--c', f'--preinclude={name or "folder"}', 'good.c').expect(4, reason if name else 'is a directory')
        if name:
            write('including.c', f'int before;\n#include "{name}"\n')
            Run('--c', '--i_output_file=out.if', 'including.c').expect(4, '"including.c", line 2: ', reason, no='out.if')
    if os.geteuid() != 0:
        write('closed.c', '')
        os.chmod('closed.c', 0)
        Run('--c', 'closed.c').expect(4, 'Permission denied')
    outputs = {'--i_output_file': 'IL output file', '--list': 'raw listing file', '--xref': 'cross-reference file',
               '--error_output': 'error file', '--pp_output_file': 'preprocessing output file'}
    for option, kind in outputs.items():
        words = ['-E'] if option == '--pp_output_file' else []
        for name, reason in {'folder': 'Is a directory', 'missing/x': '"missing/x"', 'pipe': 'not a regular file',
                             '/dev/full': 'not a regular file', 'good.c': 'invalid file name',
                             './good.c': 'invalid file name', 'folder/../good.c': 'invalid file name',
                             'name.c': 'invalid file name'}.items():
            Run('--c', *words, f'{option}={name}', 'good.c').expect(4, f'cannot open {kind} "{name}"', reason, TERMINATED)
    with open('good.c', encoding='utf-8') as stream:
        if 'int x;' not in stream.read():
            Run('--c', 'good.c').expect('a source that is whole')
    for name, reason in {'folder': 'Is a directory', 'missing': 'No such file', 'good.c/x': 'Not a directory'}.items():
        Run(f'--opt_cmdfile={name}', 'good.c').expect(4, f"cannot open command file '{name}': {reason}")
    for text, reason in {'/* x': 'Unterminated comment', '"x': 'Unterminated quote', '-D"x\\': 'Unterminated quote'}.items():
        write('words', text)
        Run('--opt_cmdfile=words', 'good.c').expect(255, f'>> {reason} in command file')
    # An output behind a symbolic link: the file goes, not the link.
    write('late.c', ''.join(FUNCTION.format(i) for i in range(300)))
    Run('--c', '--i_output_file=link.if', 'late.c', limits={resource.RLIMIT_FSIZE: 8192}).expect(4, no='linked.if')
    remove('link.if')
    write('bad.c', 'int f(void) { return y; }\n')
    write('stop.c', '#error stop\n')
    for source in ('bad.c', 'stop.c'):
        remove('out.if', 'out.i')
        Run('--c', '--i_output_file=out.if', source).expect((2, 4), no='out.if')
    Run('--c', '-E', '--pp_output_file=out.i', 'stop.c').expect(4, no='out.i')
    os.makedirs('gone', exist_ok=True)
    os.chdir('gone')
    os.rmdir('../gone')
    run = subprocess.run([Run.qxparse, '--c', 'x.c'], capture_output=True)
    os.chdir('..' if os.path.exists('..') else Run.folder)
    if run.returncode != 1 or b'getcwd in fn_get_working_dir' not in run.stderr:
        Run('--c', 'good.c').expect('status 1 in a folder that is gone')


# ---- Streams -----------------------------------------------------------------------------------

def streams():
    write('w.c', '#warning w\nint x;\n')
    write('error.c', 'int f(void) { return y; }\n')
    remove('out.if', 'plain.if')
    Run('--c', '--i_output_file=out.if', 'w.c').expect(0)
    os.rename('out.if', 'plain.if')
    for closed in ((0,), (1,), (2,), (1, 2), (0, 1, 2)):
        remove('out.if')
        Run('--c', '--i_output_file=out.if', 'w.c', closed=closed).expect(0)
        with open('out.if', 'rb') as a, open('plain.if', 'rb') as b:
            if a.read() != b.read():
                Run('--c', 'w.c').expect(f'the same file with {closed} closed')
        Run('--c', 'error.c', closed=closed).expect(2)
    Run('--c', '-E', 'w.c', closed=(1,)).expect(4, 'error while writing preprocessing output file: Bad file descriptor')
    with open('/dev/full', 'wb') as full:
        Run('--c', '-E', 'w.c', stdout=full).expect(4, 'preprocessing output file: No space left on device')
        Run('--c', '-n', 'w.c', stderr=full).expect(0)
        Run('--c', 'error.c', stderr=full).expect(2)
    reader, writer = os.pipe()
    os.close(reader)
    Run('--c', '-E', 'w.c', stdout=writer).expect(4, 'preprocessing output file: Broken pipe')
    Run('--c', 'error.c', stderr=writer).expect(2)
    remove('out.if')
    Run('--c', '--i_output_file=out.if', 'w.c', stderr=writer).expect(0)
    os.close(writer)
    timing = [f'{label:30}' for label in ('Front end time', 'Back end time', 'Total compilation time')]
    Run('--c', '--timing', '--i_output_file=out.if', 'w.c').expect(0, *timing)
    run = Run('--c', '--timing', 'error.c')
    run.expect(2, timing[0], timing[2])
    if timing[1] in run.messages:
        run.expect('no time of the back end behind an error')


# ---- Sources -----------------------------------------------------------------------------------

def sources_of(n, m):
    """(name, text, statuses): n for what nests or repeats, m for what is long."""
    ok, bad, any_end = (0,), (2, 4), (0, 2, 4)
    nest = '#if 1\n' * n + 'int x;\n' + '#endif\n' * n
    yield 'deep_if', nest, ok
    yield 'deep_if_skipped', '#if 0\n' + nest + '#endif\nint x;\n', ok
    yield 'deep_if_open', '#if 1\n' * n, bad
    yield 'elif_chain', '#if 0\n' + '#elif 0\n' * n + '#endif\nint x;\n', ok
    yield 'skipped_comments_in_literal', '#if 0\n"' + '/*//' * m + '"\n#endif\nint x;\n', ok
    yield 'skipped_separators', '#if 0\n1' + "'1" * m + ' /* */ ' * n + '\n#endif\nint x;\n', ok
    yield 'lone_quotes', '#if 1\n' + 'a\'"' * m + '\n#endif\nint x;\n', bad
    for name, text in {'parens': '(' * n + '1' + ')' * n, 'open': '(' * n, 'unary': '!' * n + '1', 'minus': '- ' * n + '1',
                       'ternary': '1?' * n + '1' + ':0' * n, 'ternary2': '0?1:' * n + '1'}.items():
        yield 'if_' + name, f'#if {text}\n#endif\nint x;\n', any_end
    for name, text in {'plus': '1+' * n, 'logic': '1&&0||' * n, 'defined': 'defined(x)||' * n}.items():
        yield 'if_' + name, f'#if {text}1\n#endif\nint x;\n', ok
    yield 'macro_chain', ''.join(f'#define A{i} A{i + 1}\n' for i in range(n)) + 'int A0;\n', ok
    yield 'macro_chain_fn', ''.join(f'#define A{i}(x) A{i + 1}(x)\n' for i in range(n)) + f'#define A{n}(x) x\nint A0(y);\n', ok
    yield 'macro_doubling', ''.join(f'#define A{i}(x) A{i + 1}(x x)\n' for i in range(16)) + '#define A16(x) 1\nint q = A0(y);\n', ok
    yield 'nested_calls', '#define F(x) x\nint q = ' + 'F(' * n + '1' + ')' * n + ';\n', bad
    yield 'nested_open', '#define F(x) x\nint q = ' + 'F(' * n + ';\n', bad
    yield 'nested_stringize', '#define S(x) #x\n#define T(x) S(x)\nchar *s = ' + 'T(' * 18 + 'a' + ')' * 18 + ';\n', any_end
    yield 'many_args', '#define F(...) 1\nint q = F(' + 'a,' * m + ');\n', ok
    yield 'many_params', f'#define F({",".join(f"p{i}" for i in range(n))}) p{n - 1}\nint q = F({",".join("1" * n)});\n', ok
    yield 'long_paste', '#define P ' + 'x##' * n + 'x\nint P;\n', ok
    yield 'long_expansion', '#define F x' + ' + 1' * m + '\nint x; int q = sizeof(F);\n', ok
    yield 'many_macros', ''.join(f'#define M{i} {i}\n' for i in range(m)) + f'int x = M{m - 1};\n', ok
    yield 'redefinitions', ''.join(f'#define A {i}\n' for i in range(n)) + 'int x;\n', ok
    yield 'push_pop', '#define A 1\n' + '#pragma push_macro("A")\n' * n + '#pragma pop_macro("A")\n' * n + 'int x = A;\n', ok
    yield 'pragma_operators', 'int x;' + '_Pragma("x") ' * n + '\n', ok
    yield 'self_include', '#include "source.c"\n', bad
    yield 'long_sum', 'int x = ' + '1 + ' * n + '1;\n', ok
    yield 'blanks', ' ' * m + 'int x;\n', ok
    for name, text in {'name': f'int {"a" * m};\n', 'float': f'double x = 1.{"1" * m};\n', 'string': f'char *s = "{"a" * m}";\n',
                       'strings': f'char *s = {chr(34) * 2 * m};\n', 'escapes': f'char *s = "{chr(92)}x41{chr(92) * 2 * n}";\n'}.items():
        yield 'long_' + name, text, ok
    yield 'long_number', 'int x = ' + '1' * m + ';\n', bad
    yield 'long_character', "int x = '" + 'a' * m + "';\n", any_end
    yield 'splices', '\\\n' * m + 'int x;\n', ok
    yield 'splices_in_name', 'int ' + 'a\\\n' * n + 'b;\n', ok
    yield 'splices_in_sum', 'int x = ' + '1 + \\\n' * n + '1;\n', ok
    yield 'trigraphs', 'int x = ' + '1 ??!??! ' * n + '1;\n', any_end
    for name, text in {'comments': '/**/', 'line_comments': '//\n', 'semicolons': ';', 'hashes': '#\n', 'newlines': '\n',
                       'carriage_returns': '\r'}.items():
        yield 'many_' + name, text * m + 'int x;\n', any_end
    for name, text in {'comment': '/*', 'quote': '"', 'apostrophe': "'", 'paren': '(', 'brace': '{', 'backslash': '\\', 'sharp': '#',
                       'at': '@', 'question': '?', 'comma': ',', 'bracket': 'int x[', 'quote_line': '"\n', 'word': 'x '}.items():
        yield 'only_' + name, text * m, bad if name not in ('sharp', 'word') else any_end
    yield 'parens', 'int x = ' + '(' * n + '1' + ')' * n + ';\n', any_end
    yield 'braces', 'void f(void) ' + '{' * n + '}' * n + '\n', any_end
    yield 'stars', 'int ' + '*' * m + 'x;\n', any_end
    for name, (before, middle, after) in {
            'structs': ('struct {', 'int x;', '} m;'), 'anonymous': ('struct {', 'int x;', '};'),
            'prototypes': ('int (*)(', 'void', ')'), 'generic': ('_Generic(1, default: ', '1', ')'),
            'generic_match': ('_Generic(1, int: ', '1', ')'), 'calls': ('f(', '1', ')')}.items():
        start, end = {'structs': ('struct {', '} v;'), 'anonymous': ('struct {', '} v;'), 'prototypes': ('int f(', ');')}.get(
            name, ('int f(int); int x = sizeof(', ');'))
        yield 'deep_' + name, f'{start}{before * n}{middle}{after * n}{end}\n', any_end
    yield 'many_dimensions', 'extern int x' + '[1]' * n + ';\n', ok
    yield 'typedefs', 'typedef int t0;\n' + ''.join(f'typedef t{i} t{i + 1};\n' for i in range(n)) + f't{n} x;\n', ok
    yield 'identifier_list', (f'int f({",".join(f"p{i}" for i in range(n))}) ' + ''.join(f'int p{i};\n' for i in range(n)) +
                              '{ return p0; }\n'), ok
    yield 'packs', '#pragma pack(push, 1)\n' * n + '#pragma pack(pop)\n' * n + 'int x;\n', ok
    yield 'bad_directives', '#foo\n' * n, bad
    yield 'line_directives', ''.join(f'#line {i + 1} "f{i}.c"\n' for i in range(n)) + 'int x;\n', ok
    yield 'nulls', b'\0' * m + b'int x;\n', any_end
    yield 'nulls_in_string', b'char *s = "' + b'\0' * m + b'";\n', any_end
    yield 'marks', bytes(range(0, 32)) * (m // 32) + b'\nint x;\n', bad
    chance = random.Random(1)
    yield 'noise', chance.randbytes(m), bad
    yield 'noise_lines', b'\n'.join(chance.randbytes(20) for _ in range(n)), bad
    yield 'utf8_cut', b'int x;\n// \xc3', ok
    yield 'utf8_bad', b'int \xff\xfe\xc3(;\n' * n, bad
    yield 'utf8_in_string', b'char *s = "' + b'\xe2\x82' * n + b'";\n', any_end
    yield 'utf16_odd', b'\xff\xfe' + 'int x;\n'.encode('utf-16le') + b'\x41', any_end
    yield 'utf16_big', b'\xfe\xff' + ('int x;\n' * n).encode('utf-16be'), ok
    yield 'utf16_surrogates', b'\xff\xfe' + b'\x00\xd8' * n + 'int x;\n'.encode('utf-16le'), any_end
    yield 'has_include', '#if __has_include("x.h")\n#endif\n' * n + 'int x;\n', ok


def sources(large):
    n, m = (100000, 1 << 20) if large else (10000, 100000)
    longest, most = (40, 3000) if has_sanitizers() else (10, 1500)
    slowest = ('', 0.0)
    largest = ('', 0.0)
    Run.limits = {resource.RLIMIT_CPU: 60}
    for name, text, statuses in sources_of(n, m):
        write('source.c', text)
        # What the preprocessor alone makes of it may be less wrong, never more.
        for words, expected in ((('-n', '--c99', '--gcc'), statuses),
                                (('-E', '--pp_output_file=out.i'), tuple({0, *statuses})),
                                (('--c++', '-E', '--list=out.lst', '--pp_output_file=out.i'), (0, 2, 4))):
            remove('out.i')
            run = Run(*(('--c',) if '--c++' not in words else ()), *words, 'source.c')
            run.words = (name, *run.words)
            run.expect(expected, no='out.i' if run.status == 4 else ())
            if run.cpu > longest or run.megabytes > most or 'internal' in run.messages.lower().replace('internal buffer', ''):
                run.expect(f'an end in time, not {run.cpu:.1f} s with {run.megabytes:.0f} MB')
            slowest = max(slowest, (name, run.cpu), key=lambda entry: entry[1])
            largest = max(largest, (name, run.megabytes), key=lambda entry: entry[1])
            if large:
                print(f'{name:18} {" ".join(words)[:28]:28} {run.status} {run.cpu:6.2f} s {run.megabytes:6.0f} MB')
    Run.limits = {}
    print(f'sources: slowest {slowest[0]} with {slowest[1]:.1f} s, largest {largest[0]} with {largest[1]:.0f} MB')


def main():
    words = [word for word in sys.argv[1:] if not word.startswith('--')]
    Run.qxparse, Run.folder = map(os.path.abspath, words[:2])
    groups = words[2:] or ['signals', 'limits', 'files', 'streams', 'sources']
    os.makedirs(Run.folder, exist_ok=True)
    os.chdir(Run.folder)
    for group in groups:
        if group == 'sources':
            sources('--large' in sys.argv)
        else:
            {'signals': signals, 'limits': limits, 'files': files, 'streams': streams}[group]()
    print(f'hostile runs: {Run.count - Run.failures} passed, {Run.failures} failed')
    return 1 if Run.failures else 0


if __name__ == '__main__':
    sys.exit(main())
