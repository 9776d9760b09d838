"""What a screen reader is given: the program's tree, read afresh each time and without a cache, and its announcements."""

import time
from dataclasses import dataclass, field

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

PREFIX = "org.a11y.atspi."
ROOT = "/org/a11y/atspi/accessible/root"
STATES = {int(value): value.value_nick for value in Atspi.StateType.__enum_values__.values()}
ROLES = {int(value): value.value_nick for value in Atspi.Role.__enum_values__.values()}


@dataclass
class Node:
    """One thing of the tree as it was when the tree was read."""

    path: str
    parent: "Node | None" = None
    role: str = ""
    name: str = ""
    states: frozenset = frozenset()
    interfaces: frozenset = frozenset()
    box: tuple = (0, 0, 0, 0)
    actions: tuple = ()
    text: str | None = None
    value: float | None = None
    children: list = field(default_factory=list)

    def has(self, state):
        return state in self.states

    def all(self):
        yield self
        for child in self.children:
            yield from child.all()

    def ancestors(self):
        above = self.parent
        while above is not None:
            yield above
            above = above.parent

    def middle(self):
        x, y, width, height = self.box
        return x + width // 2, y + height // 2

    def __str__(self):
        return f"{self.role} {self.name!r}"

    def way(self):
        """The named things above it and itself, from the window down."""
        named = [str(node) for node in self.ancestors() if node.name and node.role != "application"]
        return " / ".join([*reversed(named), str(self)])


class Bus:
    """A connection of our own to the accessibility bus."""

    def __init__(self):
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                    Gio.DBusCallFlags.NONE, 5000, None).unpack()[0]
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self.events = []
        self.lasting = {}
        self.leaves = set()  # what has had nothing in it, until more is announced
        self.listen()

    def listen(self):
        for kind in ("object:", "window:", "focus:"):
            self.call((PREFIX + "Registry", "/org/a11y/atspi/registry"), "Registry", "RegisterEvent", "(sass)", kind, [], "")
        self.connection.signal_subscribe(None, None, None, None, None, Gio.DBusSignalFlags.NONE, self.keep_event)

    def keep_event(self, _connection, sender, path, interface, signal, parameters):
        if interface.startswith(PREFIX + "Event."):
            detail, first, *_ = parameters.unpack()
            self.events.append((path, signal, detail, first))
            if signal == "ChildrenChanged":
                self.leaves.discard((sender, path))

    def call(self, target, interface, method, signature="()", *arguments):
        parameters = GLib.Variant(signature, arguments)
        return self.connection.call_sync(*target, PREFIX + interface, method, parameters, None, Gio.DBusCallFlags.NONE, 5000,
                                         None).unpack()

    def ask_all(self, questions):
        """Sends all calls at once; an answer is None where there was an error."""
        answers = [None] * len(questions)
        left = len(questions)

        def take(connection, result, index):
            nonlocal left
            left -= 1
            try:
                answers[index] = connection.call_finish(result).unpack()
            except GLib.Error:
                pass  # it is gone already

        for index, (target, interface, method, parameters) in enumerate(questions):
            self.connection.call(*target, interface, method, parameters, None, Gio.DBusCallFlags.NONE, 5000, None, take, index)
        while left:
            GLib.MainContext.default().iteration(True)
        return answers

    def pump(self):
        while GLib.MainContext.default().iteration(False):
            pass


def property_of(name, interface="Accessible"):
    return ("org.freedesktop.DBus.Properties", "Get", GLib.Variant("(ss)", (PREFIX + interface, name)))


def method(name, interface="Accessible", parameters=None):
    return (PREFIX + interface, name, parameters)


CHANGING = [property_of("Name"), method("GetState")]
CHILDREN = [method("GetChildren")]
LASTING = [method("GetRole"), method("GetInterfaces")]  # for as long as the thing exists
PLACES = [method("GetExtents", "Component", GLib.Variant("(u)", (0,)))]
# Things that seldom have others in them, so that they are not asked each time.
LEAVES = {"check-box", "heading", "icon", "image", "label", "link", "list-item", "menu-item", "page-tab", "push-button",
          "radio-button", "spin-button", "static", "text", "toggle-button"}
SPECIAL = {"Action": method("GetActions", "Action"), "Text": method("GetText", "Text", GLib.Variant("(ii)", (0, -1))),
           "Value": property_of("CurrentValue", "Value")}


def application(bus, name="brisklog"):
    """Where the program is on the bus, or None."""
    applications = bus.call((PREFIX + "Registry", ROOT), "Accessible", "GetChildren")[0]
    names = bus.ask_all([(target, *property_of("Name")) for target in applications])
    return next((target[0] for target, answer in zip(applications, names) if answer and answer[0] == name), None)


def states_of(words):
    bits = words[0] | words[1] << 32
    return frozenset(nick for number, nick in STATES.items() if bits >> number & 1)


def ask_level(bus, service, level, questions):
    answers = bus.ask_all([((service, node.path), *question) for node in level for question in questions])
    count = len(questions)
    return zip(level, (answers[index * count:(index + 1) * count] for index in range(len(level))))


def read_lasting(bus, service, level):
    new = [node for node in level if (service, node.path) not in bus.lasting]
    for node, (role, interfaces) in ask_level(bus, service, new, LASTING):
        if role and interfaces:
            names = frozenset(each.removeprefix(PREFIX) for each in interfaces[0])
            bus.lasting[service, node.path] = ROLES.get(role[0], str(role[0])), names
    for node in level:
        node.role, node.interfaces = bus.lasting.get((service, node.path), ("", frozenset()))


def read_level(bus, service, level):
    """Fills in what there is to know about these things; returns those below them, of which a hidden thing has none."""
    read_lasting(bus, service, level)
    for node, (name, states, box) in ask_level(bus, service, level, CHANGING + PLACES):
        if not name or not states:
            node.role = ""  # it is gone already
            continue
        node.name, node.states, node.box = name[0], states_of(states[0]), tuple(box[0]) if box else (0, 0, 0, 0)
    return read_children(bus, service, [node for node in level if node.role == "application" or node.has("visible")])


def read_children(bus, service, nodes):
    below = []
    for node, (children,) in ask_level(bus, service, [node for node in nodes if (service, node.path) not in bus.leaves], CHILDREN):
        if children and children[0]:
            node.children = [Node(path, node) for _, path in children[0]]
            below += node.children
        elif node.role in LEAVES:
            bus.leaves.add((service, node.path))
    return below


def read_details(bus, service, nodes):
    questions = [(node, kind) for node in nodes for kind in SPECIAL if kind in node.interfaces]
    answers = bus.ask_all([((service, node.path), *SPECIAL[kind]) for node, kind in questions])
    for (node, kind), answer in zip(questions, answers):
        if answer is None:
            continue
        if kind == "Action":
            node.actions = tuple(action[0] for action in answer[0])
        elif kind == "Text":
            node.text = answer[0]
        else:
            node.value = answer[0]


def read_tree(bus, service, details=True):
    """The visible part of the program's tree; without details there are neither actions nor texts nor values."""
    root = Node(ROOT)
    level = [root]
    while level:
        level = read_level(bus, service, level)
    for node in list(root.all()):
        node.children = [child for child in node.children if child.role and child.has("visible")]
    if details:
        read_details(bus, service, list(root.all()))
    return root
