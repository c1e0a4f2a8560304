"""What can be changed in a line of C++: comparisons, signs, conditions, constants, statements."""

import collections
import re

# One possible change: the line `number` (from 1) of `path` reads `new` in place of `old`.
Change = collections.namedtuple("Change", "path number old new")

TOKEN = re.compile(
    r"""(?P<quiet>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:[^\n]|\\\n)*
    |(?:u8|[uUL])?R"(?P<mark>[^()\s\\]*)\(.*?\)(?P=mark)"
    |(?:u8|[uUL])?"(?:[^"\\\n]|\\.)*"|(?:u8|[uUL])?'(?:[^'\\\n]|\\.)+')
    |(?P<word>[A-Za-z_]\w*)
    |(?P<number>\.?\d(?:[eEpP][+-]|[\w.']|)*)
    |(?P<sign><=>|->|<<=|>>=|<<|\+\+|--|&&|\|\||[-+*/%&|^!=<>]=|::|[^\w\s])""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)
SWAPS = {
    "==": ["!="],
    "!=": ["=="],
    "<": ["<=", ">"],
    ">": [">=", "<"],
    "<=": ["<", ">="],
    ">=": [">", "<="],
    "&&": ["||"],
    "||": ["&&"],
    "+": ["-"],
    "-": ["+"],
    "+=": ["-="],
    "-=": ["+="],
    "++": ["--"],
    "--": ["++"],
    "true": ["false"],
    "false": ["true"],
}
WITH_BLANKS = {"<", ">", "&&", "||", "+", "-"}  # without, these are brackets, references and signs
PASSED_BY = re.compile(
    r"\s*(using|template|namespace|friend|extern|typedef|class|struct|enum|static_assert)\b"
)
# A call or an assignment; what begins with a type is a declaration.
STATEMENT = re.compile(
    r"\s*((\+\+|--)?\*?[A-Za-z_][\w.:\[\]]*(->[\w.:\[\]]+)*(\s*[-+*/|&^%]?=[^=]|\(|\+\+|--).*|break|continue|return);$"
)
INTEGER = re.compile(r"(0[xX][\dA-Fa-f']+|\d[\d']*)([uUlLzZ]*)$")


def blanked(text):
    """The text with comments, literals, directives and assertions blanked out, and where its words, numbers and signs begin."""
    marks, code = [], list(text)

    def blank(start, end, filling):
        code[start:end] = [each if each == "\n" else filling for each in text[start:end]]

    for token in TOKEN.finditer(text):
        if token["quiet"] is None:
            marks.append((token.start(), token[0]))
        else:
            is_literal = token[0][-1] in "\"'" and not token[0].lstrip().startswith(("/", "#"))
            blank(token.start(), token.end(), '"' if is_literal else " ")
    for call in re.finditer(r"\b(?:static_assert|assert|Q_ASSERT)\s*\(", "".join(code)):
        end = closing("".join(code), call.end() - 1)
        blank(call.start(), end, " ")
        marks = [mark for mark in marks if not call.start() <= mark[0] < end]
    return "".join(code), marks


def closing(code, at):
    """Where the bracket that opens at `at` has been closed; the end of the code if it never is."""
    depth = 0
    for place in range(at, len(code)):
        depth += {"(": 1, ")": -1}.get(code[place], 0)
        if depth == 0:
            return place + 1
    return len(code)


def neighbours(number):
    """The constants beside an integer."""
    match = INTEGER.match(number)
    if not match:
        return []
    value = int(match[1].replace("'", ""), 0 if match[1][:2] in ("0x", "0X") else 10)
    shown = hex if match[1][:2] in ("0x", "0X") else str
    return [shown(each) + match[2] for each in (value + 1, value - 1) if each >= 0]


def token_changes(code, start, token):
    """What may stand in place of a token of the line `code`."""
    end = start + len(token)
    before, after = code[start - 1 : start], code[end : end + 1]
    if token[0].isdigit():
        return neighbours(token)
    if code[:start].endswith("operator") or (token in WITH_BLANKS and before + after != "  "):
        is_sign = token == "-" and after != " " and before in ("", " ", "(", "{", "[")
        return [""] if is_sign else []
    if token == "!":
        return [""]
    return SWAPS.get(token, [])


def condition_changes(code):
    """Negations of the conditions that begin and end in the line: the place, what stands there, what would."""
    for condition in re.finditer(r"\b(?:if|while) \(", code):
        end = closing(code, condition.end() - 1)
        inner = code[condition.end() : end - 1]
        if end < len(code) + 1 and code[end - 1] == ")" and not re.search(r";| = ", inner):
            yield condition.end(), end - 1


def balanced(code):
    return all(code.count(left) == code.count(right) for left, right in ("()", "{}", "[]"))


def changes_of(path, text):
    """All changes, as a list for each line that has any."""
    code, marks = blanked(text)
    lines, code_lines = text.split("\n"), code.split("\n")
    starts, found = [0], []
    for line in lines:
        starts.append(starts[-1] + len(line) + 1)
    before = (
        ";"  # the end of the last line with code: a statement begins only after one that has ended
    )
    for number, (old, plain) in enumerate(zip(lines, code_lines), 1):
        if not plain.strip():
            continue
        here, begin = [], starts[number - 1]
        is_start, before = before[-1] in ";{}):" or before.endswith("else"), plain.rstrip()
        if PASSED_BY.match(plain):
            continue
        for place, token in (mark for mark in marks if begin <= mark[0] < starts[number]):
            at = place - begin
            for new in token_changes(plain, at, token):
                here.append(old[:at] + new + old[at + len(token) :])
        for at, end in condition_changes(plain):
            here.append(f"{old[:at]}!({old[at:end]}){old[end:]}")
        if is_start and balanced(plain) and STATEMENT.match(plain.rstrip()):
            here.append(re.match(r"\s*", old)[0] + "{ }")
        if here:
            found.append([Change(path, number, old, new) for new in here])
    return found
