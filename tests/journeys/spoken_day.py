"""A working day without a screen: by keyboard, with Orca, and what it says is what one needs to know."""

import subprocess
import time

from accessibility_home import DAY, write_home
from accessible import Bus, application, read_tree
from desktop import Program, main, wait_until
from screen_reader import ScreenReader

MOST = 20
KEYS = {"Tab": "Tab", "shift+Tab": "Umschalt Tab"}


class Day:
    """Hands on the keyboard, ears on Orca."""

    def __init__(self, path, desktop):
        self.path, self.desktop = path, desktop
        self.bus = Bus()
        self.orca = ScreenReader()

    def focus(self):
        """The name of what has the focus."""
        tree = read_tree(self.bus, application(self.bus))
        active = [node for node in tree.all() if node.has("active")]
        return [node.name for node in active[-1].all() if node.has("focused")][-1]

    def hear(self, what, deed, *expected):
        self.orca.listen(what, deed, *expected)

    def press(self, key, what, *expected):
        self.hear(what, lambda: self.desktop.press(key), *expected)

    def type(self, text):
        self.desktop.type(text)

    def go_to(self, name, *expected, key="Tab"):
        """Presses the key until the control of that name has the focus; what the last press brings is listened to."""
        way = []
        while len(way) < MOST:
            before = self.focus()
            self.orca.mark()
            self.desktop.press(key)
            wait_until(lambda: self.focus() != before, f"{key} to move the focus from {before!r}", 4)
            way.append(self.focus())
            if way[-1].startswith(name):
                self.orca.note(f"{KEYS[key]} bis „{name}“", *(expected or [name]))
                return
        raise AssertionError(f"{name!r} is not reached with {key}, only {way}")


def open_popover(day):
    Program(day.path, BRISKLOG_REDUCED_MOTION="1")
    wait_until(lambda: application(day.bus), "the program on the accessibility bus")
    day.hear("Brisklog öffnen", lambda: subprocess.run([day.path], check=True, timeout=20), "Brisklog", "Aufgabe eingeben")


def new_project(day):
    day.go_to("Neues Projekt", key="shift+Tab")
    day.press("space", "Leertaste", "Neues Projekt erstellen", "Projektname")
    day.type("Praxis")
    day.press("Tab", "„Praxis“, Tab", "Stundensatz")
    day.type("80")
    day.press("Return", "„80“, Eingabetaste", "Neues Projekt")


def time_a_task(day):
    day.go_to("Aufgabe eingeben")
    day.type("Angebot schreiben")
    day.press("Return", "„Angebot schreiben“, Eingabetaste", "Timer gestartet: Angebot schreiben")
    day.go_to("Pausieren")
    day.press("space", "Leertaste", "Timer pausiert: Angebot schreiben")
    day.press("space", "Leertaste", "Timer fortgesetzt: Angebot schreiben")
    day.go_to("Stoppen")
    day.press("space", "Leertaste", "Timer gestoppt: Angebot schreiben")


def back_to_the_other_project(day):
    day.go_to("Praxis", "Praxis", key="shift+Tab")
    day.press("Left", "Pfeil links", "Laden")
    day.go_to("Startseite entwerfen", "85,50")


def first_row():
    """The invoice's newest entry begins with the day it was written."""
    return time.strftime("%d.%m.%y", time.localtime(time.time() - DAY))


def write_invoice(day):
    day.go_to("Rechnung", key="shift+Tab")
    day.press("space", "Leertaste", "Rechnung erstellen: Laden", "Kunde auswählen", "Bitte auswählen")
    day.press("Down", "Pfeil runter", "Muster - Muster GmbH")
    day.go_to("Rechnungsnummer:")
    day.type("2026-010")
    day.go_to(first_row(), "Startseite entwerfen")


def tick_rows(day):
    day.press("space", "Leertaste")
    day.press("Down", "Pfeil runter", "Telefonat")
    day.press("space", "Leertaste")


def create_invoice(day):
    day.press("ctrl+Return", "Strg Eingabetaste", "Rechnung 2026-010 erstellt")
    day.press("Escape", "Escape", "Rechnung erstellen: Laden")
    day.press("Escape", "Escape", "Brisklog")


def change_the_scheme(day):
    day.go_to("Einstellungen", key="shift+Tab")
    day.press("space", "Leertaste")
    day.go_to("Farbschema", "Farbschema", "Hell")
    day.press("Down", "Pfeil runter", "Dunkel")


def choose_a_broken_logo(day):
    day.go_to("Einstellungen", key="shift+Tab")
    day.press("Left", "Pfeil links", "Profil")
    day.press("space", "Leertaste")
    day.go_to("Logo auswählen")
    day.press("space", "Leertaste", "Logo auswählen", "Ältere")
    day.press("End", "Ende", "kaputt.jpg")
    day.press("Return", "Eingabetaste", "Konnte das Bild nicht laden")


def journey(path, desktop):
    write_home("one", "Hell")
    day = Day(path, desktop)
    try:
        for part in (open_popover, new_project, time_a_task, back_to_the_other_project, write_invoice, tick_rows, create_invoice,
                     change_the_scheme, choose_a_broken_logo):
            part(day)
    finally:
        day.orca.write(desktop.results / "spoken-day.txt")
        day.orca.end()


main(journey)
