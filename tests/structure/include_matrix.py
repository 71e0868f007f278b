#!/usr/bin/env python3
"""Holds every #include below src/ to tests/structure/include_matrix.txt, which tells its own form.

usage: include_matrix.py [PROJECT_ROOT]
"""
import fnmatch
import pathlib
import re
import sys

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.M)


class Matrix:
    def __init__(self, text):
        self.layers, self.may, self.never, self.up = [], {}, {}, {}
        for number, line in enumerate(text.splitlines(), 1):
            if line.strip() and not line.startswith('#'):
                self.read(line, number)

    def read(self, line, number):
        verb, rest = line.split(None, 1)
        if verb == 'layer':
            name, *patterns = rest.split()
            self.layers += [(pattern, name) for pattern in patterns]
        elif verb in ('may', 'never'):
            name, members = rest.split(':', 1)
            (self.may if verb == 'may' else self.never)[name] = set(members.split())
        elif verb == 'up':
            edge, reason = rest.split(':', 1)
            if not reason.strip():
                sys.exit(f'line {number}: no reason')
            self.up[tuple(edge.split(' -> '))] = False  # not yet needed
        else:
            sys.exit(f'line {number}: unknown word {verb}')

    def layer_of(self, path):
        return next((name for pattern, name in self.layers if fnmatch.fnmatch(path, pattern)), None)

    def is_upward_with_reason(self, path, layer, header):
        edges = [edge for edge in ((path, header), (layer, header)) if edge in self.up]
        for edge in edges:
            self.up[edge] = True
        return bool(edges)

    def fault_of(self, path, header):
        layer, target = self.layer_of(path), self.layer_of(header)
        if layer is None or target is None:
            return 'belongs to no layer'
        if header.endswith('_internal.h') and path.split('/')[0] != header.split('/')[0]:
            return 'is not for other folders'
        if header in self.never.get(layer, ()):
            return f'is closed to {layer}'
        if target == layer or target in self.may[layer] or \
                self.is_upward_with_reason(path, layer, header):
            return None
        return f'lies above {layer}'


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2])
    matrix = Matrix((root / 'tests/structure/include_matrix.txt').read_text())
    faults = count = 0
    for file in sorted(p for p in (root / 'src').rglob('*') if p.suffix in ('.h', '.cpp', '.def')):
        path = file.relative_to(root / 'src').as_posix()
        for header in INCLUDE.findall(file.read_text()):
            count += 1
            exists = (root / 'src' / header).is_file()
            fault = matrix.fault_of(path, header) if exists else 'is not a path below src'
            if fault:
                faults += 1
                print(f'{path}: {header} {fault}')
    for edge in [edge for edge, needed in matrix.up.items() if not needed]:
        faults += 1
        print(f'include_matrix.txt: nobody needs {" -> ".join(edge)}')
    print(f'{count} includes, {faults} faults')
    return 1 if faults or count == 0 else 0


if __name__ == '__main__':
    sys.exit(main())
