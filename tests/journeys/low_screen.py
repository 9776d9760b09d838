"""A low screen: every window lies on it, and the last control of every section can be brought into view."""

import time

import pyatspi
from desktop import Program, command, main, wait_until

# The last thing on each section's screen.
SECTIONS = {"Dashboard": "Gesamt:", "Profil": "Hinweis", "Einstellungen": "Mail", "Zeiterfassung": "Zeiterfassungen"}


def box_of(window):
    lines = command("xdotool", "getwindowgeometry", "--shell", window).splitlines()
    values = dict(line.split("=") for line in lines)
    return [int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")]


def check_on_screen(desktop, title):
    window = wait_until(lambda: desktop.windows(title), f"the window {title!r}")[-1]
    time.sleep(0.4)  # until it has come to rest
    x, y, width, height = box_of(window)
    assert x >= 0 and y >= 0 and x + width <= desktop.width and y + height <= desktop.height, (title, x, y, width, height)
    return x, y, width, height


def check_panel_is_free(desktop, box):
    """The panel is 28 pixels thick."""
    x, y, width, height = box
    room = {"top": y, "left": x, "bottom": desktop.height - y - height, "right": desktop.width - x - width}[desktop.edge]
    assert room >= 27, (desktop.edge, box)


def box_on_screen(desktop, thing):
    box = thing.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return [value * desktop.scale for value in (box.x, box.y, box.x + box.width, box.y + box.height)]


def scrolled_into_view(desktop, popover, name):
    """Turns the wheel over the popover until the whole of the control is in it."""
    x, y, width, height = popover
    things = desktop.all_visible(lambda node: node.name == name)
    left, top, right, bottom = box_on_screen(desktop, things[-1])
    if left >= x - 1 and top >= y - 1 and right <= x + width + 1 and bottom <= y + height + 1:
        return True
    command("xdotool", "mousemove", str(x + width // 2), str(y + height - 12), "click", "5")
    return False


def scroll_to_the_top(popover):
    x, y, width, height = popover
    command("xdotool", "mousemove", str(x + width // 2), str(y + height - 12), "click", "--repeat", "10", "4")


def check_section(desktop, popover, section, last):
    desktop.press_named(section)
    wait_until(lambda: scrolled_into_view(desktop, popover, last), f"{last!r} to come into view")
    desktop.screenshot(f"low-{desktop.width}-{desktop.scale}-{desktop.edge}-{section}")


def check_sheet(desktop, control, title):
    desktop.press_named(control)
    check_on_screen(desktop, title)
    desktop.screenshot(f"low-{desktop.width}-{desktop.scale}-{desktop.edge}-sheet-{control}")
    desktop.press("Escape")
    wait_until(lambda: not desktop.windows(title), f"the window {title!r} to close")


def journey(program_path, desktop):
    Program(program_path)
    desktop.wait_for_drawn_icon()
    desktop.open_popover()
    popover = check_on_screen(desktop, "Brisklog")
    check_panel_is_free(desktop, popover)
    for section, last in SECTIONS.items():
        check_section(desktop, popover, section, last)
    check_section(desktop, popover, "Auto-Tracking", "Daten löschen")
    desktop.press_named("Standardprojekt")
    scroll_to_the_top(popover)
    check_sheet(desktop, "Projekteinstellungen", "Projekteinstellungen")
    check_sheet(desktop, "Kunde", "Kundenverwaltung")
    check_sheet(desktop, "Rechnung", "Rechnung erstellen: Standardprojekt")
    desktop.press_named("Einstellungen")
    check_sheet(desktop, "Archiv anzeigen", "Archivierte Rechnungen")


main(journey)
