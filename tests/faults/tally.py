"""Shared by the fault tests: counting, a home with recorded entries, gestures that change something."""

import json
import os
import subprocess
import sys
import time
from pathlib import Path

import pyatspi
from desktop import DOCUMENTS, Desktop, Program, describe_failure, wait_until

PROJECTS = DOCUMENTS / "projects.json"
PROJECT_ID = "6F2A4B1C-8D3E-4F50-9A61-7B82C3D4E5F6"


class Tally:
    """Faults tried, files torn, acknowledged changes lost."""

    def __init__(self, fault):
        self.fault = fault
        self.tried = self.torn = self.lost = 0

    def report(self):
        line = {"fault": self.fault, "tried": self.tried, "torn": self.torn, "lost": self.lost}
        with open(os.environ["BRISKLOG_TALLY"], "a", encoding="utf-8") as file:
            file.write(json.dumps(line) + "\n")


def is_long():
    return os.environ.get("BRISKLOG_FAULTS") == "long"


def entry(number):
    start = 700000000.25 + number * 3600
    return {"id": f"00000000-0000-4000-8000-{number:012X}", "taskName": "Übersetzung der Oberfläche, zweiter Teil",
            "startTime": start, "endTime": start + 1800.5, "projectId": PROJECT_ID, "isInvoiced": False}


def write_projects(entry_count):
    """Writes a project with that many entries; 85,000 of them make a file of 25 MB."""
    DOCUMENTS.mkdir(parents=True, exist_ok=True)
    project = {"id": PROJECT_ID, "name": "Website", "hourlyRate": 85.5, "entries": [entry(n) for n in range(entry_count)]}
    PROJECTS.write_text(json.dumps([project], indent=2), encoding="utf-8")


def read_entries():
    """The recorded entries; None when the file is torn."""
    try:
        return json.loads(PROJECTS.read_text(encoding="utf-8"))[0]["entries"]
    except ValueError:
        return None


def opened(path, desktop, **environment):
    """Starts the program and opens its popover, with the focus in the task field."""
    program = Program(path, **environment)
    desktop.wait_for_icon()
    desktop.open_popover()
    wait_until(lambda: desktop.find("Aufgabe eingeben").getState().contains(pyatspi.STATE_FOCUSED), "the keyboard in the field")
    return program


def stop_buttons(desktop):
    return desktop.all_visible(lambda node: node.name == "Stoppen" and node.getRole() == pyatspi.ROLE_PUSH_BUTTON)


def start_timers(desktop, count):
    """Each start saves the projects file once."""
    for number in range(count):
        desktop.type(f"Aufgabe {number}")
        desktop.press("Return")
        wait_until(lambda number=number: len(stop_buttons(desktop)) == number + 1, f"timer {number}")
        time.sleep(0.35)  # the field is emptied 0.3 seconds later


def stop_timer(desktop):
    stop_buttons(desktop)[0].queryAction().doAction(0)


def record_one(desktop):
    """Records one more entry; returns once the user can see that it was recorded."""
    start_timers(desktop, 1)
    stop_timer(desktop)
    wait_until(lambda: not stop_buttons(desktop), "the stopped timer to go")


def check_kept(tally, count):
    """Counts a torn file, and the entries missing from the expected number."""
    kept = read_entries()
    tally.torn += kept is None
    tally.lost += count - len(kept or [])


def main(*faults):
    path, results = sys.argv[1:]
    desktop = Desktop(results)
    try:
        for fault in faults:
            tally = Tally(fault.__name__)
            fault(path, desktop, tally)
            tally.report()
            for run in Program.runs:
                run.end()
            for file in list(DOCUMENTS.glob("*")) if DOCUMENTS.exists() else []:
                file.unlink()
    except BaseException:
        describe_failure(desktop)
        raise
    finally:
        for run in Program.runs:
            run.end()


def run_as_root(*words):
    return subprocess.run(words, capture_output=True, text=True).returncode == 0
