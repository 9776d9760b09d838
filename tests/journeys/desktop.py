"""The user of the journeys: starts the program on the current desktop, sees it through the accessibility interface, and
acts with the mouse and the keyboard."""

import json
import os
import signal
import subprocess
import sys
import time
from pathlib import Path

import pyatspi

HOME = Path(os.environ["HOME"])
DOCUMENTS = HOME / "Documents"
LOCK = HOME / ".local/state/brisklog/lock"


def wait_until(condition, what, seconds=10.0, pause=0.05):
    """Returns the condition's first true value; the test fails when there is none in time."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            value = condition()
        except Exception:  # the tree changes while it is read
            value = None
        if value:
            return value
        time.sleep(pause)
    raise AssertionError(f"waited {seconds} s for: {what}")


def command(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


def read_json(name):
    return json.loads((DOCUMENTS / name).read_text(encoding="utf-8"))


def status_items():
    """The status items registered with the panel's watcher."""
    answer = subprocess.run(["dbus-send", "--session", "--print-reply", "--reply-timeout=2000", "--dest=org.kde.StatusNotifierWatcher",
                             "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties.Get",
                             "string:org.kde.StatusNotifierWatcher", "string:RegisteredStatusNotifierItems"],
                            capture_output=True, text=True)
    return answer.stdout + answer.stderr


def output():
    """What all runs of the program have printed."""
    return (HOME / "output.txt").read_text(errors="replace")


class Program:
    """One run of the program."""

    runs = []

    def __init__(self, path, **environment):
        Program.runs.append(self)
        self.path = path
        self.output = open(HOME / "output.txt", "a+b")
        self.process = subprocess.Popen([path], stdout=self.output, stderr=subprocess.STDOUT,
                                        env={**os.environ, **environment})

    def is_running(self):
        return self.process.poll() is None

    def wait_for_end(self):
        return wait_until(lambda: None if self.is_running() else (self.process.returncode,), "the program's end")[0]

    def kill(self):
        """The killed process keeps its lock until the write it had begun is done; the files must not be read before that."""
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()
        subprocess.run(["flock", "--exclusive", LOCK, "true"], check=True, timeout=10)

    def end(self):
        if self.is_running():
            self.process.terminate()
            self.process.wait()


class Desktop:
    """What the user sees and does."""

    def __init__(self, results):
        self.results = Path(results)
        self.width, self.height = map(int, command("xdotool", "getdisplaygeometry").split())
        # At the right or lower end of the panel.
        self.edge = os.environ.get("BRISKLOG_PANEL_EDGE", "top")
        self.icon = (14 if self.edge == "left" else self.width - 14, 14 if self.edge == "top" else self.height - 14)
        # What the accessibility interface calls a pixel has so many of the screen's.
        self.scale = float(os.environ.get("QT_SCALE_FACTOR", "1"))
        # The first key on a fresh X server makes the window manager read the keyboard again, and it misses
        # the shortcuts pressed meanwhile: so this is not one of them.
        self.press("shift")

    # Acting

    def click(self, place, button=1):
        command("xdotool", "mousemove", str(place[0]), str(place[1]), "click", str(button))

    def click_icon(self, button=1):
        self.click(self.icon, button)

    def type(self, text):
        command("xdotool", "type", "--delay", "15", text)

    def press(self, *keys):
        command("xdotool", "key", "--delay", "30", *keys)

    def press_named(self, name, role=None):
        """Clicks the middle of the control with that name."""
        thing = self.find(name, role)
        box = thing.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        self.click((round((box.x + box.width / 2) * self.scale), round((box.y + box.height / 2) * self.scale)))
        return thing

    # Seeing

    def application(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.name == "brisklog":
                return application
        return None

    def all_visible(self, predicate):
        application = self.application()
        if application is None:
            return []
        found = []

        def walk(node):
            try:
                state = node.getState()
            except Exception:
                return
            if not state.contains(pyatspi.STATE_VISIBLE) and node.getRole() != pyatspi.ROLE_APPLICATION:
                return
            if predicate(node):
                found.append(node)
            # Of a long list the first rows are enough: each costs a call over the bus.
            for index in range(min(node.childCount, 40)):
                child = node.getChildAtIndex(index)
                if child is not None:
                    walk(child)

        for window in application:
            if window is not None:
                walk(window)
        return found

    def find(self, name, role=None, seconds=10.0):
        def look():
            return self.all_visible(lambda node: node.name == name and (role is None or node.getRole() == role)
                                    and node.getState().contains(pyatspi.STATE_SHOWING))

        return wait_until(look, f"something called {name!r}", seconds)[-1]

    def all_anywhere(self, name, role):
        """All controls of that name in order, including those scrolled out of view."""
        return wait_until(lambda: self.all_visible(lambda node: node.name == name and node.getRole() == role),
                          f"something called {name!r}")

    def is_there(self, name):
        return bool(self.all_visible(lambda node: node.name == name
                                     and node.getState().contains(pyatspi.STATE_SHOWING)))

    def names(self):
        return [node.name for node in self.all_visible(lambda node: bool(node.name))]

    def windows(self, title="Brisklog"):
        result = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"], capture_output=True,
                                text=True)
        return result.stdout.split()

    def popover_is_open(self):
        return bool(self.windows())

    def open_popover(self):
        self.click_icon()
        wait_until(self.popover_is_open, "the popover")

    def screenshot(self, name):
        time.sleep(0.25)  # until an arriving sheet has come to rest
        command("import", "-window", "root", str(self.results / f"{name}.png"))

    def wait_for_icon(self):
        """The status item is on the bus, and a host shows it."""

        wait_until(lambda: "StatusNotifierItem" in status_items(), "the status item on the bus")
        self.wait_for_drawn_icon()

    def wait_for_drawn_icon(self):
        time.sleep(0.4)  # until the icon of a process that has just ended is gone
        wait_until(lambda: self.colours_around(self.icon) > 1, "the panel to draw the icon")

    @staticmethod
    def colours_around(place, side=20):
        area = f"{side}x{side}+{place[0] - side // 2}+{place[1] - side // 2}"
        return int(command("import", "-window", "root", "-crop", area, "-format", "%k", "info:"))


def describe_failure(desktop):
    desktop.screenshot("failed-" + Path(sys.argv[0]).stem)
    print("Runs:", [run.is_running() for run in Program.runs], file=sys.stderr)
    print("The program said:", output(), file=sys.stderr)
    print("Status items:", status_items(), file=sys.stderr)
    # The shortest and most telling part comes last, next to what was waited for.
    print("The popover is open:", desktop.popover_is_open(), file=sys.stderr)
    print("On the screen:", desktop.names(), file=sys.stderr)


def main(journey):
    """Runs the journey; on failure prints what the user saw last."""
    program_path, results = sys.argv[1:]
    desktop = Desktop(results)
    try:
        journey(program_path, desktop)
    except BaseException:
        describe_failure(desktop)
        raise
    finally:
        for run in Program.runs:
            run.end()
