"""The clock is set, the machine sleeps: times follow the clock, and nothing recorded changes."""

import signal
import time
from pathlib import Path

from desktop import HOME
from tally import main, opened, read_entries, start_timers, stop_buttons, stop_timer, wait_until, write_projects

CLOCK = HOME / "clock"
HOUR = 3600


def set_clock(seconds):
    CLOCK.write_text(f"{seconds:+d}\n")


def clock_that_can_be_set(monotonic):
    library = next(Path("/usr/lib").glob("*/faketime/libfaketime.so.1"))
    set_clock(0)
    return {"LD_PRELOAD": str(library), "FAKETIME_TIMESTAMP_FILE": str(CLOCK), "FAKETIME_NO_CACHE": "1",
            "DONT_FAKE_MONOTONIC": "0" if monotonic else "1"}


def check_jump(desktop, program, tally, jump, hours):
    """One timer over the jump: exactly one entry more, as long as the clock says, and the others as they were."""
    before = read_entries()
    start_timers(desktop, 1)
    jump()
    stop_timer(desktop)
    wait_until(lambda: not stop_buttons(desktop), "the stopped timer to go")
    after = read_entries()
    tally.tried += 1
    tally.torn += after is None
    others = [entry for entry in after if entry["taskName"] != "Aufgabe 0" or entry in before]
    tally.lost += others != before or len(after) != len(before) + 1
    newest = next(entry for entry in after if entry not in before)
    length = newest["endTime"] - newest["startTime"]
    assert abs(length - hours * HOUR) < 30, f"{length} seconds for a jump of {hours} hours"
    assert program.is_running()


def clock_set(path, desktop, tally):
    write_projects(20)
    program = opened(path, desktop, **clock_that_can_be_set(monotonic=False))
    for begin, end in ((0, 2), (2, -3), (-3, -3), (-3, 24 * 40)):
        check_jump(desktop, program, tally, lambda end=end: set_clock(end * HOUR), end - begin)


def machine_slept(path, desktop, tally):
    """All clocks jump at once, as after a night in the bag."""
    write_projects(20)
    program = opened(path, desktop, **clock_that_can_be_set(monotonic=True))
    check_jump(desktop, program, tally, lambda: set_clock(8 * HOUR), 8)


def process_stood_still(path, desktop, tally):
    write_projects(20)
    program = opened(path, desktop)

    def jump():
        program.process.send_signal(signal.SIGSTOP)
        time.sleep(3)
        program.process.send_signal(signal.SIGCONT)

    check_jump(desktop, program, tally, jump, 3 / HOUR)


main(clock_set, machine_slept, process_stood_still)
