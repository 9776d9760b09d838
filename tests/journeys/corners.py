"""Without a compositor the rounded corners of menus, calendars and tooltips show what is behind them, and no black."""

import subprocess
import time

import pyatspi
from desktop import Program, command, main, read_json, wait_until

CORNER = 9  # pixels from each edge of a window


class Screen:
    """The pixels of the whole screen at one moment."""

    def __init__(self):
        picture = subprocess.run(["import", "-window", "root", "-depth", "8", "ppm:-"], check=True, capture_output=True)
        _, size, _, self.data = picture.stdout.split(b"\n", 3)
        self.width = int(size.split()[0])

    def __getitem__(self, place):
        start = (place[1] * self.width + place[0]) * 3
        return tuple(self.data[start:start + 3])


def windows():
    return set(command("xdotool", "search", "--onlyvisible", "--class", "brisklog").split())


def places_in_corners(window):
    lines = command("xdotool", "getwindowgeometry", "--shell", window).splitlines()
    left, top, width, height = (int(dict(line.split("=") for line in lines)[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))
    for x in (*range(CORNER), *range(width - CORNER, width)):
        for y in (*range(CORNER), *range(height - CORNER, height)):
            yield left + x, top + y


def darkest(colours):
    return tuple(min(channel) for channel in zip(*colours))


def check_corners(desktop, name, own, act, leave):
    """No pixel near the corners of the window that opens is darker than its own darkest colour and what it covers."""
    before, under = windows(), Screen()
    act()
    window = wait_until(lambda: windows() - before, f"the window of {name!r}").pop()
    time.sleep(0.3)  # until it is drawn
    shown = Screen()
    desktop.screenshot(f"corners-{name}")
    places = list(places_in_corners(window))
    # Less the rounding of blended channels.
    least = tuple(channel - 3 for channel in darkest([own, *(under[place] for place in places)]))
    black = {place: shown[place] for place in places if darkest([shown[place], least]) != least}
    assert not black, (name, least, black)
    leave()
    wait_until(lambda: window not in windows(), f"{name!r} to close")


def hover(desktop, name):
    box = desktop.find(name).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    command("xdotool", "mousemove", str(box.x + box.width // 2), str(box.y + box.height // 2))


def check_calendar(desktop, name, frame):
    desktop.press_named("Rechnung")
    date = desktop.find("Datum:", pyatspi.ROLE_SPIN_BUTTON)
    date.queryComponent().grabFocus()
    time.sleep(0.3)  # until the sheet has come to rest
    check_corners(desktop, name, frame, lambda: desktop.press("alt+Down"), lambda: desktop.press("Escape"))
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Manueller Eintrag"), "the invoice to close")


def check_scheme(desktop, scheme, frame, tooltip):
    desktop.press_named("Einstellungen")
    check_corners(desktop, f"menu-{scheme}", frame, lambda: desktop.press_named("Farbschema"),
                  lambda: desktop.press("Escape"))
    desktop.press_named("Zeiterfassung")
    check_calendar(desktop, f"calendar-{scheme}", frame)
    check_corners(desktop, f"tooltip-{scheme}", tooltip, lambda: hover(desktop, "Projekteinstellungen"),
                  lambda: command("xdotool", "mousemove", "20", "400"))


def journey(program_path, desktop):
    Program(program_path)
    desktop.wait_for_icon()
    desktop.open_popover()
    # A frame is 0.3 of the secondary colour over the card.
    check_scheme(desktop, "light", (0xCC, 0xCE, 0xD2), (0x25, 0x2A, 0x36))
    desktop.press_named("Einstellungen")
    desktop.press_named("Farbschema")
    desktop.press("Down", "Return")
    wait_until(lambda: read_json("app_settings.json")["colorScheme"] == "Dunkel", "the dark scheme")
    time.sleep(0.5)  # until everything is drawn in it
    check_scheme(desktop, "dark", (0x1D, 0x21, 0x29), (0xE6, 0xE5, 0xE0))


main(journey)
