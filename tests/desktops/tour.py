#!/usr/bin/python3
"""The tour of any host: a line for each step, ok, FAIL or - (cannot be tried here), and a picture. Exit status: the FAILs."""

import json
import os
import sqlite3
import subprocess
import sys
import time
from pathlib import Path

import hands

HOME = Path.home()
PROJECT = "5C0E4A44-2B1D-4B0E-9C39-0D5B0B6F0001"
failures = 0


def step(name, impossible=None):
    """Runs the function at once."""
    def wrap(function):
        global failures
        try:
            result = "-     " + impossible if impossible else "ok    " + (function() or "")
        except Exception as error:
            failures += 1
            result = f"FAIL  {str(error) or repr(error)}"
        if not impossible:
            hands.shot(name.replace(":", "").replace(" ", "-"))
        print(f"{os.environ['HOST']:15} {name:22} {result}", flush=True)
    return wrap


def opened():
    if not hands.popover():
        hands.click_icon() if hands.icon() else subprocess.run(["brisklog"], timeout=10)
    window = hands.wait_until(hands.popover, "the popover", 5)
    time.sleep(0.5)
    return window


def closed():
    hands.wait_until(lambda: not hands.popover(), "the popover to close", 3)
    time.sleep(0.8)
    assert not hands.popover(), "it came back"


def put_away():
    for _ in range(3):
        if hands.popover():
            hands.key("Escape")
            time.sleep(0.6)
    if hands.popover():
        subprocess.run(["xdotool", "search", "--name", "^Brisklog$", "windowunmap"], capture_output=True)


def open_fresh():
    put_away()
    return opened()


def distance(window, icon):
    """In points: how far the middles are apart, where the screen's edges leave the choice, and the gap between the two."""
    x, y, width, height = icon
    at_edge = window.x <= 0 or window.x + window.width >= screen[0]
    beside = 0 if at_edge else abs(window.x + window.width / 2 - x - width / 2)
    above, below = y - window.y - window.height, window.y - y - height
    return beside / hands.SCALE, max(above, below) / hands.SCALE


def keeps_focus(*kinds):
    return "a click there leaves the focus where it was, and tells nobody" if hands.KIND in kinds else None


now = time.time() - 978307200
(HOME / "Documents/projects.json").write_text(json.dumps([{"id": PROJECT, "name": "Website", "hourlyRate": 85.5, "entries": [
    {"id": PROJECT[:-4] + "1001", "taskName": "Startseite", "isInvoiced": False, "startTime": now - 7200, "endTime": now - 3600,
     "projectId": PROJECT}]}]))
program = hands.start()
screen = hands.screen_size()
hands.shot("start")
has_host = bool(hands.item() or hands.embedded())
by_control = None if hands.SCALE == 1 else "controls are found at a scale of 1 only"
no_icon = None if has_host else "no status items on this host"


@step("icon", no_icon)
def _():
    assert hands.icon(), "nothing to be seen of it"
    x, y, width, height = hands.icon()
    area = f"{width + 60}x{height + 20}+{max(x - 30, 0)}+{max(y - 10, 0)}"
    hands.run("convert", str(hands.SHOTS / "after.png"), "-crop", area, "+repage", "-filter", "point", "-resize", "600%",
              str(hands.SHOTS / "icon-large.png"))
    assert hands.contrast() >= 3, f"contrast {hands.contrast():.1f} : 1 at {hands.icon()}"
    return f"at {hands.icon()}, contrast {hands.contrast():.1f} : 1"


@step("popover")
def _():
    window = opened()
    place = f"{window.x},{window.y} {window.width} x {window.height}"
    if not hands.icon() or hands.KIND == "sway":  # sway centres every window
        return place
    beside, apart = distance(window, hands.icon())
    assert beside <= 8 and 0 <= apart <= 12, f"{place}: {beside} points beside and {apart} away from the icon at {hands.icon()}"
    return f"{place}, {beside} points beside and {apart} away from the icon"


@step("close: second click", no_icon)
def _():
    open_fresh()
    hands.click_icon()
    closed()


@step("close: Escape", no_icon)
def _():
    open_fresh()
    hands.key("Escape")
    closed()


@step("close: desktop", no_icon or keeps_focus("gnome"))
def _():
    window = open_fresh()
    hands.click(window.x // 2 if window.x > 200 else (window.x + window.width + screen[0]) // 2, screen[1] // 2)
    closed()


@step("close: panel", no_icon or keeps_focus("gnome", "kwin", "sway"))
def _():
    open_fresh()
    hands.click(int(screen[0] * 0.4), hands.icon_place()[1])
    closed()


put_away()


@step("close: other window", no_icon)
def _():
    other = subprocess.Popen(["zenity", "--text-info", "--title", "Anderes", "--width", "1000", "--height", "300"], stdin=subprocess.DEVNULL)
    try:
        frame = hands.wait_until(lambda: next((w for w in hands.windows() if w.title == "Anderes"), None), "the other window", 10)
        time.sleep(1)
        window = opened()
        x, y = frame.x + 40, frame.y + frame.height // 2
        if window.x <= x <= window.x + window.width:
            x = frame.x + frame.width - 40
        hands.click(x, y)
        time.sleep(1)
        hands.shot("close-other-window-clicked")
        closed()
    finally:
        other.terminate()
        other.wait()


put_away()


@step("menu", no_icon or ("no keys reach waybar's menu" if hands.KIND == "sway" else None))
def _():
    hands.click_icon(3)
    time.sleep(1)
    hands.shot("menu-open")
    hands.key("Down")
    hands.key("Return")
    hands.wait_until(hands.popover, "the popover by Öffnen", 5)


@step("Neues Projekt", by_control)
def _():
    opened()
    hands.press("Neues Projekt")
    hands.find("Neues Projekt erstellen")
    hands.type("Zweites")
    time.sleep(0.5)
    hands.shot("Neues-Projekt-open")
    hands.key("Escape")
    hands.wait_until(lambda: all(c.name != "Neues Projekt erstellen" for c in hands.controls()), "the sheet to close")
    assert hands.popover(), "the popover closed too"


@step("save dialog", by_control)
def _():
    opened()
    hands.press("Rechnung")
    hands.find("Rechnung erstellen: Website")
    hands.press("Alle auswählen")
    hands.press("Rechnungsnummer:", "text")
    hands.type("2026-001")
    hands.key("ctrl+Return")
    time.sleep(3)
    hands.shot("save-dialog-open")
    hands.key("Return")
    files = hands.wait_until(lambda: [f.name for f in HOME.rglob("*.pdf") if f.stat().st_size > 1000], "the PDF")
    return files[0]


put_away()


def brightness(window):
    """0 to 255, of the popover's ground near its left edge."""
    x, y = window.x + 8 * hands.SCALE, window.y + window.height * 3 // 4
    pixel = hands.run("convert", hands.shot("ground"), "-crop", f"1x1+{x}+{y}", "-colorspace", "gray", "-format", "%[fx:mean*255]", "info:")
    return float(pixel)


@step("dark switch", by_control)
def _():
    window = opened()
    assert brightness(window) > 200, "it is not light to begin with"
    hands.press("Einstellungen")
    hands.find("Farbschema", "combo box").queryComponent().grabFocus()
    hands.key("Down")
    time.sleep(1)
    hands.shot("dark")
    assert brightness(window) < 60, "it stays light"
    if has_host:
        put_away()
        assert hands.contrast() >= 3, f"then the icon has a contrast of {hands.contrast():.1f} : 1"
        opened()
    hands.find("Farbschema", "combo box").queryComponent().grabFocus()
    hands.key("Up")
    time.sleep(1)
    assert brightness(window) > 200, "it stays dark"


@step("clipboard", by_control)
def _():
    opened()
    hands.press("Zeiterfassung")
    field = hands.find("Aufgabe eingeben", "text")
    typed = lambda: hands.find("Aufgabe eingeben", "text").queryText().getText(0, -1)
    hands.press("Aufgabe eingeben", "text")
    hands.type("Kopie")
    hands.key("ctrl+a", "ctrl+c")
    copied = hands.wait_until(lambda: hands.run("xclip", "-o", "-selection", "clipboard", seconds=3), "the copy")
    assert copied == "Kopie", f"copied {copied!r}"
    owner = subprocess.Popen(["xclip", "-quiet", "-selection", "clipboard"], stdin=subprocess.PIPE, stderr=subprocess.DEVNULL)
    try:
        owner.stdin.write("Büro".encode())
        owner.stdin.close()
        time.sleep(1)
        hands.key("ctrl+a", "ctrl+v")
        hands.wait_until(lambda: typed() == "Büro", f"the paste in {field.name}; there is {typed()!r}")
    finally:
        owner.terminate()
        owner.wait()
    hands.key("ctrl+a", "BackSpace")


put_away()
others = {"mousepad": "Mousepad", "featherpad": "FeatherPad", "xterm": "XTerm"}


@step("tracker", by_control)
def _():
    if hands.KIND == "gnome":  # where it is off until the user wants it
        hands.run("gnome-extensions", "enable", "brisklog@brisklog.example")
    opened()
    hands.press("Auto-Tracking")
    hands.press("Automatische Zeiterfassung", "check box")
    hands.wait_until(lambda: any(c.name.startswith("Aktiv - Erfasst") for c in hands.controls()), "the tracker's state")
    for program in others:
        known = {window.title for window in hands.windows()}
        other = subprocess.Popen([program], stderr=subprocess.DEVNULL)
        hands.wait_until(lambda: {window.title for window in hands.windows()} - known, f"the window of {program}", 15)
        time.sleep(5)
        other.terminate()
        other.wait()
    time.sleep(3)  # what was in front is stored when something else, also the bare desktop, comes there
    stored = b""
    for file in HOME.glob(".config/brisklog/*.sqlite"):
        with sqlite3.connect(f"file:{file}?mode=ro", uri=True) as base:
            for (table,) in base.execute("select name from sqlite_master where type = 'table'").fetchall():
                stored += repr(base.execute(f"select * from {table}").fetchall()).encode()
    missing = [name for name in others.values() if name.encode() not in stored]
    assert not missing, f"not recorded: {missing}"
    assert b'brisklog"' not in stored.lower(), "it recorded itself"
    return "and the bare desktop" if b"Schreibtisch" in stored else "but not the bare desktop"


@step("second start")
def _():
    put_away()
    assert subprocess.run(["brisklog"], timeout=10).returncode == 0, "exit status"
    window = hands.wait_until(hands.popover, "the popover", 5)
    return f"{window.x},{window.y}"


@step("end")
def _():
    program.terminate()
    assert program.wait(10) in (0, -15), f"exit status {program.returncode}"


sys.exit(failures)
