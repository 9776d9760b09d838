"""A C++ file cut into tokens, as far as finding places to change needs it."""

import re
from dataclasses import dataclass
from pathlib import Path

TOKEN = re.compile(r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<raw>R"(?P<fence>[^()\s]*)\(.*?\)(?P=fence)")
  | (?P<directive>(?m:^)[ \t]*\#[^\n]*)
  | (?P<text>(?:u8|[uUL])?"(?:\\.|[^"\\\n])*"\w*)
  | (?P<character>(?:u8|[uUL])?'(?:\\.|[^'\\\n])+')
  | (?P<number>(?:0x[0-9A-Fa-f']+|\d[\d']*(?:\.\d+)?(?:[eE][+-]?\d+)?)\w*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<sign><=>|<<=|>>=|->\*|<=|>=|==|!=|&&|\|\||\+=|-=|\*=|/=|\+\+|--|->|::|\S)
""", re.VERBOSE | re.DOTALL)


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


class Source:
    """One file of the tree; its path is relative to the tree's root."""

    def __init__(self, tree, path):
        self.path = path
        self.text = (Path(tree) / path).read_text(encoding="utf-8")
        matches = (match for match in TOKEN.finditer(self.text))
        self.tokens = [Token(match.lastgroup if match.lastgroup != "fence" else "raw", match.group(), match.start())
                       for match in matches]
        self.tokens = [token for token in self.tokens if token.kind not in ("comment", "directive", "raw")]
        self.lines = self.text.split("\n")
        self._starts = [0]
        for line in self.lines:
            self._starts.append(self._starts[-1] + len(line) + 1)

    @property
    def is_header(self):
        return self.path.endswith(".h")

    @property
    def paints(self):
        """Whether it draws: on a screen or on a document's page."""
        return "QPainter" in self.text or "PdfDocument" in self.text

    def line_of(self, offset):
        """Counted from 0."""
        low, high = 0, len(self.lines)
        while high - low > 1:
            middle = (low + high) // 2
            low, high = (middle, high) if self._starts[middle] <= offset else (low, middle)
        return low

    def start_of(self, line):
        return self._starts[line]

    def stands_between_blanks(self, token):
        """As binary signs do in formatted code, and template brackets and references do not."""
        before, after = self.text[token.start - 1:token.start], self.text[token.end:token.end + 1]
        return before.isspace() and after.isspace()
