"""The clock is set, the machine sleeps, the user travels: times follow, and nothing recorded changes."""

import os
import shutil
import signal
import subprocess
import time
from contextlib import suppress
from datetime import datetime
from pathlib import Path
from zoneinfo import ZoneInfo

from desktop import HOME
from tally import main, opened, read_entries, start_timers, stop_buttons, stop_timer, wait_until, write_projects

CLOCK = HOME / "clock"
ETC = HOME / "etc"
HOUR = 3600


def set_clock(seconds):
    CLOCK.write_text(f"{seconds:+d}\n")


def clock_that_can_be_set(monotonic):
    library = next(Path("/usr/lib").glob("*/faketime/libfaketime.so.1"))
    set_clock(0)
    return {"LD_PRELOAD": str(library), "FAKETIME_TIMESTAMP_FILE": str(CLOCK), "FAKETIME_NO_CACHE": "1",
            "DONT_FAKE_MONOTONIC": "0" if monotonic else "1"}


def check_jump(desktop, program, tally, jump, hours):
    """Runs a timer across the jump: exactly one new entry, as long as the clock says, and the others unchanged."""
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
    """All clocks jump at once, as after a night of suspension."""
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


def travel_to(zone):
    """Changes the system's time zone as desktops do."""
    link = ETC / "localtime.new"
    link.symlink_to(f"/usr/share/zoneinfo/{zone}")
    link.replace(ETC / "localtime")


def traveller(path):
    """A script that runs the program with its own /etc, where the time zone can be changed; None where that is not allowed."""
    apart = ["unshare", "--user", "--map-root-user", "--mount"]
    if subprocess.run([*apart, "true"], capture_output=True).returncode != 0:
        return None
    with suppress(shutil.Error):  # files that only root may read
        shutil.copytree("/etc", ETC, symlinks=True)
    script = HOME / "traveller"
    script.write_text(f"""#!/bin/sh
exec {" ".join(apart)} sh -c 'mount --bind {ETC} /etc && exec "$@"' sh \\
    unshare --user --map-user={os.getuid()} --map-group={os.getgid()} env -u TZ {path}
""")
    script.chmod(0o700)
    return script


def early_in_a_minute():
    left = 60 - time.time() % 60
    time.sleep(left if left < 5 else 0)
    return time.time()


def zone_changed(path, desktop, tally):
    """Times already on the screen change to the new time zone."""
    script = traveller(path)
    if script is None:
        print("zone changed: a system of its own is not allowed here")
        return
    write_projects(1)
    before = read_entries()
    travel_to("Europe/Berlin")
    opened(script, desktop)

    def names_with(part):
        return [name for name in desktop.names() if part in name]

    def started_at(zone):
        return datetime.fromtimestamp(begin, ZoneInfo(zone)).strftime("Gestartet: %H:%M")

    wait_until(lambda: names_with("08.03.23, 21:26:40"), "the entry as in Berlin")
    travel_to("Asia/Tokyo")
    wait_until(lambda: names_with("09.03.23, 05:26:40"), "the entry as in Tokyo")
    begin = early_in_a_minute()
    start_timers(desktop, 1)
    desktop.press_named("Dashboard")
    wait_until(lambda: names_with(started_at("Asia/Tokyo")), "the timer as in Tokyo")
    travel_to("Europe/Berlin")
    wait_until(lambda: names_with(started_at("Europe/Berlin")), "the timer as in Berlin")
    tally.tried += 1
    tally.lost += read_entries() != before


main(clock_set, machine_slept, process_stood_still, zone_changed)
