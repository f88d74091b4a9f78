"""The texts in C++ sources, and whether one of them is what is quoted."""

import functools
import re

HOLE = "\0"  # what the program fills in
EDGE = "\1"  # between two texts of one statement
BREAK = "\2"  # of lines

# What a text can be quoted from, or what ends it. Comments are passed over.
_TOKEN = re.compile(
    r"""//[^\n]*|/\*.*?\*/
      | (?P<text>(?:u8|u|U|L)?"(?:[^"\\\n]|\\.)*")
      | (?P<character>(?:u8|u|U|L)?'(?:[^'\\\n]|\\.)+')
      | (?P<suffix>(?<=["'])_(?:s|L1))
      | (?P<break>\bkCrLf\b)
      | (?P<end>[;{}])
      | (?P<comma>,)
      | (?P<joint>[\s+])
      | (?P<other>\w+|.)""",
    re.VERBOSE | re.DOTALL,
)
_ESCAPES = {"r": "", "n": BREAK, "t": " ", "0": ""}


def _unquoted(literal):
    inner = literal[literal.index(literal[-1]) + 1 : -1]
    text = re.sub(r"\\(.)", lambda escape: _ESCAPES.get(escape[1], escape[1]), inner)
    text = re.sub(r"&(?=\w)", "", text)  # the mark of a menu's key
    return re.sub(r"%\d", HOLE, text)


@functools.cache  # the chapters share most sources
def statements_of(source):
    """Each statement of a source as its texts, with HOLE, EDGE and BREAK in between; those without texts left out."""
    statements = []
    parts = []
    for token in _TOKEN.finditer(source):
        kind = token.lastgroup
        if kind in ("text", "character"):
            parts.append(_unquoted(token[0]))
        elif kind == "break":
            parts.append(BREAK)
        elif kind == "comma":
            parts.append(EDGE)
        elif kind == "other":
            parts.append(HOLE)
        elif kind == "end":
            statements.append("".join(parts))
            parts = []
    statements.append("".join(parts))
    return [re.sub(r"\s+", " ", each) for each in statements if each.strip(f" {HOLE}{EDGE}{BREAK}")]


def _pattern(quote):
    """A quote is a whole text or a whole line of one; "…" stands for anything that is left out or filled in."""
    pieces = [r"[ \2]+".join(map(re.escape, piece.split())) for piece in quote.split("…")]
    between = r"[^\1]*"
    start = "" if quote.startswith("…") else r"(?:^|[\0\1\2])[ \2]*"
    end = "" if quote.endswith("…") else r"[ \2]*(?:$|[\0\1\2])"
    return re.compile(start + between.join(pieces) + end)


class ProgramTexts:
    """All texts of some sources."""

    def __init__(self, sources):
        self._statements = [statement for source in sources for statement in statements_of(source)]

    def have(self, quote):
        pattern = _pattern(quote)
        return any(pattern.search(statement) for statement in self._statements)
