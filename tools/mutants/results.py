"""The file of results, a line for each change tried, and the report made from it."""

import json
from collections import Counter
from pathlib import Path

from changes import Change
from trial import CAUGHT, NOT_COMPILED, SAME_CODE, SURVIVED, UNTESTED

COLUMNS = (CAUGHT, SURVIVED, SAME_CODE, NOT_COMPILED, UNTESTED)


class Results:
    def __init__(self, path: Path):
        self._path = path
        self._records = {}
        for line in path.read_text(encoding="utf-8").splitlines() if path.exists() else []:
            self._keep(json.loads(line))

    def _keep(self, record):
        self._records[change_of(record).key] = record

    def has(self, change):
        return change.key in self._records

    def add(self, change, verdict, seconds):
        record = {**change.as_record(), "outcome": verdict.outcome, "by": verdict.by, "seconds": round(seconds, 1)}
        self._keep(record)
        with open(self._path, "a", encoding="utf-8") as file:
            file.write(json.dumps(record, ensure_ascii=False) + "\n")

    def survivors(self):
        return [change_of(record) for record in self._records.values() if record["outcome"] == SURVIVED]

    def print(self):
        self._print_files()
        print("\nSurvived:")
        for record in sorted(self._records.values(), key=lambda record: (record["file"], record["line"])):
            if record["outcome"] == SURVIVED:
                print(f"{record['file']}:{record['line']}: {record['before'].strip()}  →  {record['after'].strip()}")
        self._print_total("painting", [record for record in self._records.values() if record["paints"]])
        self._print_total("the rest", [record for record in self._records.values() if not record["paints"]])
        self._print_total("all", list(self._records.values()))

    def _print_files(self):
        print(f"{'file':52}" + "".join(f"{column:>18}" for column in COLUMNS))
        for file in sorted({record["file"] for record in self._records.values()}):
            counted = Counter(record["outcome"] for record in self._records.values() if record["file"] == file)
            print(f"{file:52}" + "".join(f"{counted[column] or '':>18}" for column in COLUMNS))

    def _print_total(self, name, records):
        counted = Counter(record["outcome"] for record in records)
        observable = counted[CAUGHT] + counted[SURVIVED]
        share = f"{100 * counted[CAUGHT] / observable:.1f} %" if observable else "–"
        others = ", ".join(f"{counted[column]} {column}" for column in COLUMNS[2:])
        print(f"\n{name}: {len(records)} changes; caught {counted[CAUGHT]} of {observable} ({share}); {others}")


def change_of(record):
    return Change(**{name: record[name] for name in ("file", "line", "kind", "before", "after", "paints")})
