"""One-line changes: finding all that a file allows."""

import re
from dataclasses import asdict, dataclass

from roles import constants
from source import Source


@dataclass(frozen=True)
class Change:
    file: str
    line: int  # counted from 1
    kind: str
    before: str
    after: str
    paints: bool

    @property
    def key(self):
        """Does not hold the line's number, so that a change is found again when lines above it come or go."""
        return f"{self.file}|{self.before}|{self.after}"

    def as_record(self):
        return asdict(self)


class Finder:
    """Everything that may be changed in one file; `kind` by `kind`, in the order of the file."""

    def __init__(self, source: Source, roles):
        self.source = source
        self.roles = roles
        self.constants = constants(source.text)
        self.found = []

    def find(self):
        for at, token in enumerate(self.source.tokens):
            if token.kind == "number":
                self._replace(token, "number", other_numbers(token.text))
            elif token.kind == "text":
                self._replace(token, "text", other_texts(token.text))
            elif token.kind == "sign" and self.source.stands_between_blanks(token):
                self._change_sign(at)
            elif token.kind == "word":
                self._change_word(at)
        self._remove_calls()
        return [change for change in self.found if not is_only_declaring(change.before)]

    def _token(self, at):
        tokens = self.source.tokens
        return tokens[at].text if 0 <= at < len(tokens) else ""

    def _replace(self, token, kind, replacements):
        for replacement in replacements:
            self._replace_range(token.start, token.end, kind, replacement)

    def _replace_range(self, start, end, kind, replacement):
        line = self.source.line_of(start)
        before = self.source.lines[line]
        begin = self.source.start_of(line)
        after = before[:start - begin] + replacement + before[end - begin:]
        if after != before and end - begin <= len(before):
            self.found.append(Change(self.source.path, line + 1, kind, before, after, self.source.paints))

    def _change_sign(self, at):
        token = self.source.tokens[at]
        if token.text in COMPARISONS:
            self._replace(token, "comparison", COMPARISONS[token.text])
        elif token.text in ARITHMETIC and not any('"' in self._token(at + step) for step in (-1, 1)):
            self._replace(token, "arithmetic", ARITHMETIC[token.text])

    def _change_word(self, at):
        token = self.source.tokens[at]
        if token.text in WORDS:
            self._replace(token, WORDS[token.text][0], [WORDS[token.text][1]])
        elif self._token(at - 1) == "::" and self._token(at - 2) != "Palette":
            self._replace(token, "role", self.roles.siblings(self._token(at - 2), token.text))
        elif self._token(at - 1) in ("::", ".") and self._token(at - 2) in ("Palette", "palette", "m_palette", ")"):
            self._replace(token, "role", self.roles.colours(token.text))
        elif token.text in self.constants and self._token(at + 1) in (",", ")", "}", ";", ":", ".", "?"):
            self._replace(token, "role", self.constants[token.text])
        if self._token(at + 1) in ("(", "{") and token.text not in NOT_CALLED:
            self._swap_arguments(at + 1)

    def _swap_arguments(self, opening):
        arguments = self._arguments(opening)
        for first, second in zip(arguments, arguments[1:]):
            texts = [self.source.text[start:end] for start, end in (first, second)]
            if texts[0] != texts[1] and not any(declares(text) for text in texts):
                between = self.source.text[first[1]:second[0]]
                self._replace_range(first[0], second[1], "arguments", texts[1] + between + texts[0])

    def _arguments(self, opening):
        """Begin and end of each argument of the call that opens there; none unless it stands on one line."""
        tokens, depth, begin, ranges = self.source.tokens, 0, opening + 1, []
        for at in range(opening, len(tokens)):
            text = tokens[at].text
            depth += (text in "([{") - (text in ")]}")
            if depth == 0 or (depth == 1 and text == ","):
                if at > begin:
                    ranges.append((tokens[begin].start, tokens[at - 1].end))
                begin = at + 1
            if depth == 0:
                return ranges if "\n" not in self.source.text[tokens[opening].start:tokens[at].end] else []
        return []

    def _remove_calls(self):
        previous = ""
        for number, line in enumerate(self.source.lines):
            stripped = line.strip()
            if stands_alone(previous) and is_call(stripped) and not self._constructs(stripped):
                start = self.source.start_of(number) + len(line) - len(line.lstrip())
                self._replace_range(start, self.source.start_of(number) + len(line), "call", ";")
            previous = stripped or previous

    def _constructs(self, line):
        return self.source.is_header and re.match(r"(explicit )?[A-Z]\w*\(", line)


COMPARISONS = {"<": ("<=", ">"), "<=": ("<", ">"), ">": (">=", "<"), ">=": (">", "<"), "==": ("!=",), "!=": ("==",),
               "&&": ("||",), "||": ("&&",)}
ARITHMETIC = {"+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "+=": ("-=",), "-=": ("+=",)}
WORDS = {"min": ("comparison", "max"), "max": ("comparison", "min"), "true": ("role", "false"),
         "false": ("role", "true")}
NOT_CALLED = {"if", "for", "while", "switch", "return", "catch", "sizeof", "template", "decltype", "noexcept",
              "static_assert", "else", "do", "const", "override"}
NO_STATEMENT = ("return", "throw", "delete", "case", "else", "using", "static_assert", "goto", "break")


def other_numbers(text):
    if text.startswith("0x"):
        digits = re.match(r"0x[0-9A-Fa-f]+", text.replace("'", "")).group()
        return [f"0x{int(digits, 16) ^ 0x40:0{len(digits) - 2}X}" + text.replace("'", "")[len(digits):]]
    digits, suffix = re.match(r"([\d.]+(?:[eE][+-]?\d+)?)(.*)", text.replace("'", "")).groups()
    if re.fullmatch(r"\d+", digits):
        value = int(digits)
        return [f"{other}{suffix}" for other in ((1,) if value == 0 else (value - 1, value + 1))]
    value = float(digits)
    return [f"{other:.6g}{suffix}" if "." in f"{other:.6g}" else f"{other:.1f}{suffix}"
            for other in ((1.0,) if value == 0 else (value * 1.5, value / 2))]


def other_texts(text):
    """The text without its last character."""
    prefix, content, suffix = re.match(r'(\w*)"(.*)"(\w*)$', text, re.DOTALL).groups()
    shorter = re.sub(r"(\\u[0-9A-Fa-f]{4}|\\x[0-9A-Fa-f]+|\\.|.)$", "", content)
    return [f'{prefix}"{shorter}"{suffix}'] if content else []


def declares(argument):
    """Whether it is a parameter of a declaration: two words in a row."""
    return re.match(r"(const )?[\w:<>]+[&*]* [&*]*\w+( =|$)", argument) is not None


def is_only_declaring(line):
    return re.search(r"\bvirtual\b|\) (const )?= (0|default|delete);|static_assert|^\s*template|operator", line) is not None


def stands_alone(previous):
    """Whether a statement may begin after that line."""
    return previous.endswith((";", "{", "}", ")", ":")) or previous == "else"


def is_call(line):
    called = re.match(r"([A-Za-z_][\w:.]*(?:->\w+|\(\)|\[\w+\]|\.\w+)*)\(.*\);$", line)
    return called is not None and balanced(line) and not line.startswith(NO_STATEMENT)


def balanced(line):
    return line.count("(") == line.count(")") and line.count("{") == line.count("}")
