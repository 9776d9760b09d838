"""What there is to hear and what is on disk at one moment, and what has become different since."""

import re
import sqlite3

from accessibility_home import DEFAULTS, OPENED, PROFILE
from desktop import DOCUMENTS

# Time goes by between an action and a click, and new records have new identifiers.
PASSING = [(re.compile(pattern), by) for pattern, by in (
    (r"\d+:\d\d(:\d\d)?", "TIME"), (r"\b\d{9}(\.\d+)?\b", "MOMENT"), (r"[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}", "ID"),
    (r"\b\d+\xa0s\b", "SECONDS"), (r"\b0[,.]\d\d\b", "CENTS"), (r"(Rechnung erstellen): [^']*", r"\1"))]
# Where the focus is belongs to the keyboard; what is shown is in the tree or not.
IGNORED = {"focused", "active", "visible", "showing", "focusable", "armed", "pressed"}
# "expanded" is missing: Qt 6.4's bridge passes on changes of the states checked, active and disabled, and nothing else.
WATCHED = {"checked", "selected", "enabled"}


def timeless(text):
    for pattern, by in PASSING:
        text = pattern.sub(by, text)
    return text


def lines(node, depth=0):
    """The tree as text, without what differs from one moment to the next by itself."""
    words = [str(node), *sorted(node.states - IGNORED), f"text={node.text!r}" if node.text is not None else "",
             f"value={node.value}" if node.value is not None else ""]
    found = [timeless("  " * depth + " ".join(words))]
    for child in node.children:
        if child.has("showing") and child.role != "status-bar":  # its messages go by themselves
            found += lines(child, depth + 1)
    return found


def stored():
    """What is on disk, line by line."""
    found = []
    for file in [*sorted(DOCUMENTS.glob("*.json")), PROFILE / "profile.json", OPENED]:
        if file.exists():
            found += [f"{file.name}: {timeless(line)}" for line in file.read_text(encoding="utf-8").splitlines()]
    found.append(f"logo: {(PROFILE / 'userLogo.png').exists()}")
    if DEFAULTS.exists():
        database = sqlite3.connect(f"file:{DEFAULTS}?mode=ro", uri=True)
        found += [str(row) for row in database.execute("SELECT key, content FROM value ORDER BY key")]
        database.close()
    return found


class State:
    def __init__(self, walked):
        self.tree = walked.tree()
        self.lines = tuple(lines(self.tree) + stored())

    def __eq__(self, other):
        return other is not None and self.lines == other.lines

    def windows(self):
        """The open windows and menus."""
        return [node.path for node in self.tree.all() if node.parent is self.tree or node.has("active")]


class Outcome:
    """What a deed has changed."""

    def __init__(self, before, after, events):
        self.before, self.after, self.events = before, after, {event[:3] for event in events}

    def changed(self):
        return self.before != self.after

    def difference(self, other):
        """The first line that only one of the two states has."""
        common = set(self.after.lines) & set(other.lines)
        only = [line.strip() for line in (*self.after.lines, *other.lines) if line not in common]
        return only[0][:90] if only else "the order"

    def has_new_rows(self, parent):
        """Where rows have come or gone, the things below stand for other rows than before."""
        return parent is not None and any((parent.path, "ChildrenChanged", kind) in self.events for kind in ("add", "remove"))

    def silent_changes(self):
        """What has changed without an event that says so."""
        old = {node.path: node for node in self.before.tree.all() if node.has("showing")}
        for node in self.after.tree.all():
            before = old.get(node.path)
            if before is not None and before.role == node.role and node.has("showing") and not self.has_new_rows(node.parent):
                for change, events in changes(before, node):
                    if not self.events & {(node.path, *event) for event in events}:
                        yield f"{timeless(str(node))}: {change} without an event"


def changes(before, node):
    """What is different about a thing, each with the events that say so."""
    for state in sorted((before.states ^ node.states) & WATCHED):
        yield f"{state} has become {node.has(state)}", {("StateChanged", state)}
    if before.name != node.name:
        yield "the name has changed", {("PropertyChange", "accessible-name")}
    if before.value != node.value:
        yield "the value has changed", {("PropertyChange", "accessible-value")}
    if before.text != node.text:
        yield "the text has changed", {("TextChanged", "insert"), ("TextChanged", "delete")}
