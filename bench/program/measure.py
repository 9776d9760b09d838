"""Measures the whole program on the desktop it is called on: from exec to the status item on the bus, and the
processor time of half a minute with a running timer and the popover closed.

usage: bench/start/run (builds, then calls this on a virtual desktop without a panel)"""

import signal
import statistics
import subprocess
import sys
import time
from pathlib import Path

from gi.repository import Gio, GLib

WATCHER = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
<signal name="StatusNotifierHostRegistered"/>
</interface></node>"""

RUNS = 15


class Watcher:
    """Stands in for a panel: takes the registration of status items and notes when."""

    def __init__(self):
        self.loop = GLib.MainLoop()
        self.registered_at = None
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface = Gio.DBusNodeInfo.new_for_xml(WATCHER).interfaces[0]
        bus.register_object("/StatusNotifierWatcher", interface, self.call, self.get, None)
        Gio.bus_own_name_on_connection(bus, "org.kde.StatusNotifierWatcher", Gio.BusNameOwnerFlags.NONE, None, None)

    def call(self, _bus, _sender, _path, _interface, method, _arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            self.registered_at = time.perf_counter()
            self.loop.quit()
        invocation.return_value(None)

    def get(self, _bus, _sender, _path, _interface, name):
        return {"RegisteredStatusNotifierItems": GLib.Variant("as", []),
                "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]

    def milliseconds_to_item(self, program):
        """Starts the program and ends it once its item is registered."""
        started = time.perf_counter()
        process = subprocess.Popen([program], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        give_up = GLib.timeout_add_seconds(10, self.loop.quit)
        self.registered_at = None
        self.loop.run()
        GLib.source_remove(give_up)
        process.send_signal(signal.SIGKILL)
        process.wait()
        return (self.registered_at - started) * 1000


def processor_seconds(process):
    """Of all its threads, in nanoseconds' precision."""
    return sum(int((task / "schedstat").read_text().split()[0])
               for task in Path(f"/proc/{process}/task").iterdir()) / 1e9


def proportional_megabytes(process):
    for line in open(f"/proc/{process}/smaps_rollup"):
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    return None


def pass_time(seconds):
    """Waits while the stub panel goes on answering."""
    loop = GLib.MainLoop()
    GLib.timeout_add(int(seconds * 1000), loop.quit)
    loop.run()


def idle_with_running_timer(program):
    """Processor time of 30 seconds, and the memory after them, with one timer started through the popover."""
    process = subprocess.Popen([program], stdout=subprocess.DEVNULL)
    pass_time(1)
    subprocess.run([program], check=True)  # opens the popover, the keyboard is in the task's field
    pass_time(0.6)
    subprocess.run(["xdotool", "type", "Entwurf"], check=True)
    subprocess.run(["xdotool", "key", "Return"], check=True)
    pass_time(0.6)
    subprocess.run(["xdotool", "key", "Escape"], check=True)
    pass_time(1)
    before = processor_seconds(process.pid)
    pass_time(30)
    spent = processor_seconds(process.pid) - before
    memory = proportional_megabytes(process.pid)
    process.kill()
    process.wait()
    return spent, memory


def main():
    ours, empty = sys.argv[1:]
    watcher = Watcher()
    floor, start = [], []
    for _ in range(RUNS):  # one after the other, so that both see the same machine
        floor.append(watcher.milliseconds_to_item(empty))
        start.append(watcher.milliseconds_to_item(ours))
    floor_ms, start_ms = statistics.median(floor), statistics.median(start)
    spent, memory = idle_with_running_timer(ours)
    print("| figure | measured | bar |")
    print("|---|---|---|")
    print(f"| exec → status item, empty program with a tray icon | {floor_ms:.0f} ms | the floor |")
    print(f"| exec → status item, no data | {start_ms:.0f} ms ({start_ms / floor_ms:.2f} × floor) | 80 ms or 1.3 × |")
    print(f"| processor time in 30 s, timer running, popover closed | {spent:.4f} s | 0.01 s |")
    print(f"| proportional memory, popover once shown | {memory:.1f} MB | 30 MB |")


main()
