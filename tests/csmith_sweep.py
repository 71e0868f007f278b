#!/usr/bin/env python3
"""Random programs: made by csmith from fixed seeds, compiled in both byte orders, run with ifrun, and
compared with what arm-none-eabi-gcc and qemu-arm print.

usage: csmith_sweep.py QXPARSE IFDUMP IFRUN INCLUDE_DIR OUTPUT_DIR COUNT [--first=SEED] [--decoder=FILE]
                       [--keep]

A program that does not end under qemu within its time is replaced by the next seed. A big-endian
program may print another checksum than the little-endian one when it looks at the bytes of its
objects, through a union or for the checksum of a floating value; such seeds are counted apart.
"""
import concurrent.futures
import os
import subprocess
import sys

RUNTIME = '/usr/include/csmith'
LIBRARY = '/usr/include/newlib'
FORMS = [[], ['--no-packed-struct'], ['--no-unions'], ['--no-bitfields', '--no-packed-struct'], ['--float'],
         ['--no-jumps', '--max-funcs', '15'], ['--no-volatiles'], ['--max-array-dim', '4', '--max-expr-complexity', '15']]
OURS = ['--c11', '--gcc', '--abi=eabi', '--wchar_t_bits=32', '--no_warnings', '-D__GNUC__=4', '-D__GNUC_MINOR__=8']


def run(command, seconds, directory=None):
    try:
        done = subprocess.run(command, capture_output=True, timeout=seconds, errors='replace', cwd=directory)
        return done.returncode, done.stdout, done.stderr
    except subprocess.TimeoutExpired:
        return None, '', 'does not end'


def make_program(seed, path):
    form = FORMS[seed % len(FORMS)]
    status, text, _ = run(['csmith', '--seed', str(seed), '--max-block-depth', '4', *form], 60, os.path.dirname(path))
    if status != 0:
        return False
    with open(path, 'w') as stream:
        stream.write(text)
    return True


def oracle(path, directory, name):
    program = os.path.join(directory, name + '.elf')
    status, _, text = run(['arm-none-eabi-gcc', '-std=gnu11', '-w', '-O1', f'-I{RUNTIME}', '--specs=rdimon.specs', path,
                           '-o', program], 120)
    if status != 0:
        return None
    status, text, _ = run(['qemu-arm', program], 10)
    os.unlink(program)
    return text if status == 0 else None


def one_order(job, order, wanted):
    qxparse, ifdump, ifrun, include, directory, decoder, name, path = job
    output = os.path.join(directory, f'{name}-{order}.if')
    status, _, text = run([qxparse, *OURS, f'--{order}_endian', f'-I{include}', f'-I{RUNTIME}', f'-I{LIBRARY}',
                           f'--preinclude={include}/foreign_macros.h', f'--i_output_file={output}', path], 120)
    if status not in (0, 1):
        return 'compiler: ' + text.strip()[:300]
    status, text, more = run([ifdump, '--check', output], 60)
    if status == 0 and decoder:
        status, text, more = run([sys.executable, decoder, output], 120)
    if status != 0:
        return 'file: ' + (text + more).strip()[:300]
    # Pointers to members of packed structs are used as if they were aligned.
    status, text, more = run([ifrun, '--unaligned', '--limit', '4000000000', output], 300)
    if status != 0:
        return f'run: status {status} {more.strip()[:300]}'
    if text != wanted:
        return f'prints {text.strip()!r}, not {wanted.strip()!r}'
    os.unlink(output)
    return None


def looks_at_bytes(path):
    with open(path) as stream:
        text = stream.read()
    return '\nunion ' in text or 'transparent_crc_bytes' in text


def try_seed(job):
    directory, name, path, seed = job[4], job[6], job[7], int(job[6][4:])
    if not make_program(seed, path):
        return seed, 'replaced', ''
    wanted = oracle(path, directory, name)
    if wanted is None:
        return seed, 'replaced', ''
    little = one_order(job, 'little', wanted)
    big = one_order(job, 'big', wanted)
    if little:
        return seed, 'failed', 'little endian: ' + little
    if big and (not big.startswith('prints') or not looks_at_bytes(path)):
        return seed, 'failed', 'big endian: ' + big
    return seed, 'differs' if big else 'same', big or ''


def main():
    options = dict(a[2:].split('=', 1) for a in sys.argv if a.startswith('--') and '=' in a)
    arguments = [a for a in sys.argv[1:] if not a.startswith('--')]
    if len(arguments) != 6:
        sys.exit(__doc__)
    tools = [os.path.abspath(a) for a in arguments[:4]]
    directory, count = os.path.abspath(arguments[4]), int(arguments[5])
    os.makedirs(directory, exist_ok=True)
    seed, done, failed, differs, replaced = int(options.get('first', 1)), 0, 0, 0, []
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        while done < count:
            jobs = []
            for _ in range(count - done):
                name = f'seed{seed}'
                jobs.append((*tools, directory, options.get('decoder'), name, os.path.join(directory, name + '.c')))
                seed += 1
            for number, kind, text in pool.map(try_seed, jobs):
                if kind == 'replaced':
                    replaced.append(number)
                    continue
                done += 1
                failed += kind == 'failed'
                differs += kind == 'differs'
                if kind in ('failed', 'differs'):
                    print(f'{kind} seed {number}: {text}', flush=True)
                elif '--keep' not in sys.argv:
                    os.unlink(os.path.join(directory, f'seed{number}.c'))
    print(f'{done} programs: {done - failed} print what the other compiler prints, {failed} failed; {differs} print '
          f'something else in big-endian order; {len(replaced)} seeds replaced')
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
