"""Finds the places of a C++ source where a small change makes a mutant: comparisons, logic, arithmetic, constants,
conditions and whole statements; never in comments, literals of texts, preprocessor lines or static_assert.
"""
import dataclasses
import re

TOKEN = re.compile(r'''
    (?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:[^\n\\]|\\.|\\\n)*|\s+)
  | (?P<text>(?:u8|[uUL])?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?(?:"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*'))
  | (?P<number>\.?\d(?:[eEpP][+-]|[\w.'])*)
  | (?P<name>[A-Za-z_]\w*)
  | (?P<sign><=>|<<=|>>=|\.\.\.|[-+*/%&|^=!<>]=|&&|\|\||\+\+|--|->|<<|>>|::|.)
''', re.S | re.M | re.X)

# What may stand in the place of an operator. Those between operands stand between blanks; "<" and "&" of types
# do not, so nothing else tells them apart.
BINARY = {'==': ['!='], '!=': ['=='], '<': ['<=', '>='], '<=': ['<', '>'], '>': ['>=', '<='], '>=': ['>', '<'],
          '&&': ['||'], '||': ['&&'], '+': ['-'], '-': ['+'], '*': ['/'], '/': ['*'], '%': ['*'], '&': ['|'],
          '|': ['&'], '+=': ['-='], '-=': ['+='], '|=': ['&='], '&=': ['|='], '*=': ['/='], '/=': ['*=']}
STEPS = {'++': ['--'], '--': ['++']}
NAMES = {'true': ['false'], 'false': ['true'], 'TRUE': ['FALSE'], 'FALSE': ['TRUE']}
KEYWORDS = {'return', 'if', 'for', 'while', 'do', 'else', 'switch', 'case', 'default', 'break', 'continue', 'goto',
            'throw', 'try', 'catch', 'using', 'typedef', 'namespace', 'class', 'struct', 'union', 'enum', 'template',
            'static', 'const', 'constexpr', 'auto', 'extern', 'delete', 'public', 'protected', 'private', 'operator',
            'static_assert', 'friend', 'inline', 'explicit', 'virtual'}
SCOPES = {'namespace', 'class', 'struct', 'union', 'enum', 'extern'}


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


@dataclasses.dataclass(frozen=True)
class Site:
    file: str
    start: int         # of what is replaced
    end: int
    line: int          # of its beginning
    lines: tuple       # first and last of the statement around it
    old: str
    choices: tuple     # what may stand there instead

    def change(self, new):
        """On one line."""
        return ' '.join(f'{self.old or "(nothing)"} -> {new or "(nothing)"}'.split())


def tokens_of(source):
    return [Token(match.lastgroup if match.lastgroup != 'mark' else 'text', match[0], *match.span())
            for match in TOKEN.finditer(source) if match.lastgroup != 'skip']


def closing(tokens, opening):
    """Index of the bracket that closes the one at `opening`."""
    depth = 0
    for i in range(opening, len(tokens)):
        depth += (tokens[i].text in ('(', '{', '[')) - (tokens[i].text in (')', '}', ']'))
        if depth == 0:
            return i
    return len(tokens) - 1


def find_sites(file, source):
    tokens = tokens_of(source)
    starts = statement_starts(tokens)
    found = []

    def add(first, last, choices):
        """Replaces the tokens from `first` to `last`."""
        begin, end = tokens[first].start, tokens[last].end
        lower = max((s for s in starts if s <= first), default=0)
        upper = min((s for s in starts if s > last), default=len(tokens)) - 1
        while upper > last and tokens[upper].text in ('{', '}', 'else'):
            upper -= 1
        found.append(Site(file, begin, end, line_of(source, begin),
                          (line_of(source, tokens[lower].start), line_of(source, tokens[upper].start)),
                          source[begin:end], tuple(choices)))

    i = 0
    while i < len(tokens):
        token, text = tokens[i], tokens[i].text
        previous = tokens[i - 1].text if i else ''
        if text == 'static_assert':
            i = closing(tokens, i + 1)
        elif text == 'template':
            while tokens[i].text not in ('{', ';'):
                i += 1
            continue
        elif token.kind == 'number':
            choices = other_numbers(text)
            if choices:
                add(i, i, choices)
        elif text in NAMES:
            add(i, i, NAMES[text])
        elif text in STEPS and previous != 'operator':
            add(i, i, STEPS[text])
        elif text in BINARY and source[token.start - 1].isspace() and source[token.end].isspace():
            add(i, i, BINARY[text])
        elif text == '!' and previous != 'operator':
            add(i, i, [''])
        elif text in ('if', 'while') and tokens[i + 1].text == '(':
            end = closing(tokens, i + 1)
            inside = [t.text for t in tokens[i + 2:end]]
            if '=' not in inside and ';' not in inside:
                condition = source[tokens[i + 2].start:tokens[end - 1].end]
                add(i + 2, end - 1, [f'!({condition})'])
        if i in starts and starts[i] and is_call_or_assignment(tokens, i):
            end = i
            while end < len(tokens) and tokens[end].text not in (';', '}'):
                end = closing(tokens, end) + 1 if tokens[end].text in ('(', '{', '[') else end + 1
            if end < len(tokens) and tokens[end].text == ';':
                add(i, end, [';'])
        i += 1
    return found


def other_numbers(text):
    match = re.fullmatch(r"(0[xX][0-9a-fA-F']+|[\d']+)([uUlLzZ]*)", text)
    if not match:
        return []
    value = int(match[1].replace("'", ''), 16 if match[1][:2] in ('0x', '0X') else 10)
    return [f'{other}{match[2]}' for other in (value + 1, value - 1) if other >= 0]


def statement_starts(tokens):
    """Index of each token with which a statement or declaration begins -> whether it is inside of a function."""
    starts, scopes, at_start, first = {}, [], True, 0
    for i, token in enumerate(tokens):
        if at_start and token.text not in ('{', '}', ';'):
            starts[i] = bool(scopes) and scopes[-1]
            first = i
        at_start = False
        if token.text == '{':
            head = {t.text for t in tokens[first:i]} if tokens[i - 1].text not in (';', '{', '}') else set()
            scopes.append('(' in head or not head & SCOPES)
            at_start = True
        elif token.text == '}':
            if scopes:
                scopes.pop()
            at_start = True
        elif token.text == ';' or token.text == 'else':
            at_start = True
        elif token.text == ':' and tokens[first].text in ('case', 'default', 'public', 'protected', 'private'):
            at_start = True
        if token.text == ')' and tokens[first].text in ('if', 'for', 'while', 'switch') \
                and closing(tokens, first + (2 if tokens[first + 1].text == 'constexpr' else 1)) == i:
            at_start = True
    return starts


def is_call_or_assignment(tokens, i):
    """Whether the statement that begins here is a call, an assignment or a step, and not a declaration."""
    if tokens[i].text in KEYWORDS:
        return False
    while i < len(tokens) and tokens[i].text in ('*', '::', '++', '--'):
        i += 1
    if i >= len(tokens) or tokens[i].kind != 'name':
        return False
    while i < len(tokens):
        i += 1
        text = tokens[i].text
        if text in ('.', '->', '::'):
            i += 1
        elif text == '[':
            i = closing(tokens, i)
        elif text == '(':
            return True
        else:
            return text in ('=', '++', '--', ';') or text.endswith('=') and text not in ('==', '!=', '<=', '>=')
    return False


def line_of(source, position):
    return source.count('\n', 0, position) + 1


def mutated(source, site, new):
    return source[:site.start] + new + source[site.end:]


def before_and_after(source, site, new):
    """The lines that the change is in, without and with it, each on one line."""
    begin = source.rfind('\n', 0, site.start) + 1
    end = source.find('\n', site.end)
    old_lines = source[begin:end if end >= 0 else None]
    new_lines = mutated(old_lines, dataclasses.replace(site, start=site.start - begin, end=site.end - begin), new)
    return ' '.join(old_lines.split()), ' '.join(new_lines.split())
