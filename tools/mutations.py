"""What tools/mutants.py can change in a source, and how it names the changes."""

import re
from collections import Counter

IN_NUMBER = re.compile(r"(?<![\w'])\d[\w']*$")  # behind which "'" only parts the digits


def masked(text):
    """`text` with comments, texts and directives blanked out, and where its letters ('A') stand."""
    out = list(text)
    letters = []
    at = 0

    def blank(begin, end):
        for place in range(begin, end):
            if out[place] != "\n":
                out[place] = "\x01"

    while at < len(text):
        if text.startswith("//", at):
            end = text.find("\n", at)
        elif text.startswith("/*", at):
            end = text.find("*/", at) + 2
        elif text[at] == "#" and not text[text.rfind("\n", 0, at) + 1:at].strip():
            end = text.find("\n", at)
        elif text[at] == '"' or (text[at] == "'" and not IN_NUMBER.search(text[max(0, at - 20):at])):
            end = at + 1
            while text[end] != text[at]:
                end += 2 if text[end] == "\\" else 1
            end += 1
            if text[at] == "'":
                letters.append((at, end))
        else:
            at += 1
            continue
        end = len(text) if end <= 0 else end
        blank(at, end)
        at = end
    return "".join(out), letters


SWAPS = [
    (r"(?<= )(<=|>=|==|!=|<|>)(?= |$)",
     {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}),
    (r"(?<= )(&&|\|\|)(?= |$)", {"&&": "||", "||": "&&"}),
    (r"(?<= )([+*/-])(?= |$)", {"+": "-", "-": "+", "*": "/", "/": "*"}),
    (r"(\+=|-=)", {"+=": "-=", "-=": "+="}),
    (r"(\+\+|--)", {"++": "--", "--": "++"}),
    (r"\b(true|false)\b", {"true": "false", "false": "true"}),
    (r"\bstd::(min|max)\b", {"min": "max", "max": "min"}),
]
NUMBER = re.compile(r"(?<![\w.'\x01])(0x[0-9A-Fa-f]+|\d[\d']*)(?![\w.'])")
NOT = re.compile(r"!(?=[\w(*])")
CALL = re.compile(r"^( +)((?!return\b|delete\b|throw\b|case\b)[A-Za-z_][\w.:>\[\]()-]*\(.*\));$")
FUNCTION = re.compile(r"^[A-Za-z_].*?\b(~?\w+(?:::~?\w+)*|operator\S+)\(")
MEMBER = re.compile(r"^  (?!return|if|for|while|switch|else)[A-Za-z_].*?[ *&](~?\w+|operator\S+)\(")


def condition_of(line):
    """The first and last place of the condition of an `if` that ends in its line."""
    found = re.search(r"\bif \(", line)
    if not found:
        return None
    depth = 0
    for place in range(found.end() - 1, len(line)):
        depth += {"(": 1, ")": -1}.get(line[place], 0)
        if depth == 0:
            inner = line[found.end():place]
            # A negated one is changed by its "!", and a declaration is no condition.
            if ";" in inner or re.match(r"!|const |auto |[\w:]+[ *&]+\w+ = ", inner):
                return None
            return found.end(), place
    return None


class Mutant:
    def __init__(self, path, line, begin, end, new):
        self.path, self.line, self.begin, self.end, self.new = path, line, begin, end, new
        self.name = ""

    def room(self):
        return self.path.parent.name


def mutants_of_line(line, mask, letters):
    """Every change of one line: where it begins and ends, and what comes in its place."""
    for pattern, swaps in SWAPS:
        for found in re.finditer(pattern, mask):
            yield found.start(1), found.end(1), swaps[found.group(1)]
    for found in NUMBER.finditer(mask):
        number = int(found.group(1).replace("'", ""), 0)
        yield found.start(1), found.end(1), str(number + 1)
        if number > 1:
            yield found.start(1), found.end(1), str(number - 1)
    for found in NOT.finditer(mask):
        yield found.start(), found.end(), ""
    for begin, end in letters:
        letter = line[begin:end]
        if len(letter) == 3 and letter not in ("'~'", "'&'", "'['"):
            yield begin, end, "'%s'" % chr(ord(letter[1]) + 1)
    condition = condition_of(mask)
    if condition:
        begin, end = condition
        yield begin, end, "!(%s)" % line[begin:end]
    call = CALL.match(mask)
    if call:
        yield call.start(2), call.end(2), ""


def mutants_of(path, text):
    """The mutants of a source, in its order."""
    mask, letters = masked(text)
    function, previous, offset, seen = "-", ";", 0, Counter()
    for number, (line, hidden) in enumerate(zip(text.split("\n"), mask.split("\n"))):
        found = FUNCTION.match(hidden)
        if not found and path.suffix == ".h":
            found = MEMBER.match(hidden)
        if found and not hidden.startswith(("static_assert", "template <")):
            function = found.group(1)
        is_statement = path.suffix == ".cpp" and previous.endswith((";", "{", "}", ")", "\x01"))
        own = [(b - offset, e - offset) for b, e in letters if offset <= b < offset + len(line)]
        skipped = hidden.startswith(("static_assert", "using ", "namespace ", "template <"))
        for begin, end, new in () if skipped else mutants_of_line(line, hidden, own):
            if not new and line[begin] != "!" and not is_statement:
                continue
            mutant = Mutant(path, number, begin, end, new)
            change = "%s{%s|%s}%s" % (line[:begin].lstrip(), line[begin:end],
                                      new, line[end:].rstrip())
            mutant.name = "%s: %s: %s" % (path, function, change)
            seen[mutant.name] += 1
            if seen[mutant.name] > 1:
                mutant.name += " #%d" % seen[mutant.name]
            yield mutant
        if hidden.strip("\x01 "):
            previous = hidden.rstrip("\x01 ")
        offset += len(line) + 1
