"""Whether the keyboard's focus can be seen wherever Tab and the arrow keys lead."""

import copy
import time
from functools import lru_cache

from Xlib import X, display

ENOUGH = 3.0  # between the pixels of a control with and without the focus
ROOM = 5  # how far outside and inside its edge a ring may be
SMALLEST = 20  # pixels that a ring must be high
ARROWS = {"list-item", "page-tab", "radio-button", "table-cell"}
MOST = 60


@lru_cache(None)
def luminance(pixel):
    def linear(channel):
        value = channel / 255
        return value / 12.92 if value <= 0.04045 else ((value + 0.055) / 1.055) ** 2.4

    blue, green, red = pixel
    return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue)


def contrast(one, other):
    darker, lighter = sorted((luminance(one), luminance(other)))
    return (lighter + 0.05) / (darker + 0.05)


class Picture:
    """What the screen showed."""

    root = None

    def __init__(self):
        if Picture.root is None:
            Picture.root = display.Display().screen().root
        size = self.root.get_geometry()
        self.width, self.height = size.width, size.height
        self.bytes = self.root.get_image(0, 0, self.width, self.height, X.ZPixmap, 0xFFFFFFFF).data

    def pixel(self, x, y):
        at = (y * self.width + x) * 4
        return tuple(self.bytes[at:at + 3])

    def row(self, columns, y):
        at = y * self.width * 4
        return self.bytes[at + columns.start * 4:at + columns.stop * 4]


class Stop:
    """The focus is somewhere: where, and what the screen shows."""

    def __init__(self, node, scope):
        self.node, self.scope, self.picture = node, scope, Picture()

    def seen_again(self, picture):
        again = copy.copy(self)
        again.picture = picture
        return again

    def box_of(self, node):
        return next((each.box for each in self.scope.all() if each.path == node.path), None)


def clear_places(stop, other, shift):
    """Where the pixels in and around the focused thing differ clearly from those of the other picture."""
    left, top, width, height = stop.node.box
    window = stop.scope.box
    columns = range(max(left - ROOM, window[0], 0), min(left + width + ROOM, window[0] + window[2], stop.picture.width))
    rows = range(max(top - ROOM, window[1], 0), min(top + height + ROOM, window[1] + window[3], stop.picture.height))
    for y in rows:
        if stop.picture.row(columns, y) == other.picture.row(range(columns.start + shift[0], columns.stop + shift[0]), y + shift[1]):
            continue
        for x in columns:
            here, there = stop.picture.pixel(x, y), other.picture.pixel(x + shift[0], y + shift[1])
            if here != there and contrast(here, there) >= ENOUGH:
                yield x, y


def within(box, window):
    return (window[0] <= box[0] and box[0] + box[2] <= window[0] + window[2] and
            window[1] <= box[1] - ROOM and box[1] + box[3] + ROOM <= window[1] + window[3])


def missing_sides(stop, other):
    """The sides of the focused thing along most of which nothing stands out; None where the pictures cannot be compared."""
    box, before = stop.node.box, other.box_of(stop.node)
    if before is None or before[2:] != box[2:] or other.node.path == stop.node.path or not within(before, other.scope.box):
        return None
    places = list(clear_places(stop, other, (before[0] - box[0], before[1] - box[1])))
    return open_sides(places, box)


def open_sides(places, box):
    """The sides on which the frame made of these places is open. It may be smaller than the thing, but not a mere caret."""
    left, right = (side([x for x, _ in places], default=0) for side in (min, max))
    top, bottom = (side([y for _, y in places], default=0) for side in (min, max))
    if right - left < box[2] / 2 or bottom - top < min(box[3] / 2, SMALLEST):
        return ["top", "bottom", "left", "right"]
    column, row = (left + right) / 2, (top + bottom) / 2
    halves = {"top": ({x for x, y in places if y < row}, right - left), "bottom": ({x for x, y in places if y > row}, right - left),
              "left": ({y for x, y in places if x < column}, bottom - top),
              "right": ({y for x, y in places if x > column}, bottom - top)}
    return [side for side, (clear, length) in halves.items() if len(clear) * 2 < length]


def focused_in(scope):
    """The innermost thing that has the focus; the current row of a list says so even when the list does not have it."""
    found = [node for node in scope.all() if node.has("focused") and (node.role != "list-item" or node.parent.has("focused"))]
    return found[-1] if found else None


class Tour:
    """Goes through one screen with Tab."""

    def __init__(self, walked):
        self.walked = walked
        self.stops = []

    def look(self, before=None, seconds=0.7):
        """Waits until the focus is elsewhere; None if it stays."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            scope = self.walked.scope()
            node = scope and focused_in(scope)
            if node and (before is None or node.path != before.path):
                return Stop(node, scope)
        return None

    def press(self, key, before):
        self.walked.desktop.press(key)
        return self.look(before)

    def go(self):
        """Pairs of a thing without a visible ring and what is wrong."""
        first = self.look() or self.press("Tab", None)
        if first is None:
            return
        # Where the focus is at first, it may have come without the keyboard; Tab comes back to it in the end.
        self.stops = [first]
        seen = set()
        yield from self.try_arrows()
        while len(seen) < MOST:
            stop = self.press("Tab", self.stops[-1].node)
            if stop is None or stop.node.path in seen:
                break
            seen.add(stop.node.path)
            yield from self.check(stop)
            yield from self.try_arrows()

    def try_arrows(self):
        """To the neighbour and back."""
        stop = self.stops[-1]
        if stop.node.role not in ARROWS:
            return
        for key, back in (("Down", "Up"), ("Right", "Left")):
            moved = self.press(key, stop.node)
            if moved is not None:
                yield from self.check(moved)
                returned = self.press(back, moved.node)
                if returned is not None:
                    yield from self.check(returned)
                return

    def check(self, stop):
        """Compares with other stops: at the one before, the ring of a close neighbour may have been where this one's is."""
        others = [*self.stops[:2], *self.stops[-3:]]
        self.stops.append(stop)
        missing = self.missing(stop, others)
        if missing:
            time.sleep(0.1)  # it may not have been painted yet
            missing = self.missing(stop.seen_again(Picture()), others)
        if missing:
            yield stop.node, f"has the focus, of which nothing can be seen at its {', '.join(missing)}"

    @staticmethod
    def missing(stop, others):
        """The fewest sides that are missing in a comparison."""
        verdicts = [verdict for verdict in (missing_sides(stop, other) for other in others) if verdict is not None]
        return min(verdicts, key=len, default=[])
