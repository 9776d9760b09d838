"""A user who clicks and types at random: no crash, no hang, nothing on standard error, and files that can be read.

usage: monkey.py PROGRAM RESULTS SECONDS SEED    (tests/monkey/run calls it on a virtual desktop)"""

import json
import random
import subprocess
import sys
import time
from pathlib import Path

from desktop import DOCUMENTS, HOME, command

KEYS = ["Tab", "Tab", "Tab", "shift+Tab", "Return", "Return", "Escape", "space", "Up", "Down", "Left", "Right", "Home", "End",
        "Prior", "Next", "Delete", "BackSpace", "ctrl+a", "ctrl+c", "ctrl+v", "ctrl+z", "ctrl+Return", "alt+F4"]
TEXTS = ["Entwurf", "85,50", "1e3", "-5", "Größe", "…", "x" * 60, "a/b", "..", "%s", "<b>fett</b>", "2026-11-21", " ", "äöüß€"]
SEED_FILES = {"projects.json": [{"id": "6F2A4B1C-8D3E-4F50-9A61-7B82C3D4E5F6", "name": "Website", "hourlyRate": 85.5, "entries": [
    {"id": f"00000000-0000-4000-8000-{n:012X}", "taskName": f"Aufgabe {n}", "startTime": 8.16e8 + n * 7200,
     "endTime": 8.16e8 + n * 7200 + 3600, "projectId": "6F2A4B1C-8D3E-4F50-9A61-7B82C3D4E5F6", "isInvoiced": False}
    for n in range(40)]}]}


class Monkey:
    def __init__(self, path, seconds, seed):
        self.path = path
        self.end = time.monotonic() + seconds
        self.random = random.Random(seed)
        self.gestures = self.starts = 0
        self.errors = open(HOME / "errors.txt", "a+b")
        self.process = None

    def start(self):
        self.starts += 1
        self.process = subprocess.Popen([self.path], stdout=subprocess.DEVNULL, stderr=self.errors)
        time.sleep(1.5)

    def windows(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "brisklog"], capture_output=True, text=True)
        return found.stdout.split()

    def place(self):
        """Somewhere in one of the program's windows; sometimes just beside, sometimes on the icon."""
        windows = self.windows()
        if not windows or self.random.random() < 0.02:
            return 1266, 14
        shell = subprocess.run(["xdotool", "getwindowgeometry", "--shell", self.random.choice(windows)], capture_output=True,
                               text=True).stdout
        box = dict(line.split("=") for line in shell.split())
        if "WIDTH" not in box:
            return 640, 450
        return (int(box["X"]) + self.random.randrange(-3, int(box["WIDTH"]) + 3),
                int(box["Y"]) + self.random.randrange(-3, int(box["HEIGHT"]) + 3))

    def clicks(self):
        words = []
        for _ in range(self.random.randrange(1, 4)):
            x, y = self.place()
            words += ["mousemove", str(max(x, 0)), str(max(y, 0))]
            kind = self.random.random()
            if kind < 0.75:
                words += ["click", "1"]
            elif kind < 0.85:
                words += ["click", "--repeat", "2", "--delay", "20", "1"]
            elif kind < 0.9:
                words += ["click", "3"]
            else:
                words += ["click", "--repeat", "5", "--delay", "5", self.random.choice(["4", "5"])]
        command("xdotool", *words)

    def keys(self):
        command("xdotool", "key", "--delay", "5", *self.random.choices(KEYS, k=self.random.randrange(1, 6)))

    def text(self):
        command("xdotool", "type", "--delay", "2", "--", self.random.choice(TEXTS))

    def gesture(self):
        self.random.choices([self.clicks, self.keys, self.text], weights=[6, 3, 2])[0]()
        self.gestures += 1

    def check_alive(self):
        """The program may have been asked to quit; then it must have exited successfully, and is started again."""
        if self.process.poll() is not None:
            assert self.process.returncode == 0, f"ended with {self.process.returncode}"
            self.start()

    def check_answers(self):
        """A second start makes the running program answer and open its popover."""
        subprocess.run([self.path], stdout=subprocess.DEVNULL, stderr=self.errors, timeout=10, check=True)

    def check_files(self):
        for file in [*DOCUMENTS.glob("*.json"), *HOME.glob(".local/share/*/*.json")]:
            json.loads(file.read_text(encoding="utf-8"))

    def run(self):
        self.start()
        while time.monotonic() < self.end:
            for _ in range(25):
                self.gesture()
            self.check_alive()
            self.check_answers()
            self.check_files()
            self.errors.seek(0)
            said = self.errors.read().decode(errors="replace")
            assert not said, f"on standard error: {said}"
        self.process.terminate()
        self.process.wait()


def main():
    path, results, seconds, seed = sys.argv[1], Path(sys.argv[2]), float(sys.argv[3]), int(sys.argv[4])
    DOCUMENTS.mkdir(parents=True, exist_ok=True)
    for name, content in SEED_FILES.items():
        (DOCUMENTS / name).write_text(json.dumps(content), encoding="utf-8")
    monkey = Monkey(path, seconds, seed)
    try:
        monkey.run()
    except BaseException:
        command("import", "-window", "root", str(results / "monkey-failed.png"))
        print(f"monkey: failed after {monkey.gestures} gestures with seed {seed}", file=sys.stderr)
        raise
    finally:
        if monkey.process.poll() is None:
            monkey.process.kill()
    print(f"monkey: {monkey.gestures} gestures in {seconds:.0f} s with seed {seed}, {monkey.starts} starts, nothing went wrong")


main()
