"""What the offered actions do, compared with a click on the same thing, and whether each change is announced."""

import time

from accessibility_controls import CONTAINER_ROLES, controls
from accessibility_program import scope_in
from accessibility_states import WATCHED, Outcome, State, timeless
from desktop import wait_until

CALM = 0.1  # seconds in which nothing is painted or announced
NOTHING = 0.3  # seconds after which nothing is to be expected any more
MANY = {"list-item", "push-button", "table-cell"}


class Comparison:
    """Carries out the actions of one screen's controls and clicks on them."""

    def __init__(self, walked, screen, idle, known):
        self.walked, self.screen, self.idle, self.known = walked, screen, idle, known
        self.first = None  # the state in which every visit begins
        self.reacting, self.heard = [], []
        self.begin = None  # the state before the next deed, once things are scrolled; None when it is lost

    def rest(self, before):
        """The state once nothing moves any more."""
        start = time.monotonic()
        while True:
            self.walked.come_to_rest(CALM)
            self.heard += self.walked.hear()
            state = State(self.walked)
            if state != before or time.monotonic() - start >= NOTHING:
                return state

    def as_at_first(self):
        self.walked.hear()
        state = State(self.walked)
        return state if state == self.first else None

    def arrive(self):
        """To the screen as it was at the beginning."""
        self.walked.visit(self.screen)
        self.first = self.first or self.rest(None)
        self.begin = wait_until(self.as_at_first, f"{self.screen.name!r} as it was")

    def find(self, key):
        scope = scope_in(self.begin.tree)
        return next((node for node, each in keyed(scope.all()) if each == key), None) if scope else None

    def reach(self, key):
        """The control, scrolled into view, on the screen that is otherwise as it was at the beginning."""
        node = self.find(key) if self.begin else None
        if node is None:
            self.arrive()
            node = self.find(key)
            assert node, f"{key} is not on the screen {self.screen.name!r}"
        if self.walked.outside(node):
            self.walked.scrolled_to(node)
            self.begin = self.rest(None)
            node = self.find(key)
        self.heard = []
        return node

    def changed(self):
        """What has become different since the control was reached, and what was announced meanwhile."""
        after = self.rest(self.begin)
        return Outcome(self.begin, after, self.heard + self.walked.heard())

    def watch(self, key, deed):
        """What the deed changes. Then Escape closes what has been opened; if that is not enough, the screen will be shown
        anew."""
        deed(self.reach(key))
        outcome = self.changed()
        before, after = self.begin, outcome.after
        if set(after.windows()) - set(before.windows()):
            self.walked.hands.press("Escape")
            after = self.rest(after)
        self.begin = after if after == before else None
        return outcome

    def act(self, action):
        return lambda node: self.walked.act(node, action)

    def steps(self, key):
        """Up and down again, since neither may be possible at both ends."""
        node = self.reach(key)
        self.walked.act(node, "Increase")
        up, before = self.changed(), self.begin
        self.walked.act(node, "Decrease")
        down = self.rest(up.after)
        self.begin = down if down == before else None
        yield from up.silent_changes()
        if not up.changed():
            yield "offers 'Increase', which changes nothing"
        elif down == up.after:
            yield "offers 'Decrease', which changes nothing"

    def compare(self, key, node):
        """What is wrong with the actions of one control."""
        if "Increase" in node.actions:
            yield from self.steps(key)
        done = {action: self.watch(key, self.act(action)) for action in deeds(node)}
        click = self.watch(key, self.walked.click)
        for action, outcome in done.items():
            self.idle.judge(key, node, action, outcome)
        yield from judge(node, done, click)

    def focus_each(self):
        """Where the focus is does not count as a difference, so nothing has to be undone."""
        focused = None  # a list that gets the focus passes it on to its current row
        for node, key in chosen(keyed(controls(scope_in(self.begin.tree)))):
            if "SetFocus" in node.actions and not node.has("focused") and (key, "SetFocus") not in self.known:
                self.known.add((key, "SetFocus"))
                moves = self.walked.focus_moves()
                if node.path == (moves or [focused])[-1]:
                    continue
                self.walked.act(node, "SetFocus")
                moves = self.walked.focus_moves()
                if node.path not in moves:
                    yield node, "offers 'SetFocus', which does not give it the focus, or without an event"
                focused = (moves or [focused])[-1]
        self.begin = self.rest(None)  # it may have scrolled

    def click_the_rest(self):
        """What offers no action must not react to a click, neither a text nor what lies between, unless a control is under
        it, as under a focus ring."""
        scope = scope_in(self.begin.tree)
        boxes = [node.box for node in controls(scope) if node.role not in CONTAINER_ROLES and not node.has("active")]
        left = [key for node, key in keyed(scope.all()) if is_quiet(node) and (key, "click") not in self.known and
                not any(is_inside(node.middle(), box) for box in boxes)]
        self.known.update((key, "click") for key in left)
        while left:
            self.reach(left[0])
            visible = {key for node, key in keyed(scope_in(self.begin.tree).all()) if not self.walked.outside(node)}
            yield from self.click_all([key for key in left if key in visible])
            left = [key for key in left[1:] if key not in visible]

    def click_all(self, keys):
        """Halves the things that were clicked on until those that react are found."""
        if not keys:
            return
        self.reach(keys[0])
        nodes = [node for node, key in keyed(scope_in(self.begin.tree).all()) if key in set(keys)]
        for node in nodes:
            self.walked.hands.click(node.middle())
        after = self.rest(self.begin)
        if after == self.begin:
            self.begin = after
            return
        change, self.begin = Outcome(self.begin, after, []).difference(self.begin), None
        if len(keys) == 1:
            self.reacting.append(keys[0])
            if self.reacting.count(keys[0]) == 2:
                yield nodes[0], f"a click changes something, but no action is offered: {change}"
            else:
                yield from self.click_all(keys)
        else:
            yield from self.click_all(keys[:len(keys) // 2])
            yield from self.click_all(keys[len(keys) // 2:])

    def go(self):
        """Pairs of a control and what is wrong with it; it must be seen twice, because the machine may have been busy."""
        self.arrive()
        yield from self.focus_each()
        yield from self.click_the_rest()
        if self.begin is None:
            self.arrive()
        for node, key in list(chosen(keyed(controls(scope_in(self.begin.tree))))):
            if key in self.known or not node.has("enabled") or not deeds(node) and "Increase" not in node.actions:
                continue
            faults = set(self.compare(key, node))
            if faults:
                faults &= set(self.compare(key, node))
            if not self.idle.has(key):
                self.known.add(key)
            for fault in sorted(faults):
                yield node, fault


class Idle:
    """Actions that have not changed anything yet: some, as starting a timer without a name, do so only on other screens."""

    def __init__(self):
        self.waiting, self.useful = {}, set()

    def judge(self, key, node, action, outcome):
        stays = node.role in ("page-tab", "radio-button") and node.states & {"selected", "checked"}
        if outcome.changed() or stays:
            self.useful.add((key, action))
            self.waiting.pop((key, action), None)
        elif (key, action) not in self.useful:
            self.waiting[key, action] = node

    def has(self, key):
        return any(each == key for each, _ in self.waiting)

    def findings(self):
        for (_, action), node in self.waiting.items():
            yield node, f"offers {action!r}, which changes nothing"


def deeds(node):
    return [action for action in node.actions if action not in ("SetFocus", "Increase", "Decrease")]


def is_inside(place, box):
    return box[0] <= place[0] < box[0] + box[2] and box[1] <= place[1] < box[1] + box[3]


def is_quiet(node):
    """Neither a control nor part of one, and somewhere on the screen, unlike the messages of a status bar."""
    return (node.has("showing") and not node.children and not node.has("active") and not deeds(node) and
            "Increase" not in node.actions and node.role not in CONTAINER_ROLES and min(node.box[2:]) > 0 and
            node.role not in ("status-bar", "notification") and
            not any(deeds(above) or above.role in CONTAINER_ROLES for above in node.ancestors()))


def keyed(nodes):
    """Things with what they can be found by again."""
    seen = {}
    for node in nodes:
        way = timeless(node.way())
        seen[way] = seen.get(way, 0) + 1
        yield node, (way, seen[way])


def chosen(pairs, most=2):
    """Of many alike side by side, such as the days of a month, a few are enough."""
    counts = {}
    for node, key in pairs:
        alike = (node.parent.path, node.role, node.actions, node.states & WATCHED)
        counts[alike] = counts.get(alike, 0) + 1
        if counts[alike] <= most or node.role not in MANY or not any(figure.isdigit() for figure in node.name):
            yield node, key


def judge(node, done, click):
    """Compares what the actions did with what a click did."""
    for outcome in (*done.values(), click):
        yield from outcome.silent_changes()
    if not click.changed():
        if any(outcome.changed() for outcome in done.values()):
            yield "an action changes something, but a click nothing"
    elif done and click.after not in [outcome.after for outcome in done.values()]:
        yield f"a click does not do what the action does: {click.difference(next(iter(done.values())).after)}"
