"""The program is killed at random moments of its saves."""

import contextlib
import json
import random
import subprocess
import threading
import time

import pyatspi
from desktop import HOME, wait_until
from tally import PROJECTS, is_long, main, opened, read_entries, start_timers, stop_buttons, stop_timer, write_projects

PROFILE = HOME / ".local/share/Pennavo/profile.json"


def act_ignoring_errors(action):
    """The program may be gone before it answers."""
    with contextlib.suppress(Exception):
        action.doAction(0)


def kill_while_stopping(path, desktop, tally, longest):
    """Stops three timers one after another; the kill comes up to `longest` seconds after one of these gestures."""
    before = len(read_entries())
    program = opened(path, desktop)
    start_timers(desktop, 3)
    acknowledged = random.randrange(3)
    for stopped in range(acknowledged):
        stop_timer(desktop)
        wait_until(lambda stopped=stopped: len(stop_buttons(desktop)) == 2 - stopped, "the stopped timer to go")
    # The gesture is still under way when the program is killed.
    threading.Thread(target=act_ignoring_errors, args=[stop_buttons(desktop)[0].queryAction()], daemon=True).start()
    time.sleep(random.uniform(0, longest))
    program.kill()
    after = read_entries()
    tally.tried += 1
    tally.torn += after is None
    tally.lost += after is not None and len(after) < before + acknowledged


def killed_while_a_small_file_is_saved(path, desktop, tally):
    write_projects(20)
    for _ in range(60 if is_long() else 3):
        kill_while_stopping(path, desktop, tally, longest=0.15)
        if read_entries() is None:
            write_projects(20)


def killed_while_25_megabytes_are_saved(path, desktop, tally):
    write_projects(85000)
    assert PROJECTS.stat().st_size > 25_000_000
    for _ in range(60 if is_long() else 3):
        kill_while_stopping(path, desktop, tally, longest=0.3)
        if read_entries() is None:
            write_projects(85000)


def killed_while_every_keystroke_is_saved(path, desktop, tally):
    """Whatever the form shows must already be in the file."""
    for round_number in range(100 if is_long() else 4):
        program = opened(path, desktop)
        desktop.press_named("Profil")
        field = desktop.find("Name", pyatspi.ROLE_TEXT)
        field.queryComponent().grabFocus()
        desktop.press("ctrl+a", "Delete")
        typing = subprocess.Popen(["xdotool", "type", "--delay", "2", f"{round_number:03}" * 200])
        time.sleep(random.uniform(0.1, 0.6))
        shown = field.queryText().getText(0, -1)
        time.sleep(random.uniform(0, 0.1))
        program.kill()
        typing.kill()
        typing.wait()
        tally.tried += 1
        try:
            tally.lost += len(json.loads(PROFILE.read_text(encoding="utf-8"))["fullName"]) < len(shown)
        except ValueError:
            tally.torn += 1


main(killed_while_a_small_file_is_saved, killed_while_25_megabytes_are_saved, killed_while_every_keystroke_is_saved)
