"""What the tables of cases share: the list of exceptions, each a name, a colon and the reason."""
import os
import re
import sys


def text_of(path):
    with open(path, encoding='latin-1') as stream:
        return stream.read()


def files(root, folder, ends):
    for directory, _, names in sorted(os.walk(os.path.join(root, folder))):
        for name in sorted(names):
            if name.endswith(ends):
                yield os.path.join(directory, name)


def judge(root, list_name, unmet, summary, total, least):
    """Prints what neither a case nor a reason covers, and the counts; the exit status. Fewer than
    `least` names mean that the table was not read."""
    listed, problems = {}, []
    for line in text_of(os.path.join(root, 'tests/tables', list_name)).split('\n'):
        found = re.match(r'(\S.*?): (\S.*)', line)
        if found:
            listed[found[1]] = found[2]
        elif line:
            problems.append(f'no reason: {line}')
    problems += [f'{what} is met by no case' for what in unmet if what not in listed]
    problems += [f'{what} is an exception, but a case meets it or it is not known' for what in listed if what not in unmet]
    for problem in problems:
        print(problem)
    print(f'{total} {summary}, {total - len(unmet)} met by cases, {len(listed)} exceptions')
    sys.exit(1 if problems or total < least else 0)
