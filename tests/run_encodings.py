#!/usr/bin/env python3
"""Compiles one program in many encodings and line forms: all give the same intermediate file.

usage: run_encodings.py QXPARSE IFDUMP OUTPUT_DIR

The program has characters of one to four bytes in names, strings and comments, splices, trigraphs and
directives. The marks of encodings, the ends of lines and the spellings of characters must
not be seen in the file; the messages must stand on the same lines.
"""
import os
import subprocess
import sys

PROGRAM = '''#define THREE \\
  3
int caf\u00e9 = THREE;  // \u540d \U0001F600
char text[] = "\u00e9\U0001F600\u540d" "a\\
b";
/* two
   lines \u00e9 */
#if THREE == 3
int b??(2??) = ??< 1, caf\u00e9_unknown ??>;
#endif
int last = __LINE__;
'''
BAD_LINE = 9


def forms():
    """Name, bytes of the source."""
    text = PROGRAM
    yield 'utf8', text.encode()
    yield 'utf8_mark', b'\xef\xbb\xbf' + text.encode()
    yield 'utf16_little', b'\xff\xfe' + text.encode('utf-16-le')
    yield 'utf16_big', b'\xfe\xff' + text.encode('utf-16-be')
    crlf = text.replace('\n', '\r\n')
    yield 'crlf', crlf.encode()
    yield 'utf16_crlf', b'\xff\xfe' + crlf.encode('utf-16-le')
    yield 'form_feeds', text.replace('\n#', '\n\f\v#').replace(' = ', '\f=\v').encode()
    yield 'escapes', text.replace('caf\u00e9', 'caf\\u00e9').encode()
    yield 'spliced_everywhere', text.replace('int ', 'i\\\nn\\\n\\\nt ').replace('"\u00e9', '"\\\n\u00e9').encode()


def compiled(qxparse, ifdump, folder, source):
    """The dump without positions, the lines with errors once the bad name is defined or not."""
    with open(os.path.join(folder, 'source.c'), 'wb') as stream:
        stream.write(source)
    command = [qxparse, '--c99', '--strict', '--i_output_file=out.if']
    bad = subprocess.run(command + ['source.c'], cwd=folder, capture_output=True)
    good = subprocess.run(command + ['-Dcaf\u00e9_unknown=2', 'source.c'], cwd=folder, capture_output=True)
    dump = subprocess.run([ifdump, 'out.if'], cwd=folder, capture_output=True, text=True).stdout
    rows = [row.split('  @')[0] for row in dump.split('\n') if not row.startswith('comment ')]
    return bad.stderr.decode('utf-8', 'replace'), good.stderr.decode('utf-8', 'replace'), rows


def main():
    qxparse, ifdump, folder = map(os.path.abspath, sys.argv[1:4])
    os.makedirs(folder, exist_ok=True)
    wanted, failed = None, 0
    for name, source in forms():
        bad, good, rows = compiled(qxparse, ifdump, folder, source)
        if name == 'spliced_everywhere':  # the physical lines count
            rows = [row for row in rows if 'LCON' not in row]
            wanted = [row for row in wanted if 'LCON' not in row]
        wanted = wanted or rows
        problems = []
        if good:
            problems.append('unexpected: ' + good.strip())
        if f'line {BAD_LINE}: error' not in bad and name != 'spliced_everywhere':
            problems.append('no error on its line: ' + bad.strip())
        if rows != wanted or len(rows) < 5:
            problems.append('another file')
        failed += bool(problems)
        for problem in problems:
            print(f'{name}: {problem}')
    print(f'encodings: {failed} failed')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
