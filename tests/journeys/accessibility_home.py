"""The files the walk through the accessibility interface begins with: a freelancer's records, or none."""

import json
import os
import shutil
import sqlite3
import subprocess
import time
from functools import lru_cache

from desktop import DOCUMENTS, HOME

REFERENCE = 978307200  # 1 January 2001, from which times in the files count
NOW = time.time() - REFERENCE
DAY = 86400
PROFILE = HOME / ".local/share/Pennavo"
PICTURES = HOME / "Pictures"
DEFAULTS = HOME / ".config/brisklog/defaults.sqlite"
OUTPUT = HOME / "output.txt"
# What the program would have shown in the browser.
OPENED = HOME / "opened.txt"
OPENER = HOME / ".kept/bin/xdg-open"

TASKS = ["Startseite entwerfen", "Telefonat", "Fehler beheben", "Texte einpflegen", "Abnahme"]


def identifier(group, number):
    return f"5C0E4A44-2B1D-4B0E-{group:04X}-{number:012X}"


def project(number, name, tasks=()):
    entries = [{"id": identifier(number, index), "taskName": task, "isInvoiced": index == 4,
                "startTime": NOW - (index + 1) * DAY, "endTime": NOW - (index + 1) * DAY + 3600 * (index + 1)}
               for index, task in enumerate(tasks)]
    return {"id": identifier(0xF000, number), "name": name, "hourlyRate": 85.5, "entries": entries}


def customer(number, first_name, name, gender, company):
    return {"id": identifier(0xA000, number), "firstName": first_name, "name": name, "gender": gender, "company": company,
            "address": f"Lange Straße {number}", "postalCode": "01099", "city": "Dresden", "email": f"k{number}@beispiel.example",
            "phone": "", "taxId": ""}


def invoice(number, days, customer_name):
    return {"id": identifier(0xB000, number), "invoiceNumber": f"2026-00{number}", "date": NOW - days * DAY,
            "customerName": customer_name, "entryIDs": [identifier(1, 4)]}


def usage():
    begin = NOW - NOW % 3600 - 2 * 3600
    midnight = time.mktime((*time.localtime()[:3], 0, 0, 0, 0, 0, -1)) - REFERENCE
    sessions = [{"id": identifier(0xC000, number), "appName": name, "bundleIdentifier": name.lower(),
                 "startTime": begin + number, "endTime": begin + number + 1800}
                for number, name in enumerate(("Editor", "Browser"))]
    return [{"id": identifier(0xC001, 0), "date": midnight, "sessions": sessions}]


def write(path, content):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(json.dumps(content), encoding="utf-8")


# The tables of the user defaults, as the program makes them.
TABLES = """
CREATE TABLE value (id INTEGER PRIMARY KEY, key TEXT NOT NULL UNIQUE, type INTEGER NOT NULL, size INTEGER NOT NULL, content);
CREATE TABLE chunk (place INTEGER PRIMARY KEY, bytes BLOB NOT NULL, piece INTEGER);
CREATE INDEX chunkPiece ON chunk (piece) WHERE piece IS NOT NULL;
CREATE TABLE piece (id INTEGER PRIMARY KEY, hash INTEGER NOT NULL, bytes BLOB NOT NULL);
CREATE INDEX pieceHash ON piece (hash);
PRAGMA user_version = 2;
"""


def write_usage():
    """The tracker's history, as one value of the user defaults."""
    data = json.dumps(usage(), separators=(",", ":")).encode()
    DEFAULTS.parent.mkdir(parents=True, exist_ok=True)
    database = sqlite3.connect(DEFAULTS)
    database.executescript(TABLES)
    database.execute("INSERT INTO value (id, key, type, size) VALUES (1, 'autoTrackingData', 4, ?)", (len(data),))
    database.execute("INSERT INTO chunk (place, bytes) VALUES (?, ?)", (1 << 40, data))
    database.commit()
    database.close()


def write_settings(scheme):
    write(DOCUMENTS / "app_settings.json", {"colorScheme": scheme, "launchAtStartup": False, "startMinimized": False,
                                            "openLastProject": True, "timeRounding": "5 Minuten", "invoiceRounding": "Aufrunden"})


def write_records(projects):
    write(DOCUMENTS / "projects.json", projects)
    write(DOCUMENTS / "customers.json", [customer(1, "Erika", "Muster", "w", "Muster GmbH"), customer(2, "Jan", "Jäger", "m", "")])
    write(DOCUMENTS / "savedNotes.json", [{"id": identifier(0xD000, n), "name": name, "content": f"{name}: wie besprochen."}
                                          for n, name in enumerate(("Skonto", "Dank"))])
    write(DOCUMENTS / "archivedInvoices.json", [invoice(1, 40, "Muster - Muster GmbH"), invoice(2, 5, "Jäger")])
    texts = ["companyName", "fullName", "address", "postalCode", "city", "country", "phone", "email", "website", "taxId", "vatId",
             "taxOffice", "bankName", "iban", "bic"]
    write(PROFILE / "profile.json", {**{key: key.title() for key in texts}, "logoPositionX": 50.0, "logoPositionY": 50.0,
                                     "logoWidth": 200.0, "logoHeight": 100.0})
    draw(PROFILE / "userLogo.png")


@lru_cache(None)
def picture():
    words = ["convert", "-size", "200x100", "gradient:#2A57CE-#F1A74B", "png:-"]
    return subprocess.run(words, check=True, capture_output=True).stdout


def draw(path):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(picture())


def write_pictures():
    (PICTURES / "Ältere").mkdir(parents=True, exist_ok=True)
    for name in ("Bild1.png", "Bild2.png"):
        draw(PICTURES / name)
    (PICTURES / "kaputt.jpg").write_text("kein Bild", encoding="utf-8")


HOMES = {
    "empty": None,
    "none": [],
    "one": [project(1, "Laden", TASKS)],
    "three": [project(1, "Laden", TASKS), project(2, "Beratung"), project(3, "Schulung", TASKS[:1])],
    "many": [project(number, f"Projekt {number}", TASKS[:1]) for number in range(1, 10)],
}


def write_opener():
    """Stands in for the desktop's: writes down what it was to open. Returns the PATH with it."""
    OPENER.parent.mkdir(parents=True, exist_ok=True)
    OPENER.write_text(f'#!/bin/sh\necho "$@" >> {OPENED}\n')
    OPENER.chmod(0o755)
    return f"{OPENER.parent}:{os.environ['PATH']}"


def clear():
    for path in HOME.iterdir():
        if path not in (OUTPUT, OPENER.parent.parent):
            shutil.rmtree(path) if path.is_dir() else path.unlink()


def files():
    return [path for path in HOME.rglob("*") if path.is_file() and path != OUTPUT and OPENER not in (path, *path.parents)]


@lru_cache(None)
def contents(name, scheme):
    """What the files of a home hold, made once."""
    write_settings(scheme)
    if HOMES[name] is not None:
        write_records(HOMES[name])
        write_pictures()
        write_usage()
    return {path: path.read_bytes() for path in files()}


def write_home(name, scheme):
    """Leaves only these files in the home folder."""
    clear()
    for path, content in contents(name, scheme).items():
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
