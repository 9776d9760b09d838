"""Orca on the current desktop: what it says, in German, as it hands it over to the speech synthesis."""

import json
import os
import re
import subprocess
import time
from pathlib import Path

from desktop import HOME, wait_until

SPOKEN = re.compile(r"SPEECH OUTPUT: '(.*?)' ?[{[]", re.DOTALL)
SETTINGS = HOME / ".local/share/orca/user-settings.conf"
CALM = 0.4  # seconds without a word


class ScreenReader:
    """One run of Orca. Keys are not echoed; nothing else differs from how Orca comes."""

    def __init__(self):
        chosen = {"enableKeyEcho": False, "enableBraille": False}
        SETTINGS.parent.mkdir(parents=True, exist_ok=True)
        SETTINGS.write_text(json.dumps({"general": chosen, "profiles": {"default": {"profile": ["Default", "default"], **chosen}},
                                        "pronunciations": {}, "keybindings": {}}), encoding="utf-8")
        self.log = HOME / "orca.log"
        self.heard = 0
        self.protocol = []
        self.process = subprocess.Popen(["/usr/bin/python3", Path(__file__).with_name("orca_beside.py"), self.log],
                                        env={**os.environ, "LANGUAGE": "de"}, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: "Bildschirmleser an." in self.all(), "Orca to be ready", 30)

    def all(self):
        """Everything said so far."""
        return SPOKEN.findall(self.log.read_text(encoding="utf-8", errors="replace"))

    def listen(self, what, deed, *expected):
        """What is said after the deed; each expected text must be among it, in this order."""
        self.mark()
        deed()
        self.note(what, *expected)

    def mark(self):
        """What was said until now is of no interest."""
        self.heard = len(self.all())

    def note(self, what, *expected):
        """Waits for the expected texts and for silence, and keeps all that was said since the mark."""
        try:
            wait_until(lambda: self.follow_each_other(expected), "it to be said", 8)
        except AssertionError:
            raise AssertionError(f"{expected} should be said after {what!r}, not {self.new()}") from None
        count, since = len(self.all()), time.monotonic()
        while time.monotonic() - since < CALM:
            time.sleep(0.05)
            if len(self.all()) != count:
                count, since = len(self.all()), time.monotonic()
        self.protocol.append((what, self.new()))

    def new(self):
        return self.all()[self.heard:]

    def follow_each_other(self, expected):
        rest = iter(self.new())
        return all(any(text in said for said in rest) for text in expected)

    def write(self, path):
        """The protocol for people: what was done, and indented what was said."""
        lines = []
        for what, said in self.protocol:
            lines += [what, *(f"    {' '.join(text.split())}" for text in said), ""]
        path.write_text("\n".join(lines), encoding="utf-8")

    def end(self):
        self.process.kill()  # asked to end, it may wait for an answer of the program
        self.process.wait()
