"""Changes one line of the program at a time and says which changes no test notices.

usage: run [--count 300] [--seed 1] [--painting-half] [--jobs 2] [--results FILE] FILE|FOLDER…
       run --again [--results FILE]

Numbers, comparisons, arithmetic, texts, names of a list, arguments and calls are changed. Works on a copy of the tree
in build/mutants; results are kept line by line in --results (build/mutants/results.jsonl), and what is already there
is not tried again. --again tries the earlier survivors only."""

import argparse
import dataclasses
import fcntl
import shutil
import signal
import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from changes import Finder
from choice import choose
from results import Results
from roles import Roles
from source import Source
from testprogram import STOPPED, TestProgram
from tree import Tree
from trial import Trial, Trials

ORIGINAL = Path(__file__).resolve().parents[2]
FOLDER = ORIGINAL / "build" / "mutants"


def arguments():
    parser = argparse.ArgumentParser(usage=__doc__.split("usage: ")[1].split("\n\n")[0])
    parser.add_argument("--count", type=int, default=100)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--painting-half", action="store_true")
    parser.add_argument("--jobs", type=int, choices=(1, 2), default=2)
    parser.add_argument("--results", type=Path, default=FOLDER / "results.jsonl")
    parser.add_argument("--again", action="store_true")
    parser.add_argument("paths", nargs="*", default=["src"])
    return parser.parse_args()


def files_in(tree, paths):
    for path in paths:
        found = [tree.root / path] if (tree.root / path).is_file() else sorted((tree.root / path).rglob("*"))
        if not found:
            sys.exit(f"tools/mutants: there is no {path}")
        yield from (str(file.relative_to(tree.root)) for file in found if file.suffix in (".cpp", ".h"))


def all_changes(tree, paths):
    roles = Roles(tree.root)
    return [change for file in files_in(tree, paths) for change in Finder(Source(tree.root, file), roles).find()]


def moved(tree, change):
    """The change where its line is now; None if the line is gone."""
    path = tree.root / change.file
    lines = path.read_text(encoding="utf-8").split("\n") if path.is_file() else []
    places = [number + 1 for number, line in enumerate(lines) if line == change.before]
    nearest = min(places, key=lambda line: abs(line - change.line), default=None)
    return dataclasses.replace(change, line=nearest) if nearest else None


def wanted_changes(tree, options, results):
    if options.again:
        places = [moved(tree, change) for change in results.survivors()]
        return [change for change in places if change]
    chosen = choose(all_changes(tree, options.paths), options.count, options.seed, options.painting_half)
    return [change for change in chosen if not results.has(change)]


def measured_programs(tree, changes, folder):
    """The test programs that these changes reach, each run once without any change."""
    outputs = {output for change in changes for output in tree.objects_for(change.file)}
    reached = {program.name: program for output in outputs for program in tree.programs_with(output)}
    programs = {}
    for name, program in sorted(reached.items()):
        scratch = folder / "measured"
        scratch.mkdir(parents=True, exist_ok=True)
        programs[name] = TestProgram(program.path)
        programs[name].measure(scratch, folder / f"{name}.json")
        print(describe(name, programs[name]), flush=True)
        shutil.rmtree(scratch)
    return programs


def describe(name, program):
    by_themselves = f"; only by themselves: {', '.join(program.unfit)}" if program.unfit else ""
    failing = f"; left out, they fail without any change: {', '.join(program.failing)}" if program.failing else ""
    return f"{name}: {len(program.milliseconds)} tests, {program.seconds():.1f} s{by_themselves}{failing}"


class Progress:
    """Writes each result down as it comes."""

    def __init__(self, results, total):
        self._results = results
        self._total = total
        self._done = 0
        self._lock = threading.Lock()

    def try_change(self, trials, change):
        begun = time.monotonic()
        verdict = Trial(trials, change, trials.folder / f"trial-{threading.get_ident()}").run()
        with self._lock:
            self._done += 1
            self._results.add(change, verdict, time.monotonic() - begun)
            print(f"{self._done}/{self._total} {change.file}:{change.line} {change.kind}: {verdict.outcome} {verdict.by}",
                  flush=True)


def try_all(trials, changes, jobs, progress):
    with ThreadPoolExecutor(max_workers=jobs) as workers:
        tried = [workers.submit(progress.try_change, trials, change) for change in changes]
        try:
            for each in tried:
                each.result()
        except BaseException:
            STOPPED.set()
            workers.shutdown(wait=True, cancel_futures=True)
            raise


def be_interrupted(number, frame):
    raise KeyboardInterrupt


def main():
    options = arguments()
    for number in (signal.SIGINT, signal.SIGTERM):
        signal.signal(number, be_interrupted)
    FOLDER.mkdir(parents=True, exist_ok=True)
    with open(FOLDER / "lock", "w", encoding="utf-8") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        tree = Tree(ORIGINAL, FOLDER)
        tree.update()
        results = Results(options.results)
        changes = wanted_changes(tree, options, results)
        trials = Trials(tree, FOLDER)
        trials.programs = measured_programs(tree, changes, FOLDER)
        try_all(trials, changes, options.jobs, Progress(results, len(changes)))
    results.print()


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("tools/mutants: cut off; start it again to go on")
