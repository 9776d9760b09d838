"""Without the pointer: from the opened popover through customers, profile and settings and back."""

import json
import subprocess

import pyatspi
from desktop import HOME, Program, main, read_json, wait_until
from gi.repository import GLib

PROFILE = HOME / ".local/share/Pennavo/profile.json"


def focused(desktop):
    nodes = desktop.all_visible(lambda node: node.getState().contains(pyatspi.STATE_FOCUSED))
    return nodes[-1].name if nodes else ""


def wait_for_sheet(desktop, title):
    """Until keys reach the sheet: it can be seen before it has them."""
    wait_until(lambda: desktop.all_visible(lambda node: node.name == title and node.getState().contains(pyatspi.STATE_ACTIVE)),
               f"the sheet {title!r} to be active")


def tab_to(desktop, name, key="Tab", most=40):
    """Presses the key until the control of that name has the focus; fails with the names passed on the way."""
    way = []
    for _ in range(most):
        if focused(desktop) == name:
            return
        desktop.press(key)
        way.append(focused(desktop))
    raise AssertionError(f"{name!r} is not reached with {key}, only {way}")


def choose_section(desktop, name):
    tab_to(desktop, name, "shift+Tab")
    desktop.press("space")


def keep_a_customer(desktop):
    tab_to(desktop, "Kunde")
    desktop.press("space")
    desktop.find("Keine Kunden vorhanden")
    tab_to(desktop, "Ersten Kunden anlegen")
    desktop.press("Return")
    desktop.find("Vorname")
    wait_until(lambda: focused(desktop) == "Vorname", "the form to start in its first field")
    desktop.type("Erika")
    desktop.press("Tab")
    desktop.type("Muster")
    tab_to(desktop, "Geschlecht")
    desktop.press("space")
    desktop.find("Frau")
    desktop.press("Up", "Return")
    tab_to(desktop, "Ort")
    desktop.type("Dresden")
    desktop.press("Return")
    customer = wait_until(lambda: read_json("customers.json"), "the customer in the file")[0]
    assert (customer["firstName"], customer["name"], customer["gender"], customer["city"]) == \
        ("Erika", "Muster", "w", "Dresden"), customer
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Kundenverwaltung"), "the customers to close")


class AnnouncedValues:
    """The new values a screen reader is told while this is open, by the control's name."""

    def __enter__(self):
        self.values = []
        pyatspi.Registry.registerEventListener(self.hear, "object:property-change:accessible-value")
        return self

    def __exit__(self, *_):
        pyatspi.Registry.deregisterEventListener(self.hear, "object:property-change:accessible-value")

    def hear(self, event):
        self.values.append((event.source.name, event.source.queryValue().currentValue))

    def heard(self):
        while GLib.MainContext.default().iteration(False):
            pass
        return self.values


def add_a_manual_entry(desktop):
    tab_to(desktop, "Rechnung")
    desktop.press("space")
    wait_for_sheet(desktop, "Rechnung erstellen: Standardprojekt")
    tab_to(desktop, "Stunden")
    hours = desktop.find("Stunden", pyatspi.ROLE_SPIN_BUTTON)
    with AnnouncedValues() as announced:
        desktop.type("1:30")
        desktop.press("Return")
        wait_until(lambda: announced.heard() == [("Stunden", 1), ("Minuten", 30)], "the screen reader to be told")
    assert (hours.queryValue().minimumValue, hours.queryValue().maximumValue) == (0, 23)
    assert hours.queryText().getText(0, -1) == "1h"
    desktop.press("Up")
    wait_until(lambda: hours.queryValue().currentValue == 2, "the arrow key to step")
    desktop.screenshot("keyboard-duration")
    tab_to(desktop, "Eintrag hinzufügen")
    desktop.press("space")
    entry = wait_until(lambda: read_json("projects.json")[0]["entries"], "the entry in the file")[0]
    assert entry["endTime"] - entry["startTime"] == 2.5 * 3600, entry
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Rechnung erstellen: Standardprojekt"), "the invoice to close")


def fill_in_profile(desktop):
    choose_section(desktop, "Profil")
    desktop.find("Firmenlogo")
    tab_to(desktop, "Firma")
    desktop.type("Atelier")
    tab_to(desktop, "BIC")
    desktop.type("COBADEFFXXX")
    wait_until(lambda: json.loads(PROFILE.read_text(encoding="utf-8"))["bic"] == "COBADEFFXXX", "the profile's file")
    assert json.loads(PROFILE.read_text(encoding="utf-8"))["companyName"] == "Atelier"
    desktop.screenshot("keyboard-profile")


def choose_dark(desktop):
    choose_section(desktop, "Einstellungen")
    desktop.find("Archiv anzeigen")
    tab_to(desktop, "Farbschema")
    desktop.press("space")
    desktop.find("Dunkel")
    desktop.press("Down", "Return")
    wait_until(lambda: read_json("app_settings.json")["colorScheme"] == "Dunkel", "the settings' file")
    tab_to(desktop, "Rechnungsrundung")
    desktop.screenshot("keyboard-settings")
    tab_to(desktop, "Archiv anzeigen", "shift+Tab")
    desktop.press("space")
    wait_for_sheet(desktop, "Archivierte Rechnungen")
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Archivierte Rechnungen"), "the archive to close")


def journey(path, desktop):
    Program(path)
    desktop.wait_for_icon()
    assert subprocess.run([path], timeout=10).returncode == 0  # a second start opens the popover
    wait_until(desktop.popover_is_open, "the popover")
    wait_until(lambda: focused(desktop) == "Aufgabe eingeben", "the focus in the task's name")
    keep_a_customer(desktop)
    add_a_manual_entry(desktop)
    fill_in_profile(desktop)
    choose_dark(desktop)
    choose_section(desktop, "Zeiterfassung")
    desktop.find("Aufgabe eingeben")
    desktop.screenshot("keyboard-back")
    desktop.press("Escape")
    wait_until(lambda: not desktop.popover_is_open(), "Escape to close the popover")


main(journey)
