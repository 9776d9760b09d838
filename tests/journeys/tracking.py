"""What the day was spent on: three windows come to the front, and the day's window shows for how long. Then the
dashboard over a month of work, and all of it in the dark scheme."""

import json
import re
import subprocess
import time

import pyatspi
from desktop import DOCUMENTS, Program, command, main, wait_until

WINDOWS = {"xfontsel": ["xfontsel"], "viewres": ["viewres"], "xfd": ["xfd", "-fn", "fixed"]}
OVER_WHICH_THE_POPOVER_OPENS = "viewres"

REFERENCE = 978307200  # 1 January 2001, from which times in the files count
PROJECT = "5C0E4A44-2B1D-4B0E-9C39-0D5B0B6F0001"


def write_month():
    """Two entries on each of the last 30 days, the newest of them an hour old."""
    now = time.time() - REFERENCE
    entries = [{"id": f"5C0E4A44-2B1D-4B0E-9C39-0D5B0B6F1{number:03d}", "taskName": "Startseite entwerfen", "isInvoiced": False,
                "startTime": now - day * 86400 - 3600 - hours * 3600, "endTime": now - day * 86400 - 3600}
               for number, (day, hours) in enumerate((day, hours) for day in range(30) for hours in (1 + day % 3, 0.5))]
    DOCUMENTS.mkdir(exist_ok=True)
    project = {"id": PROJECT, "name": "Website", "hourlyRate": 85.5, "entries": entries}
    (DOCUMENTS / "projects.json").write_text(json.dumps([project]), encoding="utf-8")


def start_timer(desktop):
    desktop.press_named("Aufgabe eingeben")
    desktop.type("Fehlersuche")
    desktop.press("Return")
    desktop.find("Pausieren")


def switch_on(desktop):
    desktop.press_named("Auto-Tracking")
    desktop.find("Inaktiv")
    desktop.screenshot("60-tracking-off")
    desktop.press_named("Automatische Zeiterfassung", pyatspi.ROLE_CHECK_BOX)
    desktop.find("Aktiv - Erfasst Anwendungsnutzung")
    desktop.screenshot("61-tracking-on")


def come_to_front(name):
    program = subprocess.Popen(WINDOWS[name], stderr=subprocess.DEVNULL)
    window = wait_until(lambda: subprocess.run(["xdotool", "search", "--onlyvisible", "--classname", name],
                                               capture_output=True, text=True).stdout.split(), name)[0]
    command("xdotool", "windowactivate", "--sync", window)
    return program


def end(program):
    program.terminate()
    program.wait()


def close_popover(desktop):
    desktop.press("Escape")
    wait_until(lambda: not desktop.popover_is_open(), "the popover to close")


def use_programs(desktop):
    """Opening the popover over one of them does not cut its time."""
    for name in WINDOWS:
        program = come_to_front(name)
        if name == OVER_WHICH_THE_POPOVER_OPENS:
            time.sleep(1.2)
            desktop.open_popover()
            desktop.find("Aktuell: Viewres")
            close_popover(desktop)
        time.sleep(3.2)
        end(program)


def journey(path, desktop):
    write_month()
    Program(path)
    desktop.wait_for_icon()
    desktop.open_popover()
    start_timer(desktop)
    close_popover(desktop)
    program = come_to_front(OVER_WHICH_THE_POPOVER_OPENS)
    desktop.open_popover()
    switch_on(desktop)
    desktop.find("Aktuell: Viewres")  # the program that was in front before the popover
    close_popover(desktop)
    end(program)
    time.sleep(2.2)
    desktop.open_popover()
    desktop.find("Aktuell: Schreibtisch")
    close_popover(desktop)
    use_programs(desktop)
    time.sleep(2.2)
    desktop.open_popover()
    desktop.find("Aktuell: Schreibtisch")  # a program's time is recorded once something else is in front
    desktop.screenshot("62-tracking-calendar")
    read_the_day(desktop)
    look_at_it_in_dark(desktop)


def read_the_day(desktop):
    today = next(name for name in desktop.names() if name.endswith(", mit Daten"))
    desktop.press_named(today)
    title = time.strftime("App-Nutzung: %d.%m.%Y")
    wait_until(lambda: desktop.windows(title), "the day's window")
    rows = wait_until(lambda: [name for name in desktop.names() if any(program in name.lower() for program in WINDOWS)],
                      "the programs of the day")
    desktop.screenshot("63-tracking-day")
    assert len(rows) == len(WINDOWS), rows
    for row in rows:
        seconds = int(re.search(r"(\d+)\s*s\b", row.replace("\u00a0", " ")).group(1))
        shortest, longest = (4, 20) if OVER_WHICH_THE_POPOVER_OPENS in row.lower() else (2, 5)
        assert shortest <= seconds <= longest, row
    desktop.press_named("Dashboard")
    desktop.find("Fehlersuche")
    desktop.screenshot("64-dashboard")
    assert desktop.windows(title), "the day's window outlives the popover's screens"


def look_at_it_in_dark(desktop):
    desktop.press_named("Einstellungen")
    desktop.press_named("Farbschema")
    desktop.press_named("Dunkel")
    desktop.press_named("Dashboard")
    desktop.screenshot("65-dark-dashboard")
    desktop.press_named("Zeiterfassung")
    desktop.press_named("Auto-Tracking")
    desktop.find("Aktiv - Erfasst Anwendungsnutzung")
    desktop.screenshot("66-dark-tracking-day")


main(journey)
