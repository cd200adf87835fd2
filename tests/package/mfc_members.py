"""Holds the sources against MFC's documented members: whatever member of an MFC class the library calls must
exist in genuine MFC under that name, in the class or a base of it. The subset in afx/ tells which names are
members; mfc-members.txt tells which of them MFC documents.

Usage: mfc_members.py SOURCE_TREE
"""
import pathlib
import re
import sys

BLANKS = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|^[ \t]*#(?:[^\n\\]|\\.|\\\n)*', re.S | re.M)

# Names that the sources call on another class alone.
CALLED_ELSEWHERE = {('CSize', 'SetSize'),     # of CStringArray
                    ('CWinThread', 'Delete')}  # of CException


def code_of(path):
    """The text without comments, literals and preprocessor lines."""
    return BLANKS.sub(' ', path.read_text(encoding='utf-8'))


def members_of(text):
    """Yields (class, bases, member functions) of the classes that a header defines."""
    for head in re.finditer(r'\b(?:class|struct)\s+(?:\w+\s+)?(\w+)\s*(?:final\s*)?(?::([^{;]*))?\{', text):
        depth, position, declaration = 1, head.end(), ''
        access = 'private' if head[0].startswith('class') else 'public'
        names = set()
        while depth and position < len(text):
            sign = text[position]
            if sign == '{':
                depth += 1
            elif sign == '}':
                depth -= 1
            elif depth == 1:
                declaration += sign
            if depth == 1 and sign in ';}':
                # Operators and macros are no members that one calls by name.
                found = re.search(r'(?<!operator )(~?\b\w+)\s*\(', declaration)
                if found and access != 'private' and not found[1].isupper() and '_' not in found[1]:
                    names.add(found[1])
                declaration = ''
            elif depth == 1 and declaration.rstrip().endswith(('public:', 'protected:', 'private:')):
                access, declaration = declaration.split()[-1][:-1], ''
            position += 1
        bases = re.findall(r'(?:public|protected|private)\s+(\w+)', head[2] or '')
        yield head[1], bases, names


def read_list(path):
    """Class by class: the documented members, its bases."""
    documented, bases = {}, {}
    for line in path.read_text(encoding='utf-8').splitlines():
        line = line.split('#')[0].strip()
        if line:
            head, members = line.split(':', 1)
            name, *parents = head.split()
            documented[name], bases[name] = set(members.split()), parents
    return documented, bases


def main():
    tree = pathlib.Path(sys.argv[1])
    documented, bases = read_list(tree / 'tests/package/mfc-members.txt')
    used = set()
    for room in ('velmutil', 'corvanutil', 'samples/SampleAddin', 'tests/consumer'):
        for path in sorted((tree / room).rglob('*')):
            if path.suffix in ('.h', '.cpp'):
                used |= set(re.findall(r'\b(\w+)\s*\(', code_of(path)))

    def is_documented(name, member):
        todo = [name]
        while todo:
            one = todo.pop()
            if member in documented.get(one, ()):
                return True
            todo += bases.get(one, [])
        return False

    checked, findings = 0, []
    for header in sorted((tree / 'afx').rglob('*.h')):
        for name, _, members in members_of(code_of(header)):
            if name not in documented:
                continue
            for member in sorted(members & used):
                if member.lstrip('~') == name or (name, member) in CALLED_ELSEWHERE:
                    continue
                checked += 1
                if not is_documented(name, member):
                    findings.append(f'{header.relative_to(tree)}: {name}::{member} is called, but MFC does '
                                    'not document it')
    for finding in findings:
        print(finding)
    print(f'{checked} members that the library may call were looked up')
    if checked < 200:
        sys.exit('That is too few: the headers were not understood.')
    sys.exit(1 if findings else 0)


main()
