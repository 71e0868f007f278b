#!/usr/bin/env python3
"""Runs tests/newlib/program.c twice: with the C library of the machine, and linked with parts of
newlib that qxparse has compiled. Both must print the same, in both byte orders.

usage: newlib_run.py QXPARSE IFRUN NEWLIB_SOURCE INCLUDE_DIR OUTPUT_DIR

NEWLIB_SOURCE is the folder with newlib/libc in it; its generated headers are those of the installed
newlib.
"""
import os
import shutil
import subprocess
import sys

GENERATED = '/usr/include/newlib'
OPTIONS = ['--c11', '--gcc', '--abi=eabi', '--wchar_t_bits=32', '--no_warnings', '-D__GNUC__=4', '-D__GNUC_MINOR__=8',
           '-D_COMPILING_NEWLIB', '-DHAVE_CONFIG_H=0', '-D_WANT_IO_C99_FORMATS', '-D_WANT_IO_POS_ARGS']
SORT = ['search/qsort.c', 'search/bsearch.c']
STRINGS = ['string/%s.c' % name for name in (
    'memchr memcmp memcpy memmove memset strcat strchr strcmp strcpy strcspn strlen strncat strncmp strncpy strpbrk '
    'strrchr strspn strstr strtok strtok_r').split()]
NUMBERS = ['stdlib/%s.c' % name for name in (
    'strtod strtol strtoul strtoll strtoull strtoll_r strtoull_r gdtoa-gethex gdtoa-hexnan mprec dtoa atof atoi '
    'wcrtomb wctomb_r mbtowc_r mbrtowc').split()]
FORMATS = ['stdio/%s.c' % name for name in (
    'printf sprintf snprintf vprintf vsprintf vsnprintf findfp fflush fvwrite fwrite wsetup makebuf stdio fclose '
    'fwalk flags').split()]
OTHERS = ['reent/impure.c', 'locale/locale.c', 'locale/localeconv.c', 'locale/lctype.c', 'locale/lnumeric.c', 'locale/lmonetary.c', 'locale/lmessages.c', 'locale/timelocal.c', 'ctype/ctype_.c',
          'errno/errno.c',
          '../libm/common/s_nan.c', '../libm/common/sf_nan.c']
# One source that is compiled once for each of its forms.
FORMS = [('stdio/vfprintf.c', 'vfprintf', []), ('stdio/vfprintf.c', 'vfiprintf', ['-DINTEGER_ONLY']),
         ('stdio/vfprintf.c', 'svfprintf', ['-DSTRING_ONLY']),
         ('stdio/vfprintf.c', 'svfiprintf', ['-DSTRING_ONLY', '-DINTEGER_ONLY'])]


def run(command):
    try:
        done = subprocess.run(command, capture_output=True, timeout=300)
        return done.returncode, done.stdout, done.stderr.decode(errors='replace')
    except subprocess.TimeoutExpired:
        return -1, b'', 'does not end'


def compile_all(qxparse, root, include, output_dir, order):
    libc = os.path.join(root, 'newlib/libc')
    # The source has a dummy in the place of what the configuration makes.
    generated = os.path.join(output_dir, 'generated')
    os.makedirs(generated, exist_ok=True)
    for name in ('newlib.h', '_newlib_version.h'):
        shutil.copy(os.path.join(GENERATED, name), generated)
    paths = [f'-I{include}', f'-I{generated}', *(f'-I{libc}/{d}' for d in ('include', 'machine/arm', 'stdlib', 'locale', 'stdio')),
             f'-I{root}/newlib/libm/common', f'-I{GENERATED}']
    here = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'newlib')
    jobs = [(os.path.join(here, n + '.c'), n, []) for n in ('program', 'system')]
    jobs += [(os.path.join(libc, p), p.replace('../', '').replace('/', '-')[:-2], []) for p in SORT + STRINGS + NUMBERS + FORMATS + OTHERS]
    jobs += [(os.path.join(libc, p), name, more) for p, name, more in FORMS]
    outputs = {}
    for path, name, more in jobs:
        outputs[name] = os.path.join(output_dir, f'{name}-{order}.if')
        status, _, text = run([qxparse, *OPTIONS, *more, f'--{order}_endian', f'-I{os.path.dirname(path)}', *paths,
                               f'--preinclude={include}/foreign_macros.h', f'--i_output_file={outputs[name]}', path])
        if status != 0:
            print(f'FAILED to compile {path}: status {status}\n{text[:600]}')
            return None
    return outputs


def main():
    if len(sys.argv) != 6:
        sys.exit(__doc__)
    qxparse, ifrun, root, include, output_dir = (os.path.abspath(a) for a in sys.argv[1:])
    os.makedirs(output_dir, exist_ok=True)
    failed = 0
    for order in ('little', 'big'):
        outputs = compile_all(qxparse, root, include, output_dir, order)
        if outputs is None:
            return 1
        own = run([ifrun, outputs['program']])
        linked = run([ifrun, "--whole-words", *outputs.values()])
        with open(os.path.join(output_dir, f'host-{order}.txt'), 'wb') as stream:
            stream.write(own[1])
        with open(os.path.join(output_dir, f'newlib-{order}.txt'), 'wb') as stream:
            stream.write(linked[1])
        lines = len(own[1].split(b'\n'))
        if own[0] != 0 or linked[0] != 0 or own[1] != linked[1]:
            failed += 1
            print(f'FAILED {order} endian: status {own[0]} and {linked[0]} {own[2][:300]} {linked[2][:300]}')
            for number, (a, b) in enumerate(zip(own[1].split(b'\n'), linked[1].split(b'\n')), 1):
                if a != b:
                    words = [(x, y) for x, y in zip(a.split(b' '), b.split(b' ')) if x != y][:5]
                    print(f'  line {number}: machine and newlib differ in {words or (a[-60:], b[-60:])}')
        else:
            print(f'{order} endian: {len(outputs) - 2} files of newlib, {lines} lines of output, no difference')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
