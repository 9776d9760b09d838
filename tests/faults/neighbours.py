"""Other processes: many starts at once, a panel that restarts, a session bus that dies."""

import os
import signal
import subprocess
import time
from pathlib import Path

from desktop import LOCK, wait_until
from tally import PROJECTS, check_kept, is_long, main, opened, read_entries, record_one, write_projects


def processes_called(name):
    """Only those of this desktop, which all carry its mark."""
    mark = f"BRISKLOG_DESKTOP={os.environ['BRISKLOG_DESKTOP']}".encode()
    found = []
    for folder in Path("/proc").glob("[0-9]*"):
        try:
            if (folder / "comm").read_text().strip() == name and mark in (folder / "environ").read_bytes().split(b"\0"):
                found.append(int(folder.name))
        except OSError:  # ended meanwhile
            pass
    return found


def second_starts_under_load(path, desktop, tally):
    """However many start at once while the machine is busy: one runs, the others exit successfully."""
    write_projects(20)
    busy = [subprocess.Popen(["sh", "-c", "while :; do :; done"]) for _ in range(4)]
    try:
        program = opened(path, desktop)
        for _ in range(10 if is_long() else 2):
            others = [subprocess.Popen([path], stdout=subprocess.DEVNULL) for _ in range(8)]
            codes = [other.wait(timeout=60) for other in others]
            tally.tried += 1
            assert codes == [0] * 8, codes
            assert program.is_running()
        record_one(desktop)
        check_kept(tally, 21)
    finally:
        for process in busy:
            process.kill()
            process.wait()


def first_starts_at_once(path, desktop, tally):
    """Whichever is first, exactly one keeps running."""
    write_projects(20)
    for _ in range(20 if is_long() else 2):
        starts = [subprocess.Popen([path], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) for _ in range(6)]
        wait_until(lambda: sum(start.poll() is None for start in starts) == 1, "all but one to end", 30)
        tally.tried += 1
        running = [start for start in starts if start.poll() is None]
        assert [start.returncode for start in starts if start not in running] == [0] * 5
        running[0].kill()
        running[0].wait()
    tally.torn += read_entries() is None


def killed_one_still_has_the_lock(path, desktop, tally):
    """A killed process holds the lock until its last write is done; the next start waits for that before it reads the files."""
    write_projects(20)
    opened(path, desktop).kill()
    held = subprocess.Popen(["flock", "--exclusive", LOCK, "sleep", "1"])
    wait_until(lambda: subprocess.run(["flock", "--nonblock", LOCK, "true"]).returncode != 0,
               "the lock to be taken")
    program = opened(path, desktop)
    assert held.wait() == 0
    tally.tried += 1
    record_one(desktop)
    check_kept(tally, 21)
    program.kill()


def panel_restarts(path, desktop, tally):
    write_projects(20)
    program = opened(path, desktop)
    for _ in range(5 if is_long() else 1):
        for process in processes_called("xfce4-panel"):
            os.kill(process, signal.SIGKILL)
        time.sleep(0.5)
        subprocess.Popen(["xfce4-panel", "--disable-wm-check"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(1)
        desktop.wait_for_icon()
        wait_until(lambda: toggled(desktop), "the icon to answer again", 20)
        tally.tried += 1
        assert program.is_running()
    record_one(desktop)
    check_kept(tally, 21)


def toggled(desktop):
    """Clicks the icon while the popover is closed; whether it is open then. The panel may not have drawn the icon yet."""
    if not desktop.popover_is_open():
        desktop.click_icon()
        time.sleep(0.5)
    return desktop.popover_is_open()


def session_bus_dies(path, desktop, tally):
    """Typing in the open popover still works. Without a bus the screen cannot be queried, so the file is checked."""
    write_projects(20)
    program = opened(path, desktop)
    record_one(desktop)
    for process in processes_called("dbus-daemon"):
        os.kill(process, signal.SIGKILL)
    time.sleep(1)
    tally.tried += 1
    assert program.is_running()
    before = PROJECTS.stat().st_mtime_ns
    desktop.type("Ohne Bus")
    desktop.press("Return")
    wait_until(lambda: PROJECTS.stat().st_mtime_ns != before, "the save without a bus")
    check_kept(tally, 21)
    assert subprocess.run([path], capture_output=True, timeout=20).returncode != 0, "the second start must report that it failed"
    assert program.is_running()


main(second_starts_under_load, first_starts_at_once, killed_one_still_has_the_lock, panel_restarts, session_bus_dies)
