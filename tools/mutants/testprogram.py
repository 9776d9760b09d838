"""Running a GoogleTest program directly: many tests in one process, the first failure ends it."""

import json
import os
import re
import signal
import subprocess
import threading
import time
from dataclasses import dataclass
from pathlib import Path

# A changed loop must not take the machine's memory or disk.
LIMITS = ["prlimit", "--as=6000000000", "--fsize=500000000", "--core=0"]
# In milliseconds.
SLOW = 1000
# In seconds.
LONGEST_TEST = 300
SHORTEST_LIMIT = 20
SLOWEST_FACTOR = 10

EVENT = re.compile(r"^\[( RUN      |       OK |  FAILED  |  SKIPPED )\] ([\w/]+\.[\w/]+)(?:.*\((\d+) ms\))?", re.MULTILINE)


# Set when everything is to end.
STOPPED = threading.Event()


class Stopped(Exception):
    """The run was cut off; what it would have shown is unknown."""


@dataclass(frozen=True)
class Failure:
    test: str
    how: str


class TestRun:
    """One run of a program, watched test by test."""

    def __init__(self, path: Path, folder: Path, scratch: Path, test_filter):
        self.milliseconds = {}
        self.failed = []
        self.running = None
        self._since = time.monotonic()
        self._unread = ""
        self._output = scratch / "output.txt"
        with open(self._output, "wb") as output:
            self._process = subprocess.Popen(
                [*LIMITS, str(path), f"--gtest_filter={test_filter}", "--gtest_color=no"], cwd=folder, env=environment(scratch),
                stdout=output, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, start_new_session=True)

    def watch(self, limit_of):
        """Returns how the run ended: with `None`, or with the failure that was seen first."""
        try:
            with open(self._output, encoding="utf-8", errors="replace") as output:
                while self._process.poll() is None:
                    self._follow(output)
                    if STOPPED.is_set():
                        raise Stopped
                    if time.monotonic() - self._since > limit_of(self.running):
                        return Failure(self.running or "", "hangs")
                    time.sleep(0.02)
                self._follow(output)
        finally:
            self._end()
        if self._process.returncode == 0:
            return None
        return Failure(self.failed[0], "fails") if self.failed else Failure(self.running or "", "crashes")

    def _follow(self, output):
        complete, newline, self._unread = (self._unread + output.read()).rpartition("\n")
        for event, test, milliseconds in EVENT.findall(complete + newline):
            if event.startswith(" RUN"):
                self.running, self._since = test, time.monotonic()
            elif event.startswith("  FAILED"):
                self.failed.append(test)
            else:
                self.milliseconds[test] = int(milliseconds or 0)

    def _end(self):
        try:
            os.killpg(self._process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        self._process.wait()


def environment(scratch):
    """Away from the user's own files and desktop, whatever a changed program does."""
    private = {name: str(scratch / "home") for name in ("HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                                                         "XDG_STATE_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR")}
    (scratch / "home").mkdir(mode=0o700, exist_ok=True)
    kept = {name: value for name, value in os.environ.items()
            if name not in ("DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS")}
    return {**kept, **private, "GTEST_FAIL_FAST": "1"}


class TestProgram:
    """How a program's tests behave without any change."""

    def __init__(self, path: Path):
        self.path = path
        self.milliseconds = {}
        # Tests that pass by themselves only, and tests that fail in any case.
        self.unfit = []
        self.failing = []

    def measure(self, scratch, kept: Path):
        """Runs it once; what was found is kept in that file for as long as the program stays as it is."""
        built = self.path.stat().st_mtime_ns
        known = json.loads(kept.read_text()) if kept.exists() else {}
        if known.get("built") != built:
            known = {"built": built, **self._measured(scratch)}
            kept.write_text(json.dumps(known))
        self.milliseconds, self.unfit, self.failing = known["milliseconds"], known["unfit"], known["failing"]

    def _measured(self, scratch):
        milliseconds, failed = {}, []
        while True:
            run = TestRun(self.path, self.path.parent, scratch, filter_of(["*"], failed))
            failure = run.watch(longest)
            milliseconds.update(run.milliseconds)
            if failure is None:
                break
            failed.append(failure.test)
        failing = [test for test in failed if TestRun(self.path, self.path.parent, scratch, test).watch(longest)]
        unfit = [test for test in failed if test not in failing]
        return {"milliseconds": milliseconds, "unfit": unfit, "failing": failing}

    def slow_tests(self):
        return [test for test, milliseconds in self.milliseconds.items() if milliseconds > SLOW]

    def seconds(self):
        return sum(self.milliseconds.values()) / 1000

    def find_failure(self, changed: Path, scratch, wanted, unwanted=()):
        """The first of the wanted tests that fails in the changed program, by itself too."""
        unfit = [*unwanted, *self.unfit, *self.failing]
        while True:
            test_filter = filter_of(wanted, unfit)
            failure = TestRun(changed, self.path.parent, scratch, test_filter).watch(self._limit)
            if failure is None or failure.how == "hangs" or not failure.test:
                return failure
            alone = TestRun(changed, self.path.parent, scratch, failure.test).watch(self._limit)
            if alone:
                return alone
            unfit.append(failure.test)

    def find_failure_of_unfit(self, changed: Path, scratch):
        runs = (TestRun(changed, self.path.parent, scratch, test).watch(self._limit) for test in self.unfit)
        return next((failure for failure in runs if failure), None)

    def _limit(self, test):
        return max(SHORTEST_LIMIT, SLOWEST_FACTOR * self.milliseconds.get(test, 0) / 1000)


def longest(test):
    return LONGEST_TEST


def filter_of(wanted, unwanted):
    return ":".join(wanted) + ("-" + ":".join(unwanted) if unwanted else "")
