"""The walk through screens as they are given to screen readers: controls say what they are, their actions do what a click
does, changes are announced, and the focus can be seen."""

from accessibility_actions import Comparison, Idle
from accessibility_controls import check_controls
from accessibility_program import Walked
from accessibility_rings import Tour

SCHEMES = ("Hell", "Dunkel")


class Findings:
    """Each fault once, however many screens show it."""

    def __init__(self):
        self.known = set()

    def add(self, where, pairs):
        for node, fault in pairs:
            if (node.way(), fault) not in self.known:
                self.known.add((node.way(), fault))
                print(f"{where}: {node.way()}: {fault}", flush=True)


def walk_screen(walked, screen, findings, ringed):
    where = f"{screen.name}, {walked.scheme}"
    walked.visit(screen)
    findings.add(where, check_controls(walked.scope()))
    findings.add(where, Tour(walked, ringed).go())


def walk(path, screens):
    """What a control does is the same in both colour schemes, so it is tried in the first only."""
    findings, known, idle = Findings(), set(), Idle()
    for scheme in SCHEMES:
        walked, ringed = Walked(path, scheme), set()
        for screen in screens:
            walk_screen(walked, screen, findings, ringed)
            if scheme == SCHEMES[0]:
                findings.add(screen.name, Comparison(walked, screen, idle, known).go())
        walked.end()
    findings.add("everywhere", idle.findings())
    print(f"accessibility: {len(findings.known)} findings on {len(screens)} screens")
    assert not findings.known
