"""Turns what bench/run measured into a table: each figure, the floor or the plain way from the same run, and its bar.

usage: table.py FOLDER"""

import json
import sys
from pathlib import Path

TO_MILLISECONDS = {"ns": 1e-6, "us": 1e-3, "ms": 1, "s": 1e3}


class Figures:
    def __init__(self, folder):
        self.inside = {}
        self.whole = {}
        for file in sorted(folder.glob("*.json")):
            content = json.loads(file.read_text())
            if file.name.startswith("program-"):
                self.whole[tuple(map(int, file.stem.split("-")[1:]))] = content
            else:
                self.keep(content["benchmarks"])

    def keep(self, runs):
        for run in runs:
            if run.get("aggregate_name", "median") == "median":
                name = run["run_name"].removesuffix("/real_time")
                self.inside[name.split("/min_time")[0].split("/iterations")[0]] = run

    def milliseconds(self, name, kind="real_time"):
        run = self.inside[name]
        return run[kind] * TO_MILLISECONDS[run["time_unit"]]

    def counter(self, name, counter):
        return self.inside[name][counter]

    def program(self, entries, sessions, name):
        return self.whole[entries, sessions][name]


def number(value):
    if value == 0:
        return "0"
    return f"{value:.0f}" if value >= 100 else f"{value:.1f}" if value >= 10 else f"{value:.2g}"


class Table:
    def __init__(self):
        self.rows = []

    def add(self, what, value, bar, unit, floor="–"):
        """`bar` is None for a figure that has none."""
        verdict = "–" if bar is None else "holds" if value <= bar else "**missed**"
        shown = "–" if bar is None else f"{bar:g} {unit}"
        self.rows.append((what, f"{number(value)} {unit}".strip(), floor, shown, verdict))

    def print(self):
        print("| figure | measured | beside it, in the same run | bar | |")
        print("|---|---|---|---|---|")
        for row in self.rows:
            print("| " + " | ".join(row) + " |")


def add_program(table, figures):
    for entries, bar in ((0, 80), (10000, 90), (100000, 250)):
        floor = figures.program(entries, 0, "floor")
        value = figures.program(entries, 0, "start")
        table.add(f"exec → status item, {entries:,} entries", value, bar, "ms",
                  f"empty program with an icon {number(floor)} ms (× {value / floor:.2f})")
    for entries in (10000, 100000):
        table.add(f"the same at the first start of a day, {entries:,} entries",
                  figures.program(entries, 0, "firstStartOfDay"), None, "ms", "copies of all files are kept")
    for entries in (0, 10000, 100000):
        table.add(f"click → painted popover, first, {entries:,} entries", figures.program(entries, 0, "first"), 50, "ms")
        table.add(f"click → painted popover, later, {entries:,} entries", figures.program(entries, 0, "later"), 16, "ms")
    for entries, bar in ((0, None), (10000, 30), (100000, None)):
        table.add(f"proportional memory, popover once shown, {entries:,} entries", figures.program(entries, 0, "pss"), bar,
                  "MB", f"resident {number(figures.program(entries, 0, 'rss'))} MB, empty program "
                  f"{number(figures.program(entries, 0, 'floorPss'))} MB")
    for entries, sessions in ((0, 0), (10000, 0), (100000, 0), (0, 100000)):
        table.add(f"processor time idle with a running timer, popover closed, {entries:,} entries, {sessions:,} sessions",
                  figures.program(entries, sessions, "idle"), None if sessions else 0.01, "s",
                  "tracking asks once a second" if sessions else "–")
    for name, bar, unit in (("start", 400, "ms"), ("pss", 40, "MB")):
        more = figures.program(0, 100000, name) - figures.program(0, 0, name)
        table.add(f"100,000 sessions on record: {'start' if name == 'start' else 'memory'}, more than without", more, bar,
                  unit)
    table.add("exec → status item, 100,000 entries and 100,000 sessions", figures.program(100000, 100000, "start"), None,
              "ms")


def add_store(table, figures):
    bare = figures.milliseconds("readBareNumbersConverted/100000")
    table.add("read 100,000 entries", figures.milliseconds("readTyped/100000") / bare, 1.5, "× the bare reader",
              f"bare reader {number(bare)} ms")
    bare = figures.milliseconds("saveBareTokens/100000")
    table.add("save 100,000 entries", figures.milliseconds("saveTyped/100000") / bare, 1.5, "× the bare writer and write",
              f"bare writer and write {number(bare)} ms")
    table.add("stop a timer at 100,000 entries", figures.milliseconds("stopTracking/100000"), 60, "ms",
              f"bare write of the same bytes {number(figures.milliseconds('writeSameBytesThroughToMedium/100000'))} ms")


def add_screens(table, figures):
    one_by_one = figures.milliseconds("dashboardOneByOne/100000")
    table.add("dashboard's figures at 100,000 entries", figures.milliseconds("dashboardInOnePass/100000"), 16, "ms",
              f"one by one {number(one_by_one)} ms")
    table.add("archive's list, 2,000 invoices over 20,000 entries", figures.milliseconds("listArchive/2000"), None, "ms")
    table.add("archive's sheet, 2,000 invoices over 20,000 entries", figures.milliseconds("openSheet/2000"), 50, "ms",
              f"an empty sheet {number(figures.milliseconds('openEmptySheet'))} ms")
    table.add("invoice's sheet, 10,000 entries", figures.milliseconds("openInvoiceSheet/10000"), 50, "ms",
              f"without entries {number(figures.milliseconds('openInvoiceSheet/0'))} ms")
    for what, name, bar in (("a second passes in it", "refreshInvoiceSheet", 5), ("a row is ticked in it", "tickInvoiceRow", 16),
                            ("the keyboard goes to its next row", "walkInvoiceRows", 16)):
        table.add(what, figures.milliseconds(f"{name}/10000"), bar, "ms")
    table.add("logo picker over 5,000 photographs, names on the screen", figures.milliseconds("openPicker"), None, "ms",
              f"decoding what is seen {number(figures.milliseconds('decodeFirstScreenBare'))} ms")
    table.add("a keystroke in the profile, written and painted", figures.milliseconds("typeLetter"), 1, "ms",
              f"bare write {number(figures.milliseconds('writeSameBytes'))} ms")


def add_documents(table, figures):
    for rows, bar in ((12, 5), (5000, 250)):
        plain = figures.milliseconds(f"writeInvoiceCellsPlainly/rows:{rows}")
        table.add(f"invoice of {rows:,} rows", figures.milliseconds(f"writeInvoice/rows:{rows}"), bar, "ms",
                  f"its table's cells drawn the plain way {number(plain)} ms")
    plain = figures.milliseconds("writeReportCellsPlainly/rows:5000")
    table.add("report of 5,000 rows", figures.milliseconds("writeReport/rows:5000"), 250, "ms",
              f"its cells drawn the plain way {number(plain)} ms")


def add_tracker(table, figures):
    anew = figures.milliseconds("changeApplicationAllAnew/100000")
    table.add("change of application with 100,000 sessions", figures.milliseconds("changeApplication/100000"), 1, "ms",
              f"all written anew {number(anew)} ms")
    written = figures.counter("changeApplicationAllAnew/100000", "writtenKiB") / 1024
    table.add("written by it", figures.counter("changeApplication/100000", "writtenKiB"), 64, "KiB",
              f"all anew {number(written)} MiB")
    table.add("100,000 sessions on disk", figures.counter("startTracker/100000", "diskMB"), 40, "MB")


def main():
    figures = Figures(Path(sys.argv[1]))
    table = Table()
    for add in (add_program, add_store, add_screens, add_documents, add_tracker):
        add(table, figures)
    table.print()


main()
