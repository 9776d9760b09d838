"""A working day under a panel with status icons: projects, timers, a restart, an invoice, a crash."""

import json
import random
import re
import subprocess
import time

import pyatspi
from desktop import DOCUMENTS, HOME, Program, command, main, read_json, wait_until

ENTRY_KEYS = {"id", "taskName", "startTime", "endTime", "projectId", "isInvoiced"}
UUID = re.compile(r"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$")
REFERENCE = 978307200


def project_named(name):
    return next((p for p in read_json("projects.json") if p["name"] == name), None)


def entries():
    return project_named("Website")["entries"]


def first_start(desktop):
    desktop.wait_for_icon()
    desktop.screenshot("01-icon")
    desktop.open_popover()
    desktop.find("Standardprojekt")
    desktop.screenshot("02-first-start")
    assert not DOCUMENTS.exists() or not list(DOCUMENTS.glob("*.json")), "a first start writes no file"


def new_project(desktop):
    desktop.press_named("Neues Projekt")
    desktop.find("Neues Projekt erstellen")
    desktop.type("Website")
    desktop.press("Tab")
    desktop.type("85,50")
    desktop.screenshot("03-new-project")
    desktop.press_named("Erstellen")
    wait_until(lambda: project_named("Website"), "the project in its file")
    assert project_named("Website")["hourlyRate"] == 85.5
    assert [p["name"] for p in read_json("projects.json")] == ["Standardprojekt", "Website"]
    wait_until(lambda: not desktop.is_there("Neues Projekt erstellen"), "the sheet to close")


def blanks_start_nothing(desktop):
    before = (DOCUMENTS / "projects.json").stat().st_mtime_ns
    desktop.press_named("Aufgabe eingeben")
    desktop.type("   ")
    desktop.press("Return")
    time.sleep(0.6)
    assert (DOCUMENTS / "projects.json").stat().st_mtime_ns == before, "blanks must start nothing"
    desktop.press("ctrl+a", "Delete")


def start_timer(desktop, task):
    desktop.press_named("Aufgabe eingeben")
    desktop.type(task)
    desktop.press("Return")
    desktop.find(task)
    time.sleep(0.5)  # the field is emptied 0.3 seconds later


def two_timers(desktop):
    started = time.time()
    start_timer(desktop, "Startseite entwerfen")
    start_timer(desktop, "Telefonat")
    assert entries() == [], "a running timer is no entry"
    time.sleep(1.2)
    desktop.screenshot("04-two-timers")
    desktop.press_named("Pausieren")  # of the timer found last, which is the phone call
    desktop.find("Fortsetzen")
    desktop.screenshot("05-paused")
    desktop.press_named("Fortsetzen")
    wait_until(lambda: not desktop.is_there("Fortsetzen"), "the timer to run again")
    desktop.press_named("Stoppen")
    wait_until(lambda: len(entries()) == 1, "the first entry")
    desktop.press_named("Stoppen")
    wait_until(lambda: len(entries()) == 2, "the second entry")
    desktop.screenshot("06-entries")
    check_entries(started)


def check_entries(started):
    website = project_named("Website")
    assert [e["taskName"] for e in website["entries"]] == ["Telefonat", "Startseite entwerfen"]
    for entry in website["entries"]:
        assert set(entry) == ENTRY_KEYS, entry
        assert UUID.match(entry["id"]) and entry["projectId"] == website["id"]
        assert entry["isInvoiced"] is False
        assert isinstance(entry["startTime"], float) and isinstance(entry["endTime"], float)
        assert started - 1 <= entry["startTime"] + REFERENCE <= entry["endTime"] + REFERENCE <= time.time() + 1
    assert len({e["id"] for e in website["entries"]}) == 2
    text = (DOCUMENTS / "projects.json").read_text(encoding="utf-8")
    assert "\n" in text and "null" not in text


def quit_with_running_timer(desktop, program):
    start_timer(desktop, "Noch schnell")
    desktop.click_icon(button=3)
    time.sleep(0.5)
    desktop.screenshot("07-menu")
    desktop.press("Down", "Down", "Return")
    desktop.find("Laufende Timer gehen beim Beenden verloren.")
    desktop.screenshot("08-quit-question")
    desktop.press_named("Abbrechen")
    wait_until(lambda: not desktop.is_there("Laufende Timer gehen beim Beenden verloren."), "the question to close")
    assert program.is_running()
    if not desktop.popover_is_open():
        desktop.open_popover()
    desktop.press_named("Stoppen")
    wait_until(lambda: len(entries()) == 3, "the third entry")
    desktop.click_icon(button=3)
    time.sleep(0.5)
    desktop.press("Down", "Down", "Return")
    assert program.wait_for_end() == 0


def make_long_entries():
    """Stretches the recorded seconds to the hours that a real day would have left in the file."""
    projects = read_json("projects.json")
    begin = 816422400.0  # 15 November 2026, 08:00 UTC
    for project in projects:
        for index, entry in enumerate(project["entries"]):
            entry["startTime"] = begin + index * 7200
            entry["endTime"] = entry["startTime"] + 5400 + index * 600
    (DOCUMENTS / "projects.json").write_text(json.dumps(projects), encoding="utf-8")


def restart(desktop):
    desktop.wait_for_icon()
    desktop.open_popover()
    desktop.press_named("Website")
    for task in ("Telefonat", "Startseite entwerfen", "Noch schnell"):
        wait_until(lambda task=task: any(task in name for name in desktop.names()), f"the entry {task} after a restart")
    desktop.screenshot("09-after-restart")


def open_invoice(desktop):
    desktop.press_named("Rechnung")
    desktop.find("Rechnung erstellen: Website")


def close_sheet(desktop):
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Rechnung erstellen: Website"), "the sheet to close")


def fill_in_invoice(desktop, number):
    desktop.press_named("Alle auswählen")
    desktop.press_named("Rechnungsnummer:", pyatspi.ROLE_TEXT)
    desktop.type(number)


def cancelled_invoice(desktop):
    open_invoice(desktop)
    desktop.screenshot("10-invoice-empty")
    fill_in_invoice(desktop, "2026-001")
    desktop.screenshot("11-invoice-filled")
    desktop.press("ctrl+Return")
    desktop.find("Rechnung als PDF exportieren")
    desktop.screenshot("12-save-panel")
    archive = wait_until(lambda: read_json("archivedInvoices.json"), "the archive, before the panel is answered")
    assert [invoice["invoiceNumber"] for invoice in archive] == ["2026-001"]
    assert "customerName" not in archive[0]
    assert set(archive[0]["entryIDs"]) == {e["id"] for e in entries()}
    assert all(e["isInvoiced"] for e in entries()), "the entries are marked before the panel is answered"
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Rechnung als PDF exportieren"), "the panel to close")
    assert not list(HOME.rglob("*.pdf"))
    desktop.screenshot("13-invoiced")
    close_sheet(desktop)


def saved_invoice(desktop):
    open_invoice(desktop)
    fill_in_invoice(desktop, "2026-002")
    desktop.press("ctrl+Return")
    desktop.find("Rechnung als PDF exportieren")
    desktop.press("Return")
    pdf = wait_until(lambda: list(HOME.rglob("Rechnung_Website_*.pdf")), "the document")[0]
    wait_until(lambda: pdf.stat().st_size > 0, "the document's bytes")
    today = time.strftime("%Y-%m-%d")
    assert pdf.name == f"Rechnung_Website_{today}.pdf", pdf.name
    assert len(read_json("archivedInvoices.json")) == 2
    close_sheet(desktop)
    return pdf


def words_of(pdf):
    """Every word with the left, top, right and bottom of its box in points from the page's top left."""
    boxes = command("pdftotext", "-bbox", str(pdf), "-")
    pattern = r'<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">(.*?)</word>'
    return [(word, *map(float, box)) for *box, word in re.findall(pattern, boxes)]


def check_document(desktop, pdf):
    command("qpdf", "--check", str(pdf))
    information = command("pdfinfo", str(pdf))
    assert re.search(r"Creator:\s+Pennavo\n", information), information
    assert re.search(r"Author:\s+Jürgen Schäfer\n", information), information
    assert "595 x 842 pts" in information and re.search(r"Pages:\s+1\n", information)
    text = command("pdftotext", "-layout", str(pdf), "-").replace("\u00a0", " ")
    amounts = [(e["endTime"] - e["startTime"]) / 3600 * 85.5 for e in entries()]
    expected = ["Jürgen Schäfer", "80331 München", "Rechnungsnummer: 2026-002", "Rechnungsdatum:", "Zahlbar bis:",
                "Sehr geehrte Damen und Herren,", "vielen Dank für Ihren Auftrag und Ihr Vertrauen.", "Beschreibung",
                "Dauer", "Stundensatz", "Betrag", "Telefonat", "Startseite entwerfen", "Noch schnell", "1 h 30 min",
                "85,50 €", "Gesamtbetrag:", german(sum(amounts)), "Mit freundlichen Grüßen",
                "Steuernummer: 143/815/08155", *map(german, amounts)]
    for piece in expected:
        assert piece in text, f"{piece!r} is missing in:\n{text}"
    check_positions(words_of(pdf))
    command("pdftoppm", "-r", "110", "-png", str(pdf), str(desktop.results / "invoice-page"))
    (desktop.results / pdf.name).write_bytes(pdf.read_bytes())


def german(amount):
    return f"{amount:,.2f}".replace(",", "x").replace(".", ",").replace("x", ".") + " €"


def check_positions(words):
    def left(word):
        return next(w[1] for w in words if w[0] == word)

    def right(word, nth=0):
        return [w[3] for w in words if w[0] == word][nth]

    content = 495
    assert abs(left("Rechnung") - 50) < 0.5 + 1, "side bearing of the title's first letter included"
    assert abs(left("Beschreibung") - 50) < 1.5
    assert abs(left("Rechnungsnummer:") - (50 + content * 0.67)) < 1.5
    # Figures and their headings are right-aligned in their columns.
    assert abs(right("Dauer") - (50 + content * 0.65)) < 1
    assert abs(right("Stundensatz") - (50 + content * 0.80)) < 1
    assert abs(right("Betrag") - (50 + content * 0.95)) < 1


def write_profile():
    folder = HOME / ".local/share/Pennavo"
    folder.mkdir(parents=True, exist_ok=True)
    profile = dict.fromkeys(["companyName", "fullName", "address", "postalCode", "city", "country", "phone", "email",
                             "website", "taxId", "vatId", "taxOffice", "bankName", "iban", "bic"], "")
    profile |= {"fullName": "Jürgen Schäfer", "address": "Königsstraße 27 a", "postalCode": "80331",
                "city": "München", "country": "Deutschland", "phone": "+49 89 123456-78",
                "email": "juergen@schaefer.example", "taxId": "143/815/08155", "taxOffice": "München Abt. III",
                "bankName": "Münchner Sparbank eG", "iban": "DE89 3704 0044 0532 0130 00", "bic": "COBADEFFXXX",
                "logoPositionX": 50.0, "logoPositionY": 50.0, "logoWidth": 200.0, "logoHeight": 100.0}
    (folder / "profile.json").write_text(json.dumps(profile), encoding="utf-8")


def choose_dark_scheme():
    (DOCUMENTS / "app_settings.json").write_text(json.dumps(
        {"colorScheme": "Dunkel", "launchAtStartup": False, "startMinimized": False, "openLastProject": True,
         "timeRounding": "15 Minuten", "invoiceRounding": "Aufrunden"}), encoding="utf-8")


def look_at_it_in_dark(desktop):
    desktop.wait_for_icon()
    desktop.open_popover()
    desktop.screenshot("20-dark-first")
    desktop.press_named("Website")
    start_timer(desktop, "Startseite anpassen")
    start_timer(desktop, "Fehler beheben")
    desktop.press_named("Pausieren")
    desktop.screenshot("21-dark-timers")
    desktop.press_named("Neues Projekt")
    desktop.find("Neues Projekt erstellen")
    desktop.screenshot("22-dark-new-project")
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Neues Projekt erstellen"), "the sheet to close")
    desktop.press_named("Projekteinstellungen")
    desktop.find("Projekt löschen")
    desktop.screenshot("23-dark-project-settings")
    desktop.press_named("Projekt löschen")
    desktop.find("Projekt löschen?")
    desktop.screenshot("24-dark-alert")
    desktop.press("Escape")
    wait_until(lambda: not desktop.is_there("Projekt löschen?"), "the alert to close")
    desktop.press("Escape")
    open_invoice(desktop)
    fill_in_invoice(desktop, "2026-003")
    desktop.screenshot("25-dark-invoice")
    close_sheet(desktop)
    desktop.press_named("Kunde")
    desktop.find("Kundenverwaltung")
    desktop.screenshot("26-dark-customers")
    desktop.press("Escape")
    for section in ("Dashboard", "Profil", "Einstellungen"):
        desktop.press_named(section)
        desktop.screenshot(f"27-dark-{section.lower()}")


def second_start_opens_the_popover(desktop, program, path):
    desktop.press("Escape")
    wait_until(lambda: not desktop.popover_is_open(), "the popover to close")
    assert subprocess.run([path], timeout=10).returncode == 0
    wait_until(desktop.popover_is_open, "the second start to open the first one's popover")
    assert program.is_running()


def killed_during_saves(desktop, path, kills=8):
    """Every start of a timer rewrites the projects file: a kill at any moment must leave one that can be read."""
    torn = 0
    for _ in range(kills):
        program = Program(path)
        desktop.wait_for_icon()
        desktop.open_popover()
        desktop.press_named("Aufgabe eingeben")
        typing = subprocess.Popen(["xdotool", "key", "--delay", "60", *(["x", "Return"] * 20)])
        time.sleep(random.uniform(0.2, 1.5))
        program.kill()
        typing.kill()
        typing.wait()
        try:
            read_json("projects.json")
        except ValueError:
            torn += 1
    print(f"killed during saves: {kills} kills, {torn} torn files")
    assert torn == 0


def journey(path, desktop):
    write_profile()
    program = Program(path)
    first_start(desktop)
    new_project(desktop)
    blanks_start_nothing(desktop)
    two_timers(desktop)
    quit_with_running_timer(desktop, program)

    make_long_entries()
    program = Program(path)
    restart(desktop)
    cancelled_invoice(desktop)
    check_document(desktop, saved_invoice(desktop))
    program.kill()

    choose_dark_scheme()
    program = Program(path)
    look_at_it_in_dark(desktop)
    second_start_opens_the_popover(desktop, program, path)
    program.kill()

    killed_during_saves(desktop, path)
    for file in DOCUMENTS.glob("*.json"):
        (desktop.results / file.name).write_bytes(file.read_bytes())


main(journey)
