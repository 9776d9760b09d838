"""Every screen as it is given to screen readers, in light and in dark: controls say what they are, their actions do what a
click does, changes are announced, and the focus can be seen."""

import sys
import time

from accessibility_actions import Comparison, Idle
from accessibility_controls import check_controls
from accessibility_program import Walked
from accessibility_rings import Tour
from accessibility_screens import SCREENS
from desktop import main


class Findings:
    """Each fault once, however many screens show it."""

    def __init__(self):
        self.known = set()

    def add(self, where, pairs):
        for node, fault in pairs:
            if (node.way(), fault) not in self.known:
                self.known.add((node.way(), fault))
                print(f"{where}: {node.way()}: {fault}", flush=True)


def walk(walked, findings, screens):
    ringed, known, idle = set(), set(), Idle()
    for screen in screens:
        begin = time.monotonic()
        where = f"{screen.name}, {walked.scheme}"
        walked.visit(screen)
        findings.add(where, check_controls(walked.scope()))
        findings.add(where, Tour(walked, ringed).go())
        if walked.scheme == "Hell":
            findings.add(where, Comparison(walked, screen, idle, known).go())
            print(f"    {where}: {time.monotonic() - begin:.1f} s", file=sys.stderr)
    findings.add(f"everywhere, {walked.scheme}", idle.findings())


def journey(path, desktop):
    findings = Findings()
    for scheme in ("Hell", "Dunkel"):
        walked = Walked(path, desktop, scheme)
        walk(walked, findings, SCREENS)
        walked.end()
    print(f"accessibility: {len(findings.known)} findings on {len(SCREENS)} screens")
    assert not findings.known


main(journey)
