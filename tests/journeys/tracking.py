"""What the day was spent on: three windows come to the front, and the day's window shows for how long. Then the
dashboard over a month of work, and all of it in the dark scheme."""

import json
import re
import subprocess
import time

import pyatspi
from desktop import DOCUMENTS, Program, command, main, wait_until

WINDOWS = {"xfontsel": ["xfontsel"], "viewres": ["viewres"], "xfd": ["xfd", "-fn", "fixed"]}


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


def use_programs():
    for name, words in WINDOWS.items():
        program = subprocess.Popen(words, stderr=subprocess.DEVNULL)
        window = wait_until(lambda name=name: subprocess.run(["xdotool", "search", "--onlyvisible", "--classname", name],
                                                             capture_output=True, text=True).stdout.split(), name)[0]
        command("xdotool", "windowactivate", "--sync", window)
        time.sleep(3.2)
        program.terminate()
        program.wait()


def journey(path, desktop):
    write_month()
    Program(path)
    desktop.wait_for_icon()
    desktop.open_popover()
    start_timer(desktop)
    switch_on(desktop)
    desktop.press("Escape")
    wait_until(lambda: not desktop.popover_is_open(), "the popover to close")
    use_programs()
    desktop.open_popover()
    desktop.find("Aktuell: brisklog")  # the last program's time is recorded once another one is in front
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
        assert 2 <= seconds <= 5, row
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
