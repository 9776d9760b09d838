"""The program as the walk through its screens drives it: started on given files, brought to a screen, read when it has
come to rest."""

import fnmatch
import time

import accessibility_home as home
from accessibility_input import Hands
from accessible import ROOT, Bus, application, property_of, read_tree
from desktop import Program, wait_until
from gi.repository import Gio, GLib


PAUSE = 0.03  # seconds after which it is worth looking
MOST = 3  # seconds to wait until it is quiet


def scope_in(tree):
    """What can be used now: the menu that is open, else the window in front."""
    active = [node for node in tree.all() if node.has("active")]
    inner = [node for node in active if node.parent.parent is not None]
    return (inner or active or [None])[-1]


class Walked:
    """The program, one run after the other."""

    def __init__(self, path, scheme):
        self.path, self.scheme = path, scheme
        self.bus, self.hands, self.session = Bus(), Hands(), Gio.bus_get_sync(Gio.BusType.SESSION)
        self.program = self.service = None

    def start(self, files):
        self.end()
        home.write_home(files, self.scheme)
        self.program = Program(self.path, BRISKLOG_REDUCED_MOTION="1", PATH=home.write_opener())
        self.service = self.wait(lambda: application(self.bus), "the program on the accessibility bus")
        self.wait(self.open, "the popover")

    def open(self):
        """As desktops activate programs. Returns whether the window is open."""
        if not self.scope(details=False):
            self.session.call_sync("example.brisklog.Brisklog", "/example/brisklog/Brisklog", "org.freedesktop.Application",
                                   "Activate", GLib.Variant("(a{sv})", ({},)), None, Gio.DBusCallFlags.NO_AUTO_START, 5000, None)
            self.come_to_rest(PAUSE)
        return self.scope(details=False)

    @staticmethod
    def wait(condition, what):
        return wait_until(condition, what, pause=0.01)

    def end(self):
        if self.program is not None:
            self.program.end()
            self.wait(lambda: not application(self.bus), "the ended program to leave the bus")

    def tree(self, details=True):
        return read_tree(self.bus, self.service, details)

    def scope(self, details=True):
        return scope_in(self.tree(details))

    def find(self, pattern, details=False):
        scope = self.scope(details)
        found = [node for node in scope.all() if fnmatch.fnmatchcase(node.name, pattern) and node.has("showing")]
        return found[-1] if found else None

    def wait_for(self, pattern):
        self.come_to_rest(PAUSE)
        return self.wait(lambda: self.find(pattern), f"{pattern!r}")

    def visit(self, screen):
        """Shows the screen anew."""
        self.start(screen.home)
        for step in screen.way:
            kind, _, rest = step.partition(":")
            getattr(self, "step_" + kind)(rest)

    def click(self, node):
        self.hands.click(self.scrolled_to(node).middle())

    def scrolled_to(self, node):
        """The same thing, scrolled into view."""
        for _ in range(60):
            outside = self.outside(node)
            if not outside:
                break
            self.turn_wheel(5 if outside > 0 else 4, node)
            node = next(each for each in self.scope().all() if each.path == node.path)
        return node

    @staticmethod
    def outside(node):
        """Below what is visible of its surroundings: 1, above: -1, else 0."""
        for above in [] if node.has("active") else node.ancestors():
            _, top, _, height = above.box
            if height and not top <= node.middle()[1] < top + height:
                return 1 if node.middle()[1] >= top + height else -1
            if above.has("active"):
                break
        return 0

    def turn_wheel(self, button, node):
        window = next(above for above in (node, *node.ancestors()) if above.has("active"))
        x, y, width, height = window.box
        self.hands.click((x + width // 2, y + height // 2), button)

    def act(self, node, action):
        self.bus.call((self.service, node.path), "Action", "DoAction", "(i)", node.actions.index(action))

    def heard(self):
        """The events since the last `hear`."""
        self.bus.ask_all([((self.service, ROOT), *property_of("Name"))])
        self.bus.pump()
        return list(self.bus.events)

    def hear(self):
        """The same, for the last time."""
        heard = self.heard()
        self.bus.events.clear()
        return heard

    def come_to_rest(self, calm):
        """Waits until nothing has been painted or announced for so many seconds."""
        now = time.monotonic()
        calm_since, end, count = now, now + MOST, len(self.bus.events)
        while now - calm_since < calm and now < end:
            time.sleep(0.01)
            before, count = count, len(self.heard())
            now = time.monotonic()
            if self.hands.has_painted() or count != before:
                calm_since = now

    def focus_moves(self):
        """Where the focus has been announced since the last time."""
        return [path for path, kind, detail, on in self.hear() if (kind, detail, on) == ("StateChanged", "focused", 1)]

    def step_press(self, name):
        self.click(self.wait_for(name))

    def step_until(self, name):
        self.wait_for(name)

    def step_key(self, key):
        self.hands.press(key)

    def step_type(self, text):
        self.hands.type(text)

    def step_emptied(self, name):
        self.wait(lambda: self.find(name, details=True).text == "", f"{name!r} to be emptied")

    def step_calendar(self, name):
        """The symbol at the field's right end."""
        x, y, width, height = self.scrolled_to(self.wait_for(name)).box
        self.hands.click((x + width - 15, y + height // 2))
