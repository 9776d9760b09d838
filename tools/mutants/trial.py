"""Trying one change: compile it, see whether its code differs, run the tests from the nearest on."""

import shutil
import subprocess
import threading
from dataclasses import dataclass
from pathlib import Path

from changes import Change
from nearness import Suites

CAUGHT = "caught"
SURVIVED = "survived"
SAME_CODE = "same code"
NOT_COMPILED = "does not compile"
UNTESTED = "in no test program"
REMEMBERED = 12


@dataclass(frozen=True)
class Verdict:
    outcome: str
    by: str = ""


class Trials:
    """What all trials share; may be used from several threads."""

    def __init__(self, tree, folder: Path):
        self.tree = tree
        self.suites = Suites(tree.root)
        self.folder = folder
        self.programs = {}
        self._plain = folder / "optimised"
        self._plain.mkdir(exist_ok=True)
        self._catchers = {}
        self._lock = threading.Lock()

    def programs_for(self, outputs, file):
        """The test programs that contain one of these objects, the nearest first."""
        paths = {program.name: program for output in outputs for program in self.tree.programs_with(output)}
        tests = {name: self.programs[name].milliseconds for name in paths}
        return sorted(paths.values(), key=lambda program: (-self.suites.nearness(file, tests[program.name]),
                                                           self.programs[program.name].seconds()))

    def catchers(self, file, program):
        with self._lock:
            return [test for test in self._catchers.get((file, program), []) if test]

    def remember(self, file, program, test):
        with self._lock:
            known = self._catchers.setdefault((file, program), [])
            self._catchers[file, program] = [test, *(each for each in known if each != test)][:REMEMBERED]

    def optimised(self, output):
        """The unchanged object with optimisation, made when it is first needed."""
        plain = self._plain / output.replace("/", "_")
        source = self.tree.source_of(output)
        if not plain.exists() or plain.stat().st_mtime < source.stat().st_mtime:
            compile_to(self.tree.compile_command(output, plain, source, "-O2"), self.tree.build)
        return plain.read_bytes()


class Trial:
    def __init__(self, trials: Trials, change: Change, scratch: Path):
        self.trials = trials
        self.tree = trials.tree
        self.change = change
        self.scratch = scratch
        self.objects = {}

    def run(self):
        shutil.rmtree(self.scratch, ignore_errors=True)
        self.scratch.mkdir(parents=True)
        try:
            return self._judge()
        finally:
            shutil.rmtree(self.scratch, ignore_errors=True)

    def _judge(self):
        outputs = [output for output in self.tree.objects_for(self.change.file) if self.tree.programs_with(output)]
        if not outputs:
            return Verdict(UNTESTED)
        self._write_changed()
        for output in outputs:
            path = self._compile(output, "-O0")
            if path is None:
                return Verdict(NOT_COMPILED)
            if path.read_bytes() != (self.tree.build / output).read_bytes():
                self.objects[output] = path
        if not self.objects:
            return Verdict(SAME_CODE)
        return self._run_tests() or (Verdict(SURVIVED) if self._differs_when_optimised() else Verdict(SAME_CODE))

    def _write_changed(self):
        change = self.change
        lines = (self.tree.root / change.file).read_text(encoding="utf-8").split("\n")
        assert lines[change.line - 1] == change.before
        lines[change.line - 1] = change.after
        self.changed = self.scratch / "changed" / Path(*Path(change.file).parts[1:])
        self.changed.parent.mkdir(parents=True)
        self.changed.write_text("\n".join(lines), encoding="utf-8")

    def _compile(self, output, optimisation):
        path = self.scratch / (optimisation[1:] + output.replace("/", "_"))
        is_header = self.change.file.endswith(".h")
        source = self.tree.source_of(output) if is_header else self.changed
        overlay = self.scratch / "changed" if is_header else None
        command = self.tree.compile_command(output, path, source, optimisation, overlay)
        return path if compile_to(command, self.tree.build) else None

    def _differs_when_optimised(self):
        """Whether the optimised code differs; if not, the change changes nothing (`0 * 2` for `0 * 3`)."""
        return any(self._compile(output, "-O2").read_bytes() != self.trials.optimised(output) for output in self.objects)

    def _run_tests(self):
        for program in self.trials.programs_for(self.objects, self.change.file):
            changed = self.scratch / program.name
            if not compile_to(self.tree.link_command(program, self.objects, changed), self.tree.build):
                return Verdict(NOT_COMPILED)
            failure = self._failure_in(self.trials.programs[program.name], changed)
            if failure:
                self.trials.remember(self.change.file, program.name, failure.test)
                return Verdict(CAUGHT, f"{program.name} {failure.test} {failure.how}")
        return None

    def _failure_in(self, program, changed):
        """First the tests that noticed the file's earlier changes, then the near ones, then all, the slow ones last."""
        file = self.change.file
        first = self.trials.catchers(file, program.path.name)
        near = [pattern for suite in self.trials.suites.near(file, program.milliseconds)
                for pattern in (f"{suite}.*", f"*/{suite}.*")]
        slow = program.slow_tests()
        stages = ((first, []), (near, first + slow), (["*"], near + first + slow), (slow, first))
        failures = (program.find_failure(changed, self.scratch, *stage) for stage in stages if stage[0])
        return next((failure for failure in failures if failure), None) or program.find_failure_of_unfit(changed, self.scratch)


def compile_to(command, folder):
    return subprocess.run(command, cwd=folder, capture_output=True).returncode == 0
