"""What each control tells about itself: name, role, state and value."""

from collections import defaultdict

CONTROL_ROLES = {"push-button", "toggle-button", "check-box", "radio-button", "combo-box", "text", "entry", "password-text",
                 "spin-button", "slider", "page-tab", "list-item", "menu-item", "check-menu-item", "radio-menu-item", "link",
                 "table-cell", "tree-item", "date-editor", "push-button-menu"}
# They have the focus only on behalf of what is in them, or to be scrolled.
CONTAINER_ROLES = {"list", "list-box", "menu", "popup-menu", "scroll-pane", "table", "tree", "page-tab-list", "tool-bar",
                   "calendar"}

# What looks and works like one thing is called that.
EXPECTED = {
    "page-tab": ("Dashboard", "Zeiterfassung", "Profil", "Einstellungen", "Laden", "Beratung", "Standardprojekt",
                 "Auto-Tracking"),
    "spin-button": ("Stunden", "Minuten", "Datum:"),
    "combo-box": ("Farbschema", "Zeitrundung", "Rechnungsrundung", "Geschlecht", "Kunde auswählen"),
    "link": ("Website", "Mail"),
}
# Roles that things of these names have wrongly; a menu's rows and a field may be called the same.
CONFUSED = {"push-button", "check-box", "toggle-button", "radio-button", "slider"}


def is_control(node):
    return node.has("focusable") or bool(node.actions) or node.role in CONTROL_ROLES


def controls(scope):
    return [node for node in scope.all() if node.has("showing") and is_control(node)]


def value_is_told(node):
    """A picker tells its choice as text, as value or by the row that is selected in it."""
    if node.role == "combo-box":
        return bool(node.text) or any(child.has("selected") for child in node.all()) or any(
            child.text for child in node.all())
    if node.role in ("spin-button", "slider"):
        return node.value is not None and bool(node.text or node.role == "slider")
    return node.role != "text" or node.text is not None


def is_scrolled(node):
    """An area that takes the focus to be scrolled: Qt 6.4's bridge has no scroll pane among its roles."""
    return node.role == "panel" and node.actions == ("SetFocus",) and bool(node.children)


def takes_keys(node):
    """A window that has the focus itself, as the calendar: its name says where in it one is, and is announced."""
    return node.role == "dialog" and node.has("focusable") and node.has("active")


def faults_of(node):
    if not node.name:
        yield "has no name"
    if node.role not in CONTROL_ROLES | CONTAINER_ROLES and not is_scrolled(node) and not takes_keys(node):
        yield f"can be used, but its role is {node.role}"
    if not value_is_told(node):
        yield "does not tell its value"
    for role, names in EXPECTED.items():
        if node.name in names and node.role in CONFUSED:
            yield f"its role is {node.role}, not {role}"


def groups_of(node):
    return tuple(above.name for above in node.ancestors() if above.name)


def twins(nodes):
    """Controls that cannot be told apart: the same role, the same name, in groups of the same names."""
    alike = defaultdict(list)
    for node in nodes:
        if node.name and node.role in CONTROL_ROLES:
            alike[node.role, node.name, groups_of(node)].append(node)
    return [same for same in alike.values() if len(same) > 1]


def check_one_of_a_row(nodes):
    """Among tabs one is the selected one, and it says so."""
    rows = defaultdict(list)
    for node in nodes:
        if node.role == "page-tab":
            rows[node.parent.path].append(node)
    for tabs in rows.values():
        if sum(tab.has("selected") for tab in tabs) != 1:
            yield tabs[0], "none or several of the tabs beside it are selected"


def check_controls(scope):
    """Pairs of a control and what is wrong with it."""
    nodes = controls(scope)
    for node in nodes:
        for fault in faults_of(node):
            yield node, fault
    for same in twins(nodes):
        yield same[0], f"{len(same)} of this name, and no group tells them apart"
    yield from check_one_of_a_row(nodes)
