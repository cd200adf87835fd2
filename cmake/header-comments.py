"""Shows the headers' plain comments to the documentation generator: prints the file with each comment as one of
the generator's own. A comment before several declarations without a blank line between them is one for each.
"""
import re
import sys


def is_comment(line):
    return line.lstrip().startswith('//')


def convert(lines):
    comment, depth = [], 0  # the comment of the paragraph; open brackets of the declaration that is running
    waiting = False         # a declaration may begin
    for line in lines:
        text = line.strip()
        if is_comment(line):
            if not waiting or depth == 0 and comment and not comment[-1][1]:
                comment = []
            comment.append((line.replace('//', '///', 1), False))
            waiting = True
            yield line.replace('//', '///', 1)
            continue
        # Behind its declaration, on the same line.
        behind = re.match(r'(.*[;,{})\w]\s*)//( .*)', line)
        if behind and '"' not in behind[1]:
            line = f'{behind[1]}///<{behind[2]}\n'
        if not text or text.endswith(':') or text in ('};', '}', '{'):
            comment, waiting = [], False
            yield line
            continue
        if depth == 0 and comment and comment[-1][1] and not behind:
            for one, _ in comment:
                yield one
        if comment:
            comment = [(one, True) for one, _ in comment]
        depth += line.count('(') + line.count('{') - line.count(')') - line.count('}')
        yield line


with open(sys.argv[1], encoding='utf-8') as file:
    sys.stdout.writelines(convert(file.readlines()))
