"""Whether the keyboard's focus can be seen wherever Tab and the arrow keys lead."""

import copy
import time
from functools import lru_cache

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

    def __init__(self, hands):
        self.width, self.height, self.bytes = hands.picture()

    def pixel(self, x, y):
        at = (y * self.width + x) * 4
        return tuple(self.bytes[at:at + 3])

    def row(self, columns, y):
        at = y * self.width * 4
        return self.bytes[at + columns.start * 4:at + columns.stop * 4]


class Stop:
    """The focus is somewhere: where, and what the screen shows."""

    def __init__(self, node, scope, picture):
        self.node, self.scope, self.picture = node, scope, picture

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
    shifted = range(columns.start + shift[0], columns.stop + shift[0])
    for y in rows:
        if stop.picture.row(columns, y) == other.picture.row(shifted, y + shift[1]):
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
    """Goes through one screen with Tab. Things that are known already are passed by."""

    def __init__(self, walked, known):
        self.walked, self.known = walked, known
        self.stops = []
        self.focus = None

    def look(self):
        scope = self.walked.scope(details=False)
        self.focus = [self.focus, *self.walked.focus_moves()][-1]  # a list passes it on to its current row
        node = focused_in(scope)
        return node and Stop(node, scope, Picture(self.walked.hands))

    def focus_moves(self, seconds=0.4):
        """Whether the focus is announced elsewhere in time."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            moves = self.walked.focus_moves()
            if moves and moves[-1] != self.focus:
                self.focus = moves[-1]
                return True
            time.sleep(0.005)
        return False

    def press(self, key):
        self.walked.hear()
        self.walked.hands.press(key)
        return self.focus_moves()

    def go(self):
        """Pairs of a thing without a visible ring and what is wrong."""
        first = self.look()
        if first is not None:
            # It may have the focus without the keyboard; Tab comes back to it in the end.
            self.stops = [first]
            self.focus = first.node.path
            yield from self.try_arrows(first.node)
        seen = set()
        while len(seen) < MOST and self.press("Tab") and self.focus not in seen:
            seen.add(self.focus)
            node = self.known_node()
            if node is None:
                stop = self.look()
                node = stop and stop.node
                yield from self.check(stop)
            if node is not None:
                yield from self.try_arrows(node)

    def known_node(self):
        """The focused thing if it has been judged on an earlier screen."""
        nodes = self.stops[-1].scope.all() if self.stops else ()
        node = next((node for node in nodes if node.path == self.focus), None)
        return node if node is not None and node.way() in self.known else None

    def try_arrows(self, node):
        """To the neighbour and back."""
        if node.role not in ARROWS or (node.parent.way(), "arrows") in self.known:
            return
        self.known.add((node.parent.way(), "arrows"))
        for key, back in (("Down", "Up"), ("Right", "Left")):
            if self.press(key):
                yield from self.check(self.look())
                if self.press(back):
                    yield from self.check(self.look())
                return

    def check(self, stop):
        """Compares with other stops: at the one before, the ring of a close neighbour may have been where this one's is."""
        if stop is None:
            return
        if stop.node.path != self.focus:
            yield stop.node, "says that it has the focus, while something else was announced"
        others = [*self.stops[:2], *self.stops[-3:]]
        self.stops.append(stop)
        self.known.add(stop.node.way())
        missing = self.missing(stop, others)
        if missing:
            time.sleep(0.1)  # it may not have been painted yet
            missing = self.missing(stop.seen_again(Picture(self.walked.hands)), others)
        if missing:
            yield stop.node, f"has the focus, of which nothing can be seen at its {', '.join(missing)}"

    @staticmethod
    def missing(stop, others):
        """The fewest sides that are missing in a comparison."""
        verdicts = [verdict for verdict in (missing_sides(stop, other) for other in others) if verdict is not None]
        return min(verdicts, key=len, default=[])
