"""Every screen and sheet on a low screen: windows lie on it, and every control can be brought wholly into view."""

import os
from itertools import combinations

from accessibility_controls import CONTAINER_ROLES, is_control, is_scrolled, takes_keys
from accessibility_program import PAUSE, Walked
from accessibility_screens import SCREENS
from desktop import main
from Xlib import X

# Scales with fractions round the place of each edge.
TOLERANCE = 1
TURNS = 40
PANEL = 28


def is_to_be_seen_whole(node):
    """A control, or a text that is not only spoken."""
    if not is_control(node):
        return bool(node.name) and not node.children and node.box[3] > 0
    return node.role not in CONTAINER_ROLES and not is_scrolled(node) and not takes_keys(node)


def edges(node):
    x, y, width, height = node.box
    return x, y, x + width, y + height


def surroundings(node):
    """What lies around a thing and may cut it, up to its window."""
    for above in [] if node.has("active") else node.ancestors():
        if above.box[3]:
            yield above
        if above.has("active"):
            return


def common(one, other):
    """The edges of what two areas have in common."""
    return (*(max(pair) for pair in zip(one[:2], other[:2])), *(min(pair) for pair in zip(one[2:], other[2:])))


def seen_of(node):
    """The edges of what is not scrolled out of view."""
    seen = edges(node)
    for above in surroundings(node):
        seen = common(seen, edges(above))
    return seen


def is_one_over_the_other(one, other):
    if one in other.ancestors() or other in one.ancestors():
        return False
    left, top, right, bottom = common(seen_of(one), seen_of(other))
    return min(right - left, bottom - top) > TOLERANCE


class Look:
    """Looks at one screen from its top to its end."""

    def __init__(self, walked, desktop, screen):
        self.walked, self.desktop, self.screen = walked, desktop, screen

    def picture(self, part=""):
        name = f"low-{self.desktop.width}-{self.desktop.scale:g}-{self.desktop.edge}-{self.screen.name}{part}"
        self.desktop.screenshot(name.replace(": ", "-").replace(" ", "-"))

    def faults(self):
        self.picture()
        yield from self.windows_off_the_screen()
        scope = self.walked.scope(details=False)
        nodes = [node for node in self.walked.scope().all() if is_to_be_seen_whole(node)]
        yield from self.overlaps([node for node in nodes if is_control(node)])
        for node in nodes:
            fault = self.bring_into_view(node)
            if fault:
                yield f"{node.way()}: {fault}"
        if any(node.box != scope_now.box for node, scope_now in zip(scope.all(), self.walked.scope(details=False).all())):
            self.picture(" (end)")

    def windows_off_the_screen(self):
        for window in self.walked.hands.root.query_tree().children:
            box = window.get_geometry()
            if window.get_attributes().map_state != X.IsViewable or box.width == 1:
                continue  # the window manager's own, for the focus
            ends = box.x, box.y, box.x + box.width, box.y + box.height
            if common(ends, self.free_area()) != ends and min(box.width, box.height) > PANEL:
                yield f"a window lies off the screen or over the panel: {box.width}x{box.height} at {box.x},{box.y}"

    def free_area(self):
        """Of a panel at the top nobody is told."""
        left, top, right, bottom = 0, 0, self.desktop.width, self.desktop.height
        panel = PANEL - TOLERANCE
        return {"top": (left, top, right, bottom), "left": (left + panel, top, right, bottom),
                "bottom": (left, top, right, bottom - panel), "right": (left, top, right - panel, bottom)}[self.desktop.edge]

    @staticmethod
    def overlaps(nodes):
        for node, other in combinations(nodes, 2):
            if is_one_over_the_other(node, other):
                yield f"{node.way()}: lies over {other}"

    def bring_into_view(self, node):
        """Turns the wheel over what cuts the control. Returns what remains cut."""
        for _ in range(TURNS):
            cut = self.cut(node)
            if cut is None:
                return None
            around, button = cut
            if button is None:
                return f"is cut at its side by {around}: {edges(node)} in {edges(around)}"
            self.turn_wheel(around, button)
            node = next((each for each in self.walked.scope(details=False).all() if each.path == node.path), None)
            if node is None:
                return "is gone after scrolling"
        return f"cannot be scrolled into view: {edges(node)} in {edges(cut[0])}"

    @staticmethod
    def cut(node):
        """What cuts the thing, and the wheel's button that could bring it into view."""
        left, top, right, bottom = edges(node)
        for around in surroundings(node):
            left_end, top_end, right_end, bottom_end = edges(around)
            if left < left_end - TOLERANCE or right > right_end + TOLERANCE:
                return around, None
            if bottom > bottom_end + TOLERANCE:
                return around, 5
            if top < top_end - TOLERANCE:
                return around, 4
        return None

    def turn_wheel(self, around, button):
        """Over what of it can be seen."""
        left, top, right, bottom = seen_of(around)
        self.walked.hands.click(((left + right) // 2, (top + bottom) // 2), button)
        self.walked.come_to_rest(PAUSE)


def journey(path, desktop):
    walked = Walked(path, os.environ.get("BRISKLOG_SCHEME", "Hell"))
    faults = []
    for screen in SCREENS:
        walked.visit(screen)
        for fault in Look(walked, desktop, screen).faults():
            print(f"{screen.name}: {fault}", flush=True)
            faults.append(fault)
    walked.end()
    print(f"every low screen: {len(faults)} findings on {len(SCREENS)} screens")
    assert not faults


main(journey)
