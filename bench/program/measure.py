"""Measures the whole program in the home it finds, on the desktop it is called on, and prints the figures as JSON.

usage: measure.py PROGRAM EMPTY-TRAY STARTS IDLE-SECONDS    (bench/run calls it on a virtual desktop without a panel)

- start: from exec to the registration of the status item on the bus, compared with a program that is only an icon
- popover: from the panel's call until the X server has painted the window, for a process's first popover and for later ones
- memory: once the popover was shown
- idle: processor time with a running timer and the popover closed"""

import json
import select
import signal
import statistics
import subprocess
import sys
import time
from pathlib import Path

from gi.repository import Gio, GLib
from Xlib import X, display
from Xlib.ext import damage

WATCHER = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
<signal name="StatusNotifierHostRegistered"/>
</interface></node>"""

PROCESSES = 5
POPOVERS = 10
POPOVER_AREA = 370 * 650


class Watcher:
    """Stands in for a panel: accepts the registration of status items, notes when, and clicks the latest one."""

    def __init__(self):
        self.loop = GLib.MainLoop()
        self.registered_at = None
        self.item = None
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(WATCHER).interfaces[0]
        self.bus.register_object("/StatusNotifierWatcher", interface, self.call, self.get, None)
        Gio.bus_own_name_on_connection(self.bus, "org.kde.StatusNotifierWatcher", Gio.BusNameOwnerFlags.NONE, None, None)

    def call(self, _bus, sender, _path, _interface, method, _arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            self.registered_at = time.perf_counter()
            self.item = sender
            self.loop.quit()
        invocation.return_value(None)

    def get(self, _bus, _sender, _path, _interface, name):
        return {"RegisteredStatusNotifierItems": GLib.Variant("as", []),
                "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]

    def start(self, program):
        """Starts the program; returns it and the milliseconds until its item was registered."""
        self.registered_at = None
        started = time.perf_counter()
        process = subprocess.Popen([program], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        give_up = GLib.timeout_add_seconds(20, self.loop.quit)
        self.loop.run()
        GLib.source_remove(give_up)
        return process, (self.registered_at - started) * 1000

    def click(self):
        self.bus.call(self.item, "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Activate",
                      GLib.Variant("(ii)", (1269, 11)), None, Gio.DBusCallFlags.NONE, -1, None, None)
        self.bus.flush_sync()

    def pass_time(self, seconds):
        """Waits while this panel keeps answering."""
        loop = GLib.MainLoop()
        GLib.timeout_add(int(seconds * 1000), loop.quit)
        loop.run()


class Screen:
    """Detects when something as large as the popover has been painted."""

    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root
        self.display.damage_query_version()
        self.root.damage_create(damage.DamageReportRawRectangles)
        self.display.sync()
        self.empty = self.colour(640, 600)

    def colour(self, x, y):
        return self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xffffffff).data[:3]

    def forget(self):
        self.display.sync()
        while self.display.pending_events():
            self.display.next_event()

    def painted_at(self):
        """The moment at which the popover has been painted on the screen."""
        while True:
            if not self.display.pending_events() and not select.select([self.display], [], [], 10)[0]:
                raise RuntimeError("no popover was painted within 10 s")
            while self.display.pending_events():
                moment, event = time.perf_counter(), self.display.next_event()
                area = getattr(event, "area", None)
                if area is None or area.width * area.height < 0.8 * POPOVER_AREA:
                    continue
                if self.colour(area.x + area.width // 2, area.y + area.height // 2) != self.empty:
                    return moment


def processor_seconds(process):
    """Of all its threads, including ended ones, with nanosecond precision."""
    process_clock = (~process.pid << 3) | 2  # as clock_getcpuclockid gives it
    return time.clock_gettime(process_clock)


def memory(process):
    """Megabytes, proportional (pages shared with others by their share) and resident."""
    figures = {}
    for line in open(f"/proc/{process.pid}/smaps_rollup"):
        words = line.split()
        if words[0] in ("Pss:", "Rss:"):
            figures[words[0][:-1].lower()] = int(words[1]) / 1024
    return figures


def end(process):
    process.send_signal(signal.SIGKILL)
    process.wait()


def measure_starts(watcher, ours, empty, count):
    """Starts both in turn, so that they see the same conditions."""
    figures = {"start": [], "floor": []}
    for _ in range(count):
        for name, program in (("floor", empty), ("start", ours)):
            process, milliseconds = watcher.start(program)
            figures[name].append(milliseconds)
            if name == "floor" and len(figures[name]) == count:
                watcher.pass_time(1)
                figures["floorPss"] = memory(process)["pss"]
            end(process)
    return figures


def measure_popovers(watcher, screen):
    """Opens and closes the popover of a process that has never shown it."""
    milliseconds = []
    for _ in range(POPOVERS + 1):
        screen.forget()
        pressed = time.perf_counter()
        watcher.click()
        milliseconds.append((screen.painted_at() - pressed) * 1000)
        watcher.pass_time(0.4)
        watcher.click()
        watcher.pass_time(0.4)
    return {"first": milliseconds[0], "later": milliseconds[1:]}


def start_timer(watcher):
    """In the popover, whose task field has the focus at once."""
    watcher.click()
    watcher.pass_time(0.6)
    subprocess.run(["xdotool", "type", "Entwurf"], check=True)
    subprocess.run(["xdotool", "key", "Return"], check=True)
    watcher.pass_time(0.6)
    subprocess.run(["xdotool", "key", "Escape"], check=True)
    watcher.pass_time(1)


def projects_file_time():
    file = Path.home() / "Documents" / "projects.json"
    return file.stat().st_mtime_ns if file.exists() else 0


def measure_idle(watcher, process, seconds):
    unchanged = projects_file_time()
    start_timer(watcher)
    if projects_file_time() == unchanged:
        raise RuntimeError("no timer was started")
    before = processor_seconds(process)
    watcher.pass_time(seconds)
    return processor_seconds(process) - before


def main():
    ours, empty, starts, idle = sys.argv[1], sys.argv[2], int(sys.argv[3]), int(sys.argv[4])
    subprocess.run(["xdotool", "mousemove", "1269", "11"], check=True)
    watcher, screen = Watcher(), Screen()
    process, first = watcher.start(ours)  # the day's first start makes copies of the files
    end(process)
    figures = {"firstStartOfDay": first, **measure_starts(watcher, ours, empty, starts), "first": [], "later": []}
    for last in [False] * (PROCESSES - 1) + [True]:
        process, _ = watcher.start(ours)
        watcher.pass_time(1)
        popovers = measure_popovers(watcher, screen)
        figures["first"].append(popovers["first"])
        figures["later"] += popovers["later"]
        if last:
            figures.update(memory(process))
            if idle > 0:
                figures["idle"] = measure_idle(watcher, process, idle)
        end(process)
    print(json.dumps({name: statistics.median(value) if isinstance(value, list) else value
                      for name, value in figures.items()}))


main()
