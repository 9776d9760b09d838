"""Every screen of the program and the way to it from the opened popover."""

from dataclasses import dataclass


@dataclass(frozen=True)
class Screen:
    """A way is a list of steps: a name is pressed, `key:` is followed by keys and `type:` by text; after `until:` comes a
    text that is on the screen then."""

    name: str
    home: str
    way: tuple = ()


def timers(*steps):
    """Two timers, of which the first found is paused."""
    return ("type:Angebot", "key:Return", "until:Angebot", "emptied:Aufgabe eingeben", "type:Anruf", "key:Return", "until:Anruf",
            "emptied:Aufgabe eingeben", "press:Pausieren", "until:Fortsetzen", *steps)


INVOICE = ("press:Rechnung", "until:Rechnung erstellen: Laden")
PROFILE = ("press:Profil", "until:Kontaktdaten")
SETTINGS = ("press:Einstellungen", "until:Farbschema")
CUSTOMERS = ("press:Kunde", "until:Kundenverwaltung")
TRACKING = ("press:Auto-Tracking", "until:Inaktiv")
ARCHIVE = (*SETTINGS, "press:Archiv anzeigen", "until:Archivierte Rechnungen")

SCREENS = [
    Screen("first start", "empty", ("type:Entwurf",)),
    Screen("no project", "none"),
    Screen("project", "one"),
    Screen("timers", "one", timers()),
    Screen("several projects", "three"),
    Screen("many projects", "many"),
    Screen("project menu", "many", ("press:Alle Projekte", "until:Projekt 9")),
    Screen("new project", "one", ("press:Neues Projekt", "until:Neues Projekt erstellen", "type:Praxis")),
    Screen("project settings", "three", ("press:Projekteinstellungen", "until:Projekt löschen")),
    Screen("alert: project", "three", ("press:Projekteinstellungen", "press:Projekt löschen", "until:Projekt löschen?")),
    Screen("alert: entries", "one", ("press:Alle Einträge löschen", "until:Alle Einträge löschen?")),
    Screen("alert: all data", "one", ("press:Alle Daten zurücksetzen", "until:Alle Daten löschen?")),
    Screen("dashboard without work", "empty", ("press:Dashboard", "until:Arbeitszeitübersicht")),
    Screen("dashboard", "three", ("press:Dashboard", "until:Arbeitszeitübersicht")),
    Screen("dashboard with timers", "one", timers("press:Dashboard", "until:Arbeitszeitübersicht")),
    Screen("tracking", "one", TRACKING),
    Screen("tracking switched on", "one", (*TRACKING, "press:Automatische Zeiterfassung", "until:Aktiv - *")),
    Screen("alert: usage", "one", (*TRACKING, "press:Daten löschen", "until:Löschen")),
    Screen("day", "one", (*TRACKING, "press:*, mit Daten", "until:Editor*", "press:Gesamtzeit*")),
    Screen("settings", "one", SETTINGS),
    Screen("colour scheme", "one", (*SETTINGS, "press:Farbschema", "until:Dunkel")),
    Screen("time rounding", "one", (*SETTINGS, "press:Zeitrundung", "until:15 Minuten")),
    Screen("invoice rounding", "one", (*SETTINGS, "press:Rechnungsrundung", "until:Abrunden")),
    Screen("empty archive", "empty", ARCHIVE),
    Screen("archive", "one", ARCHIVE),
    Screen("archived invoice", "one", (*ARCHIVE, "press:2026-002, Jäger", "until:Betrag:")),
    Screen("alert: archived", "one", (*ARCHIVE, "press:2026-002, Jäger", "until:Betrag:", "press:Rechnung löschen",
                                      "until:Löschen")),
    Screen("profile without logo", "empty", PROFILE),
    Screen("profile", "one", PROFILE),
    Screen("logo picker", "one", (*PROFILE, "press:Logo auswählen", "until:Bild2.png")),
    Screen("no customers", "empty", (*CUSTOMERS, "until:Keine Kunden vorhanden")),
    Screen("customers", "one", CUSTOMERS),
    Screen("new customer", "one", (*CUSTOMERS, "press:Neuer Kunde", "until:Vorname")),
    Screen("customer", "one", (*CUSTOMERS, "press:Herr Jan*", "until:Vorname")),
    Screen("gender", "one", (*CUSTOMERS, "press:Neuer Kunde", "until:Vorname", "press:Geschlecht", "until:Frau")),
    Screen("alert: customer", "one", (*CUSTOMERS, "press:Herr Jan*", "until:Vorname", "press:Löschen", "until:Kunden löschen?")),
    Screen("invoice without records", "empty", ("press:Rechnung", "until:Rechnung erstellen: *")),
    Screen("invoice", "one", INVOICE),
    Screen("invoice, all ticked", "one", (*INVOICE, "press:Alle auswählen", "press:Kunde auswählen", "press:Muster - Muster GmbH",
                                          "until:Kundeninformationen:")),
    Screen("invoice: customers", "one", (*INVOICE, "press:Kunde auswählen", "until:Muster - Muster GmbH")),
    Screen("invoice: saved notes", "one", (*INVOICE, "press:Gespeicherte Notizen", "until:Skonto")),
    Screen("invoice: save note", "one", (*INVOICE, "press:Zusätzliche Hinweise", "type:Danke", "press:Speichern",
                                         "until:Notiz speichern")),
    Screen("invoice: note", "one", (*INVOICE, "press:Gespeicherte Notizen", "press:Skonto", "until:Zusätzliche Hinweise")),
    Screen("invoice: month", "one", (*INVOICE, "calendar:Datum:", "until:*20??")),
]

# Without a panel that shows the icon.
WINDOW_SCREENS = [
    Screen("window", "one", ("type:Entwurf",)),
    Screen("quit question", "one", timers("press:Beenden", "until:Brisklog beenden?")),
]
