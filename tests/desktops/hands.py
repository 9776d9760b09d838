"""Eyes and hands on every host of tests/desktops/run: one way to look, to point and to type, whatever the desktop."""

import json
import os
import re
import socket
import struct
import subprocess
import sys
import time
from collections import namedtuple
from pathlib import Path

import pyatspi

SHOTS = Path(os.environ["SHOTS"])
KIND = os.environ["HANDS"]  # x11, gnome, kwin, sway
SCALE = int(os.environ["SCALE"])
Window = namedtuple("Window", "title x y width height focused")
ITEM = "org.kde.StatusNotifierItem"
WATCHER = "org.kde.StatusNotifierWatcher"


def run(*words, seconds=20):
    """What the command prints; nothing when it fails."""
    try:
        return subprocess.run(words, capture_output=True, text=True, timeout=seconds).stdout.strip()
    except (subprocess.TimeoutExpired, FileNotFoundError):
        return ""


def call(name, path, method, *arguments):
    return run("gdbus", "call", "--session", "-d", name, "-o", path, "-m", method, *map(str, arguments))


def wait_until(condition, what, seconds=8.0):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if value := condition():
            return value
        time.sleep(0.1)
    raise AssertionError(f"waited {seconds} s for: {what}")


class X11:
    def picture(self, file):
        run("import", "-window", "root", file)

    def move(self, x, y):
        run("xdotool", "mousemove", str(x), str(y))

    def click(self, x, y, button=1, times=1):
        run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "80", str(button))

    def key(self, *names):
        run("xdotool", "key", "--delay", "30", *names)

    def type(self, text):
        run("xdotool", "type", "--delay", "20", text)

    def windows(self):
        """Under Wayland: those of XWayland."""
        active = run("xdotool", "getactivewindow")
        found = []
        for window in run("xdotool", "search", "--onlyvisible", "--name", ".").split():
            place = dict(re.findall(r"(\w+)=(-?\d+)", run("xdotool", "getwindowgeometry", "--shell", window)))
            if place and int(place["WIDTH"]) > 1:
                found.append(Window(run("xdotool", "getwindowname", window), *(int(place[k]) for k in ("X", "Y", "WIDTH", "HEIGHT")),
                                    window == active))
        return found


class Gnome:
    """The shell runs with --unsafe-mode: it executes what it is told, also with virtual devices."""
    KEYS = {"ctrl": "Control_L", "shift": "Shift_L", "alt": "Alt_L", "super": "Super_L"}

    def __init__(self):
        self.tell("let s = imports.gi.Clutter.get_default_backend().get_default_seat(), T = imports.gi.Clutter.InputDeviceType;"
                  "globalThis._pointer = s.create_virtual_device(T.POINTER_DEVICE);"
                  "globalThis._keys = s.create_virtual_device(T.KEYBOARD_DEVICE); globalThis._now = imports.gi.GLib.get_monotonic_time; 1")

    def tell(self, script):
        answer = call("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell.Eval", script)
        match = re.fullmatch(r"\(true, '(.*)'\)", answer, re.S)
        return json.loads(match[1].replace("\\\\", "\\")) if match and match[1] else None

    def picture(self, file):
        call("org.gnome.Shell.Screenshot", "/org/gnome/Shell/Screenshot", "org.gnome.Shell.Screenshot.Screenshot", "false", "false", file)

    def move(self, x, y):
        self.tell(f"_pointer.notify_absolute_motion(_now(), {x}, {y}); 1")
        time.sleep(0.15)

    def click(self, x, y, button=1, times=1):
        self.move(x, y)
        name = {1: "PRIMARY", 2: "MIDDLE", 3: "SECONDARY"}[button]
        self.tell(f"let n = {times * 2}, b = imports.gi.Clutter.BUTTON_{name}, i = 0; imports.gi.GLib.timeout_add(0, 45, () => {{"
                  "_pointer.notify_button(_now(), b, i % 2 ? 0 : 1); return ++i < n; }); 1")
        time.sleep(0.3 + 0.1 * times)

    def key(self, *names):
        for name in names:
            parts = [f"imports.gi.Clutter.KEY_{self.KEYS.get(part, part)}" for part in name.split("+")]
            self.strike(parts)

    def strike(self, codes):
        for code, state in [(c, 1) for c in codes] + [(c, 0) for c in reversed(codes)]:
            self.tell(f"_keys.notify_keyval(_now(), {code}, {state}); 1")
        time.sleep(0.1)

    def type(self, text):
        for letter in text:
            self.strike([str(ord(letter) if ord(letter) < 256 else 0x1000000 + ord(letter))])

    def windows(self):
        rows = self.tell("global.get_window_actors().map(a => a.meta_window).filter(w => w.get_frame_rect().width > 1).map(w => {"
                         "let r = w.get_frame_rect(); return [w.get_title(), r.x, r.y, r.width, r.height, w.has_focus()] })") or []
        return [Window(*row) for row in rows]

    def icon(self):
        return self.tell("let found = null; let walk = a => { if (/IndicatorStatusIcon/.test(a.constructor.name) && a.visible) {"
                         "let [x, y] = a.get_transformed_position(); found = [x, y, a.width, a.height].map(Math.round); }"
                         "a.get_children().forEach(walk); }; walk(Main.panel); found")


class WaylandMouse:
    """A mouse of our own, plugged in by the extension that the compositor has for this: wlroots' or kwin's, which has keys too."""
    LEFT = 0x110
    KEYS = {"Escape": 1, "BackSpace": 14, "Return": 28, "ctrl": 29, "a": 30, "c": 46, "v": 47, "Up": 103, "Down": 108}

    def __init__(self):
        self.wire = socket.socket(socket.AF_UNIX)
        self.wire.connect(f"{os.environ['XDG_RUNTIME_DIR']}/{os.environ['WAYLAND_DISPLAY']}")
        self.send(1, 1, 2)  # the display's list of extensions becomes object 2,
        self.send(1, 0, 3)  # its "that is all" object 3
        extensions = self.read_extensions()
        self.is_kwin = "org_kde_kwin_fake_input" in extensions
        name = "org_kde_kwin_fake_input" if self.is_kwin else "zwlr_virtual_pointer_manager_v1"
        self.send(2, 0, extensions[name], name, 4 if self.is_kwin else 1, 4)
        self.send(4, 0, "hands", "tests") if self.is_kwin else self.send(4, 0, 0, 5)

    def send(self, target, request, *arguments):
        body = b""
        for argument in arguments:
            if isinstance(argument, str):
                text = argument.encode() + b"\0"
                body += struct.pack("I", len(text)) + text + b"\0" * (-len(text) % 4)
            else:
                body += struct.pack("I", argument)
        self.wire.sendall(struct.pack("II", target, (8 + len(body)) << 16 | request) + body)

    def read_extensions(self):
        found = {}
        while True:
            target, size = struct.unpack("II", self.wire.recv(8, socket.MSG_WAITALL))
            body = self.wire.recv((size >> 16) - 8, socket.MSG_WAITALL) if size >> 16 > 8 else b""
            if target == 3:
                return found
            number, length = struct.unpack_from("II", body)
            found[body[8:8 + length - 1].decode()] = number

    def now(self):
        return int(time.monotonic() * 1000) & 0xFFFFFFFF

    def move(self, x, y, size):
        if self.is_kwin:
            self.send(4, 9, x * 256 // SCALE, y * 256 // SCALE)
        else:
            self.send(5, 1, self.now(), x, y, *size)
            self.send(5, 4)
        time.sleep(0.15)

    def button(self, number, is_down):
        code = self.LEFT + {1: 0, 2: 2, 3: 1}[number]
        if self.is_kwin:
            self.send(4, 2, code, is_down)
        else:
            self.send(5, 2, self.now(), code, is_down)
            self.send(5, 4)
        time.sleep(0.08)


    def strike(self, name):
        codes = [self.KEYS[part] for part in name.split("+")]
        for code, is_down in [(c, 1) for c in codes] + [(c, 0) for c in reversed(codes)]:
            self.send(4, 10, code, is_down)
        time.sleep(0.1)


class WithMouse(X11):
    """A compositor with its X server."""

    def __init__(self):
        self.mouse = WaylandMouse()

    def move(self, x, y):
        self.mouse.move(x, y, screen_size())

    def click(self, x, y, button=1, times=1):
        self.move(x, y)
        for _ in range(times):
            self.mouse.button(button, 1)
            self.mouse.button(button, 0)
        time.sleep(0.3)


class KWin(WithMouse):
    def picture(self, file):
        run("spectacle", "-b", "-n", "-f", "-o", file)
        wait_until(lambda: Path(file).exists(), file)

    def key(self, *names):
        for name in names:
            self.mouse.strike(name)

    def windows(self):
        """A script of kwin's prints them into its log."""
        script, log = Path("/tmp/windows.js"), SHOTS / "logs/kwin_wayland.log"
        script.write_text("print('WINDOWS ' + JSON.stringify(workspace.clientList().filter(c => !c.desktopWindow && !c.dock)"
                          ".map(c => [c.caption, c.x, c.y, c.width, c.height, c.active])))")
        before = log.read_text(errors="replace").count("WINDOWS ")
        number = re.search(r"\d+", call("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting.loadScript", script))[0]
        call("org.kde.KWin", f"/{number}", "org.kde.kwin.Script.run")
        wait_until(lambda: log.read_text(errors="replace").count("WINDOWS ") > before, "kwin's list of windows")
        call("org.kde.KWin", f"/{number}", "org.kde.kwin.Script.stop")
        line = log.read_text(errors="replace").rsplit("WINDOWS ", 1)[1].splitlines()[0]
        return [Window(row[0], *(int(number * SCALE) for number in row[1:5]), row[5]) for row in json.loads(line)]


class Sway(WithMouse):
    def picture(self, file):
        run("grim", file)

    def tree(self):
        nodes, found = [json.loads(run("swaymsg", "-t", "get_tree", "-r"))], []
        while nodes:
            node = nodes.pop()
            nodes += node["nodes"] + node["floating_nodes"]
            if node.get("pid"):
                found.append(node)
        return found

    def windows(self):
        return [Window(n["name"] or "", *(n["rect"][k] * SCALE for k in ("x", "y", "width", "height")), n["focused"]) for n in self.tree()]

    def is_native(self):
        """Panels' menus are, and are in no list."""
        return all(n["shell"] == "xdg_shell" for n in self.tree() if n["focused"])

    def key(self, *names):
        if not self.is_native():
            return super().key(*names)
        for name in names:
            *modifiers, last = name.split("+")
            run("wtype", *(word for m in modifiers for word in ("-M", m)), "-k", last, *(word for m in modifiers for word in ("-m", m)))

    def type(self, text):
        run("wtype", text) if self.is_native() else super().type(text)


desk = {"x11": X11, "gnome": Gnome, "kwin": KWin, "sway": Sway}[KIND]()
key, type, windows = desk.key, desk.type, desk.windows  # key("ctrl+a", "Escape"): names as xdotool has them


def click(x, y, button=1):
    desk.click(x, y, button)


def double_click(x, y):
    desk.click(x, y, 1, 2)


def shot(name):
    """A picture of the whole screen."""
    file = str(SHOTS / f"{name}.png")
    time.sleep(0.3)
    Path(file).unlink(missing_ok=True)
    desk.picture(file)
    return file


def screen_size():
    return tuple(map(int, os.environ["SIZE"].split("x")))


def still():
    """Waits until two pictures in a row are the same, or long enough."""
    for _ in range(8):
        pair = shot("still-1"), shot("still-2")
        same = difference(*pair) is None
        for file in pair:
            Path(file).unlink(missing_ok=True)
        if same:
            return


def difference(one, other):
    """The box (x, y, width, height) outside of which two pictures are the same."""
    box = run("convert", one, other, "-compose", "difference", "-composite", "-threshold", "3%", "-trim", "-format", "%wx%h%O", "info:")
    match = re.fullmatch(r"(\d+)x(\d+)\+(\d+)\+(\d+)", box)
    return (int(match[3]), int(match[4]), int(match[1]), int(match[2])) if match else None


# The status item -------------------------------------------------------------------------------------------------------

def items():
    """All status items on the bus: (name, path, id)."""
    listed = call(WATCHER, "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties.Get", WATCHER, "RegisteredStatusNotifierItems")
    return [(name, path, call(name, path, "org.freedesktop.DBus.Properties.Get", ITEM, "Id"))
            for name, path in re.findall(r"'([^'/@]+)@?(/[^']*)'", listed)]


def item():
    return next(((name, path) for name, path, identity in items() if "brisklog" in identity.lower()), None)


def embedded():
    """The box of the XEmbed icon."""
    match = re.search(r'"brisklog"[^)]*\)\s+(\d\d)x(\d\d)\+\S+\s+\+(\d+)\+(\d+)', run("xwininfo", "-root", "-tree"))
    return (int(match[3]), int(match[4]), int(match[1]), int(match[2])) if match else None


_icon = None


def start(program="brisklog", **environment):
    """Starts it as a session would. So that icon() is exact, an empty item first keeps its place in the panel."""
    global _icon
    if time.localtime().tm_sec > 35:  # no clock may change between the two pictures
        time.sleep(61 - time.localtime().tm_sec)
    before = None
    if KIND != "gnome" and call(WATCHER, "/StatusNotifierWatcher", "org.freedesktop.DBus.Peer.Ping"):
        blank = subprocess.Popen([sys.executable, __file__, "blank-item"])
        wait_until(item, "the empty item", 10)
        still()
        before = shot("before")
        blank.kill()
        blank.wait()
    output = open(SHOTS / "logs/program.log", "a")
    process = subprocess.Popen([program], stdout=output, stderr=output, env={**os.environ, **environment})
    wait_until(lambda: item() or embedded() or popover(), "a status item or a window", 20)
    time.sleep(2)  # an embedded icon is there before it is drawn
    still()
    after = shot("after")
    if KIND == "gnome":
        _icon = desk.icon()
    else:
        _icon = embedded() or (before and difference(before, after))
    return process


def icon():
    """The box of the status item as the panel draws it; None: nothing can be seen of it."""
    return _icon


def icon_place():
    assert _icon, "no icon to be seen"
    return _icon[0] + _icon[2] // 2, _icon[1] + _icon[3] // 2


def contrast():
    """How far the icon stands out from its panel, as WCAG counts it: 1 not at all, 3 well enough for a symbol, 21 black on white."""
    x, y, width, height = _icon
    area = f"{width + 4}x{height + 4}+{max(x - 2, 0)}+{max(y - 2, 0)}"
    data = subprocess.run(["convert", str(SHOTS / "after.png"), "-crop", area, "-depth", "8", "rgb:-"], capture_output=True).stdout
    pixels = [tuple(data[i:i + 3]) for i in range(0, len(data), 3)]
    linear = [c / 255 / 12.92 if c < 11 else ((c / 255 + 0.055) / 1.055) ** 2.4 for c in range(256)]
    light = [0.05 + 0.2126 * linear[r] + 0.7152 * linear[g] + 0.0722 * linear[b] for r, g, b in pixels]
    panel = light[pixels.index(max(set(pixels), key=pixels.count))]
    return max(max(value / panel, panel / value) for value in light)


def click_icon(button=1):
    """What a user does to open: a click, a double click on GNOME; the other buttons need a pointer."""
    if KIND == "gnome" and button == 1:
        double_click(*icon_place())
    else:
        click(*icon_place(), button)
    time.sleep(0.5)


def popover():
    return next((window for window in windows() if window.title == "Brisklog"), None)


# Controls by their names, through the screen reader's interface ----------------------------------------------------------

def controls(application="brisklog"):
    nodes = [window for program in pyatspi.Registry.getDesktop(0) if program and program.name == application for window in program]
    while nodes:
        node = nodes.pop(0)
        try:
            if node and node.getState().contains(pyatspi.STATE_SHOWING):
                yield node
                nodes += [node.getChildAtIndex(i) for i in range(min(node.childCount, 40))]
        except Exception:  # the tree changes while it is read
            pass


def find(name, role=None):
    """The last of that name; role as in "check box"."""
    def look():
        return [c for c in controls() if c.name == name and role in (None, c.getRoleName())]
    return wait_until(look, f"something called {name!r}")[-1]


def press(name, role=None):
    control = find(name, role)
    time.sleep(0.3)
    box = control.queryComponent().getExtents(0)
    click(box.x + box.width // 2, box.y + box.height // 2)
    time.sleep(0.5)


def blank_item():
    """A status item with nothing to be seen in it."""
    from gi.repository import Gio, GLib
    properties = {"Id": ("s", "brisklog"), "Title": ("s", "brisklog"), "Category": ("s", "ApplicationStatus"), "Status": ("s", "Active"),
                  "IconName": ("s", ""), "IconPixmap": ("a(iiay)", [(22, 22, bytes(22 * 22 * 4))]), "ItemIsMenu": ("b", False),
                  "Menu": ("o", "/NO_DBUSMENU")}
    xml = "".join(f'<property name="{name}" type="{kind}" access="read"/>' for name, (kind, _) in properties.items())
    interface = Gio.DBusNodeInfo.new_for_xml(f'<node><interface name="{ITEM}">{xml}</interface></node>').interfaces[0]
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    bus.register_object("/StatusNotifierItem", interface, None, lambda *a: GLib.Variant(*properties[a[4]]), None)
    bus.call(WATCHER, "/StatusNotifierWatcher", WATCHER, "RegisterStatusNotifierItem",
             GLib.Variant("(s)", (bus.get_unique_name(),)), None, Gio.DBusCallFlags.NONE, -1)
    GLib.MainLoop().run()


if __name__ == "__main__" and sys.argv[1:] == ["blank-item"]:
    blank_item()
