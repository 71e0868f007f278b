#!/usr/bin/env python3
"""Holds the reports of messages against their texts: a text with a directive such as %sq needs a
report that gives it an argument. Usage: message_args.py [project root]
"""
import pathlib
import re
import sys

# The families that give no argument.
PLAIN = re.compile(r'\b(pos_error|pos_warning|pos_remark|pos_diagnostic|diagnostic|syntax_error|'
                   r'pos_syntax_error|expr_syntax_error|expr_pos_error|expr_pos_warning|'
                   r'expr_pos_diagnostic|warn_at|error_at|report_at|fail_at|required_token\w*|'
                   r'catastrophe)\(([^;{}]*?)\bec_(?P<tag>\w+)\b[^;{}]*?;')
ROW = re.compile(r'ERROR_ROW\((\d+), (\w+), "((?:[^"\\]|\\.)*)"\)')

root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2])
rows = ROW.findall((root / 'src/DIAG/error_codes.def').read_text())
with_argument = {tag for _, tag, text in rows if re.search(r'%(?!\[)', text.replace('%%', ''))}
faults = reports = 0
for source in sorted((root / 'src').rglob('*.cpp')):
    text = source.read_text()
    for report in PLAIN.finditer(text):
        reports += 1
        if report['tag'] in with_argument:
            faults += 1
            line = text[:report.start()].count('\n') + 1
            print(f'{source.relative_to(root)}:{line}: {report["tag"]} needs an argument')
print(f'{reports} reports, {faults} faults')
sys.exit(1 if faults or reports < 200 else 0)
