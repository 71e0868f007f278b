#!/usr/bin/env python3
"""The predefined macros of every dialect, mode and target model, compared with predefined_macros.txt;
the values that belong to the standards also with those of arm-none-eabi-gcc, where it is installed.

usage: predefined_macros.py QXPARSE WORK_DIR
"""
import os
import re
import shutil
import subprocess
import sys

OTHER = 'arm-none-eabi-gcc'
V7 = ('7A8', '7M3', '7M4', '7R4', '7R5')

# Options of a language, and the standard that they mean.
C_STANDARDS = [('--c', 199000), ('--c89', 199000), ('--c99', 199901), ('--c11', 201112)]
CXX_STANDARDS = [('--c++03', 199711), ('--c++11', 201103), ('--c++14', 201402), ('--c++17', 201701)]
TARGETS = ['', '--abi=eabi --little_endian', '--signed_chars --wchar_t_bits=32', '--code_state=16 --neon --small-enum',
           '--float_support=none', *(f'--float_support={v}' for v in ('VFPv2', 'VFPv3', 'VFPv3D16', 'FPv4SPD16')),
           *(f'--version={a}' for a in ('4', '5e', '6', '6M0', '8M33', *V7))]

# What both this system and the other compiler define by the rules of the standards.
SHARED = re.compile(r'__STDC(_HOSTED|_VERSION|_UTF_16|_UTF_32)?__$|__cplusplus$|__cpp_')
DIFFERENT = {
    '__cpp_inheriting_constructors': 'the old model',
    '__cpp_hex_float': 'only where such constants are accepted',
    '__cpp_rvalue_reference': 'no name of the standard', '__cpp_runtime_arrays': 'no name of the standard',
    '__cpp_threadsafe_static_init': 'not there',
    '__STDC_VERSION__': 'in C90 that of the amendment',
}


def configurations():
    """(options, facts): every standard in every mode, and every target model."""
    for option, std in C_STANDARDS:
        for mode in ('', '--strict', '--gcc', '--clang', '--gcc --gnu_version=30400', '--clang --clang_version=30700'):
            yield f'{option} {mode}', {'c': True, 'std': std}
    yield '--c --gnu_version=50000', {'c': True, 'std': 201112}
    yield '--old_c', {'c': True, 'knr': True, 'std': 199000}
    for option, std in CXX_STANDARDS:
        for mode in ('', '--strict', '--g++', '--clang', '--exceptions --rtti', '--strict --exceptions --rtti', '--gnu_version=120200'):
            yield f'{option} {mode}', {'cxx': True, 'std': std}
    yield '', {'cxx': True, 'std': 201402}
    for target in TARGETS:
        yield f'--c11 {target}', {'c': True, 'std': 201112}


def value_after(options, name, default):
    found = re.search(rf'--{name}=(\S+)', options)
    return found[1] if found else default


def facts_of(options, known):
    facts = {'c': False, 'cxx': False, 'knr': False, **known}
    words = options.split()
    facts['option'] = lambda name: name in words
    facts['strict'] = '--strict' in words
    facts['gnu'] = not facts['strict'] and not facts['knr']
    facts['gver'] = int(value_after(options, 'gnu_version', '40800'))
    facts['clang'] = '--clang' in words and facts['gnu']
    clang = int(value_after(options, 'clang_version', '30500'))
    facts.update(clang_major=clang // 10000, clang_minor=clang // 100 % 100, clang_patch=clang % 100)
    facts['mode'] = ('g++' if facts['cxx'] else 'gcc') + f' {facts["gver"] // 10000}.{facts["gver"] // 100 % 100}'
    facts['eabi'] = '--abi=eabi' in words
    facts['little'] = '--little_endian' in words
    facts['wide'] = '--wchar_t_bits=32' in words
    facts.update(wchar_bits=32 if facts['wide'] else 16, wchar_bytes=4 if facts['wide'] else 2)
    facts['small_enum'] = '--small-enum' in words
    vfp = value_after(options, 'float_support', '')
    facts['vfp'] = '' if vfp == 'none' else vfp
    facts['arch'] = value_after(options, 'version', '4')
    facts['v7'] = V7
    return facts


def rows():
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'predefined_macros.txt')
    with open(path, encoding='utf-8') as stream:
        for line in stream:
            if line.strip() and not line.startswith('#'):
                parts = [p.strip() for p in line.split('|')]
                yield parts[0], parts[1], parts[2] if len(parts) > 2 else '1'


def defined_by(command, path):
    run = subprocess.run([*command, path], capture_output=True, timeout=30)
    if run.returncode:
        return {'status': str(run.returncode) + run.stderr.decode('utf-8', 'replace')[:200]}
    text = run.stdout.decode('utf-8', 'replace')
    return dict((re.match(r'#define (\S+) ?(.*)', line).groups()) for line in text.split('\n') if line.startswith('#define '))


def differences(wanted, found):
    return [f'{name}: wanted {wanted.get(name)}, found {found.get(name)}'
            for name in sorted(set(wanted) | set(found)) if wanted.get(name) != found.get(name)]


def check_against_other(options, facts, found, empty):
    """Faults among the macros of the standards, where the other compiler has this dialect."""
    std = {199000: '90', 199901: '99', 201112: '11', 199711: '03', 201103: '11', 201402: '14'}.get(facts['std'])
    if std is None or facts['knr'] or facts['clang'] or 'gnu_version' in options:
        return []
    name = ('c++' if facts['cxx'] else 'c') + std
    command = [OTHER, '-dM', '-E', '-x', 'c++' if facts['cxx'] else 'c', f'-std={name if facts["strict"] else name.replace("c", "gnu", 1)}']
    if facts['cxx']:
        command += ['-fexceptions' if facts['option']('--exceptions') else '-fno-exceptions',
                    '-frtti' if facts['option']('--rtti') else '-fno-rtti']
    theirs = {k: v.rstrip('L') for k, v in defined_by(command, empty).items() if SHARED.match(k) and k not in DIFFERENT}
    ours = {k: v.rstrip('L') for k, v in found.items() if SHARED.match(k) and k not in DIFFERENT}
    if facts['std'] < 201402:  # the feature tests came with C++14
        theirs = {k: v for k, v in theirs.items() if not k.startswith('__cpp_')}
    if facts['cxx'] or facts['std'] < 201112:  # the promise of UTF-16 came with C11
        theirs = {k: v for k, v in theirs.items() if not k.startswith('__STDC_UTF')}
    return [f'{OTHER}: {d}' for d in differences(theirs, ours)]


def main():
    qxparse, work = sys.argv[1:3]
    os.makedirs(work, exist_ok=True)
    empty = os.path.join(work, 'empty.c')
    open(empty, 'w').close()
    table, has_other = list(rows()), shutil.which(OTHER) is not None
    count = faults = 0
    for options, known in configurations():
        facts = facts_of(options, known)
        wanted = {name: value % facts for name, condition, value in table if eval(condition, {}, facts)}
        found = defined_by([qxparse, *options.split(), '--list_macros'], empty)
        problems = differences(wanted, found)
        if has_other:
            problems += check_against_other(options, facts, found, empty)
        count += 1
        faults += len(problems)
        for problem in problems:
            print(f'{options}: {problem}')
    print(f'{count} dialects and targets, {faults} faults')
    return 1 if faults else 0


if __name__ == '__main__':
    sys.exit(main())
