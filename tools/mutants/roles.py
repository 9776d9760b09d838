"""What may stand for a name: the other names of the same list."""

import re
from pathlib import Path

ENUMERATION = re.compile(r"enum(?:\s+class)?\s+(\w+)[^{};]*\{([^}]*)\}")
COLOURS = re.compile(r"struct Palette \{(.*?)\n\};", re.DOTALL)
COMMENT = re.compile(r"//[^\n]*")
CONSTANT = re.compile(r"^constexpr (?!double|int|bool|auto|std|qreal|char|unsigned)(\w+) (\w+)[{ (=]", re.MULTILINE)

TOOLKIT = (
    ("Qt", ("AlignLeft", "AlignRight", "AlignHCenter")),
    ("Qt", ("AlignTop", "AlignBottom", "AlignVCenter")),
    ("Qt", ("ElideNone", "ElideRight", "ElideMiddle")),
    ("Qt", ("PointingHandCursor", "ArrowCursor", "IBeamCursor")),
    ("Qt", ("NoPen", "SolidLine", "DashLine")),
    ("Qt", ("NoBrush", "SolidPattern")),
    ("Qt", ("RoundCap", "FlatCap", "SquareCap")),
    ("Qt", ("LeftButton", "RightButton", "MiddleButton")),
    ("Qt", ("Key_Left", "Key_Right")),
    ("Qt", ("Key_Up", "Key_Down", "Key_Home", "Key_End")),
    ("Qt", ("Key_Return", "Key_Escape", "Key_Space", "Key_Tab")),
    ("Qt", ("NoFocus", "TabFocus", "StrongFocus")),
    ("Qt", ("ScrollBarAlwaysOff", "ScrollBarAlwaysOn")),
    ("QSizePolicy", ("Fixed", "Expanding", "Preferred")),
    ("QPainter", ("Antialiasing", "TextAntialiasing")),
)


class Roles:
    def __init__(self, tree):
        self._lists = {}
        for scope, names in TOOLKIT:
            self._add(scope, names)
        for header in sorted(Path(tree, "src").rglob("*.h")):
            self._read(header.read_text(encoding="utf-8"))

    def _add(self, scope, names):
        self._lists.setdefault(scope, []).append(tuple(names))

    def _read(self, text):
        text = COMMENT.sub("", text)
        for name, body in ENUMERATION.findall(text):
            self._add(name, re.findall(r"(?:^|,)\s*(\w+)", body))
        for body in COLOURS.findall(text):
            self._add("palette", re.findall(r"QColor (\w+);", body))

    def siblings(self, scope, name):
        """The names that may stand for `scope::name`."""
        for names in self._lists.get(scope, ()):
            if name in names:
                return [other for other in names if other != name]
        return []

    def colours(self, name):
        return self.siblings("palette", name)


def constants(text):
    """The file's own constants by name, each with the others of its type."""
    by_type = {}
    for kind, name in CONSTANT.findall(text):
        by_type.setdefault(kind, []).append(name)
    return {name: [other for other in names if other != name] for names in by_type.values() for name in names}
