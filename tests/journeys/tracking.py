"""What the day was spent on: three windows come to the front, and the day's window tells for how long."""

import re
import subprocess
import time

import pyatspi
from desktop import Program, command, main, wait_until

WINDOWS = {"xfontsel": ["xfontsel"], "viewres": ["viewres"], "xfd": ["xfd", "-fn", "fixed"]}


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
    Program(path)
    desktop.wait_for_icon()
    desktop.open_popover()
    switch_on(desktop)
    desktop.press("Escape")
    wait_until(lambda: not desktop.popover_is_open(), "the popover to close")
    use_programs()
    desktop.open_popover()
    desktop.screenshot("62-tracking-calendar")
    read_the_day(desktop)


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
    assert desktop.windows(title), "the day's window outlives the popover's screens"


main(journey)
