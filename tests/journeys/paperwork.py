"""Everything around an invoice: who sends it, who gets it, what was sent before, and the report."""

import json
import re
import subprocess
import time

import pyatspi
from desktop import DOCUMENTS, HOME, Program, command, main, read_json, wait_until

PROFILE = HOME / ".local/share/Pennavo/profile.json"
LOGO = HOME / ".local/share/Pennavo/userLogo.png"
PICTURES = HOME / "Pictures"
BEGIN = 816422400.0  # 15 November 2026, 08:00 UTC

FIELDS = {
    "Firma": ("companyName", "Schäfer Entwürfe"), "Name": ("fullName", "Jürgen Schäfer"),
    "Adresse": ("address", "Königsstraße 27 a"), "PLZ": ("postalCode", "80331"), "Telefon": ("phone", "+49 89 123456-78"),
    "Steuernummer": ("taxId", "143/815/08155"), "Finanzamt": ("taxOffice", "München Abt. III"),
    "USt-IdNr.": ("vatId", "DE123456789"), "Bank": ("bankName", "Münchner Sparbank eG"),
    "IBAN": ("iban", "DE89 3704 0044 0532 0130 00"), "BIC": ("bic", "COBADEFFXXX"),
}


def write_history():
    DOCUMENTS.mkdir(exist_ok=True)
    project = {"id": "5C0E4A44-2B1D-4B0E-9C39-0D5B0B6F0001", "name": "Web/Shop: 50 %", "hourlyRate": 85.5, "entries": [
        {"id": f"5C0E4A44-2B1D-4B0E-9C39-0D5B0B6F1{index:03d}", "taskName": task, "isInvoiced": False,
         "startTime": BEGIN + index * 7200, "endTime": BEGIN + index * 7200 + 5400}
        for index, task in enumerate(["Startseite entwerfen", "Telefonat", "Fehler beheben"])]}
    (DOCUMENTS / "projects.json").write_text(json.dumps([project]), encoding="utf-8")


def write_pictures():
    (PICTURES / "Ältere").mkdir(parents=True)
    for name, size in (("Bild10.png", "800x800"), ("Bild2.png", "1600x400")):
        command("convert", "-size", size, "gradient:#2A57CE-#F1A74B", str(PICTURES / name))
    (PICTURES / "kaputt.jpg").write_text("kein Bild", encoding="utf-8")
    (PICTURES / "Notizen.txt").write_text("kein Bild", encoding="utf-8")


def give_focus(desktop, name, role):
    """Focuses the first control of that name, which also scrolls it into view."""
    node = desktop.all_anywhere(name, role)[0]
    node.queryComponent().grabFocus()
    wait_until(lambda: node.getState().contains(pyatspi.STATE_FOCUSED), f"the focus in {name}")
    return node


def fill_in(desktop, field, text):
    """Types over whatever the field holds."""
    node = give_focus(desktop, field, pyatspi.ROLE_TEXT)
    desktop.press("ctrl+a")
    if text.isascii():
        desktop.type(text)
    else:  # the X server has no keys for these; the accessibility interface sets the whole text
        node.queryEditableText().setTextContents(text)


def open_logo_picker(desktop):
    give_focus(desktop, "Logo auswählen", pyatspi.ROLE_PUSH_BUTTON)
    desktop.press("space")
    wait_until(lambda: desktop.windows("Logo auswählen"), "the picker's window")
    desktop.find("Bild2.png")


def fill_in_profile(desktop):
    desktop.press_named("Profil")
    desktop.find("Kein Logo")
    desktop.screenshot("31-profile-empty")
    for field, (key, text) in FIELDS.items():
        fill_in(desktop, field, text)
        wait_until(lambda key=key, text=text: json.loads(PROFILE.read_text(encoding="utf-8"))[key] == text,
                   f"{field} in the profile's file")
    give_focus(desktop, "PLZ", pyatspi.ROLE_TEXT)
    desktop.press("Tab")  # the two share a label
    desktop.type("Berlin")
    wait_until(lambda: json.loads(PROFILE.read_text(encoding="utf-8"))["city"] == "Berlin", "the city")
    desktop.screenshot("32-profile-filled")


def choose_logo(desktop):
    open_logo_picker(desktop)
    desktop.screenshot("33-logo-picker")
    tiles = [name for name in desktop.names() if name in ("Ältere", "Bild2.png", "Bild10.png", "kaputt.jpg", "Notizen.txt")]
    assert tiles == ["Ältere", "Bild2.png", "Bild10.png", "kaputt.jpg"], tiles
    desktop.press_named("kaputt.jpg")
    desktop.find("Konnte das Bild nicht laden")
    desktop.screenshot("34-logo-picker-broken")
    desktop.press_named("Bild2.png")
    wait_until(lambda: not desktop.windows("Logo auswählen"), "the picker to close")
    wait_until(LOGO.exists, "the logo's file")
    assert command("identify", "-format", "%wx%h %m", str(LOGO)) == "800x200 PNG"
    if not desktop.popover_is_open():
        desktop.open_popover()
    wait_until(lambda: not desktop.is_there("Kein Logo"), "the logo on the profile's screen")
    desktop.screenshot("35-profile-with-logo")


def new_customer(desktop, number, first_name, name, gender, company):
    desktop.find("Neuer Kunde")
    fill_in(desktop, "Vorname", first_name)
    fill_in(desktop, "Nachname", name)
    fill_in(desktop, "Firma", company)
    fill_in(desktop, "Straße und Hausnummer", "Lange Straße 1")
    fill_in(desktop, "PLZ", "01099")
    fill_in(desktop, "Ort", "Dresden")
    desktop.press_named("Geschlecht")
    desktop.press_named(gender)
    desktop.screenshot(f"37-customer-{number}")
    desktop.press_named("Hinzufügen")
    wait_until(lambda: len(read_json("customers.json")) == number, "the customer in the file")


def keep_customers(desktop):
    desktop.press_named("Zeiterfassung")
    desktop.press_named("Kunde")
    desktop.find("Keine Kunden vorhanden")
    desktop.screenshot("36-customers-empty")
    desktop.press_named("Ersten Kunden anlegen")
    new_customer(desktop, 1, "Erika", "Muster", "Frau", "Muster & Töchter GmbH")
    desktop.press_named("Neuer Kunde")
    new_customer(desktop, 2, "", "Jäger", "Herr", "")
    desktop.find("Kundenverwaltung")
    desktop.screenshot("38-customers")
    assert [c["gender"] for c in read_json("customers.json")] == ["w", "m"]
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Kundenverwaltung"), "the customers to close")


def write_invoice(desktop):
    desktop.press_named("Rechnung")
    desktop.find("Rechnung erstellen: Web/Shop: 50 %")
    desktop.press_named("Kunde auswählen")
    desktop.press_named("Muster - Muster & Töchter GmbH")
    desktop.find("Kundeninformationen:")
    desktop.press_named("Alle auswählen")
    desktop.press_named("Rechnungsnummer:", pyatspi.ROLE_TEXT)
    desktop.type("2026-007")
    desktop.screenshot("39-invoice")
    desktop.press("ctrl+Return")
    desktop.find("Rechnung als PDF exportieren")
    desktop.screenshot("40-invoice-panel")
    desktop.press("Return")
    pdf = wait_until(lambda: list(HOME.rglob("Rechnung_*.pdf")), "the document")[0]
    wait_until(lambda: pdf.stat().st_size > 0, "the document's bytes")
    assert "/" not in pdf.name and pdf.parent in (HOME, DOCUMENTS), pdf
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Rechnung erstellen: Web/Shop: 50 %"), "the sheet to close")
    return pdf


def text_of(desktop, pdf, name):
    command("qpdf", "--check", str(pdf))
    command("pdftoppm", "-r", "110", "-png", str(pdf), str(desktop.results / name))
    (desktop.results / f"{name}.pdf").write_bytes(pdf.read_bytes())
    return command("pdftotext", "-layout", str(pdf), "-").replace("\u00a0", " ")


def check_invoice(desktop, pdf):
    text = text_of(desktop, pdf, "invoice-for-customer")
    for piece in ["Jürgen Schäfer", "Erika Muster", "Muster & Töchter GmbH", "Lange Straße 1", "01099 Dresden",
                  "Rechnungsnummer: 2026-007", "Sehr geehrte Frau Muster,", "384,75 €", "DE89 3704 0044 0532 0130 00"]:
        assert piece in text, f"{piece!r} is missing in:\n{text}"
    assert "image" in command("pdfimages", "-list", str(pdf)), "the logo is on the page"


def export_report(desktop):
    desktop.press_named("PDF Export")
    desktop.find("Web/Shop: 50 % als PDF exportieren")
    desktop.screenshot("41-report-panel")
    before = set(HOME.rglob("*.pdf"))
    desktop.press("Return")
    pdf = wait_until(lambda: set(HOME.rglob("*.pdf")) - before, "the report").pop()
    wait_until(lambda: pdf.stat().st_size > 0, "the report's bytes")
    assert pdf.parent in (HOME, DOCUMENTS), pdf
    text = text_of(desktop, pdf, "report")
    for piece in ["Web/Shop: 50 %", "Startseite entwerfen", "Telefonat", "Fehler beheben", "384,75 €"]:
        assert piece in text, f"{piece!r} is missing in:\n{text}"


def look_into_archive(desktop):
    desktop.press_named("Einstellungen")
    desktop.screenshot("42-settings")
    open_archive(desktop)
    row = next(name for name in desktop.names() if name.startswith("2026-007, Muster"))
    assert "4 h 30 min" in row.replace("\u00a0", " ") and "384,75" in row, row
    desktop.screenshot("43-archive")
    desktop.press("Escape")


def open_archive(desktop):
    desktop.press_named("Archiv anzeigen", pyatspi.ROLE_PUSH_BUTTON)
    desktop.press_named("2026-007, Muster - Muster & Töchter GmbH")
    wait_until(lambda: any("384,75" in name for name in desktop.names()), "the invoice's details")


def choose_dark(desktop):
    desktop.press_named("Farbschema")
    desktop.press_named("Dunkel")
    wait_until(lambda: read_json("app_settings.json")["colorScheme"] == "Dunkel", "the settings' file")
    desktop.screenshot("50-dark-settings")


def look_at_it_in_dark(desktop):
    open_archive(desktop)
    desktop.screenshot("51-dark-archive")
    desktop.press("Escape")
    desktop.press_named("Dashboard")
    desktop.screenshot("52-dark-dashboard")
    desktop.press_named("Profil")
    desktop.screenshot("53-dark-profile")
    open_logo_picker(desktop)
    desktop.screenshot("54-dark-logo-picker")
    desktop.press("Escape")
    wait_until(lambda: not desktop.windows("Logo auswählen"), "the picker to close")
    if not desktop.popover_is_open():
        desktop.open_popover()
    desktop.press_named("Zeiterfassung")
    desktop.press_named("Kunde")
    desktop.find("Kundenverwaltung")
    desktop.screenshot("55-dark-customers")
    desktop.press_named("Neuer Kunde")
    desktop.find("Vorname")
    desktop.screenshot("56-dark-customer")


def journey(path, desktop):
    write_history()
    write_pictures()
    Program(path)
    desktop.wait_for_icon()
    desktop.open_popover()
    fill_in_profile(desktop)
    choose_logo(desktop)
    keep_customers(desktop)
    check_invoice(desktop, write_invoice(desktop))
    export_report(desktop)
    look_into_archive(desktop)
    choose_dark(desktop)
    look_at_it_in_dark(desktop)


main(journey)
