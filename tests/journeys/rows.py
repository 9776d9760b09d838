"""A click hits the row that is under the pointer: ticking and deleting entries in a long invoice sheet with the mouse."""

import json

import pyatspi
from desktop import DOCUMENTS, Program, command, main, read_json, wait_until

BEGIN = 816422400.0  # 15 November 2026, 08:00 UTC
TASKS = [f"Abschnitt {number:02d}" for number in range(20)]


def write_history():
    DOCUMENTS.mkdir(exist_ok=True)
    project = {"id": "5C0E4A44-2B1D-4B0E-9C39-0D5B0B6F0001", "name": "Website", "hourlyRate": 60, "entries": [
        {"id": f"5C0E4A44-2B1D-4B0E-9C39-0D5B0B6F1{index:03d}", "taskName": task, "isInvoiced": False,
         "startTime": BEGIN + index * 7200, "endTime": BEGIN + index * 7200 + 3600} for index, task in enumerate(TASKS)]}
    (DOCUMENTS / "projects.json").write_text(json.dumps([project]), encoding="utf-8")


def stored_tasks():
    return [entry["taskName"] for entry in read_json("projects.json")[0]["entries"]]


def entries_list(desktop):
    return next(node for node in desktop.all_visible(lambda node: node.name == "Einträge zur Abrechnung")
                if node.getRole() == pyatspi.ROLE_LIST)


def box_of(desktop, task):
    row = next(row for row in entries_list(desktop) if f", {task}, " in row.name)
    return row.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)


def ticked(desktop):
    return [row.name.split(", ")[1] for row in entries_list(desktop) if row.getState().contains(pyatspi.STATE_CHECKED)]


def click_row(desktop, task):
    box = box_of(desktop, task)
    desktop.click((box.x + box.width // 2, box.y + box.height // 2))


def click_bin(desktop, task):
    box = box_of(desktop, task)
    desktop.click((box.x + box.width - 20, box.y + box.height // 2))


def tick_rows(desktop):
    click_row(desktop, "Abschnitt 06")
    wait_until(lambda: ticked(desktop) == ["Abschnitt 06"], "the row that was clicked to be ticked")
    desktop.screenshot("rows-ticked")
    click_row(desktop, "Abschnitt 06")
    wait_until(lambda: ticked(desktop) == [], "the same row to be unticked")
    for task in TASKS[2:5]:
        click_row(desktop, task)
    wait_until(lambda: ticked(desktop) == TASKS[2:5], "three rows to be ticked")
    desktop.find("3 Einträge · 180.00 €")


def delete_rows(desktop):
    for task in ("Abschnitt 05", "Abschnitt 01"):
        click_bin(desktop, task)
        wait_until(lambda task=task: task not in stored_tasks(), f"{task} to be deleted")
    assert stored_tasks() == [task for task in TASKS if task not in ("Abschnitt 05", "Abschnitt 01")], stored_tasks()
    assert ticked(desktop) == TASKS[2:5]
    desktop.screenshot("rows-deleted")


def tick_the_last_row(desktop):
    middle = desktop.find("Rechnungsnummer:", pyatspi.ROLE_TEXT).queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    command("xdotool", "mousemove", str(middle.x), str(middle.y - 20), "click", "--repeat", "40", "--delay", "5", "5")
    desktop.find("Eintrag hinzufügen")
    click_row(desktop, TASKS[-1])
    wait_until(lambda: ticked(desktop) == TASKS[2:5] + TASKS[-1:], "the last row to be ticked")
    desktop.screenshot("rows-end")


def journey(path, desktop):
    write_history()
    Program(path)
    desktop.wait_for_icon()
    desktop.open_popover()
    desktop.press_named("Rechnung")
    desktop.find("Rechnung erstellen: Website")
    tick_rows(desktop)
    delete_rows(desktop)
    tick_the_last_row(desktop)


main(journey)
