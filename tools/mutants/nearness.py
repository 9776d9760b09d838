"""Which tests most likely notice a change: those whose file is named after the same things."""

import re
from pathlib import Path

SUITE = re.compile(r"^TEST(?:_F|_P)?\(\s*(\w+)", re.MULTILINE)
WORD = re.compile(r"[A-Z]?[a-z]+|[A-Z]+(?![a-z])")


class Suites:
    """The test suites of each program, with the words of their files' paths."""

    def __init__(self, tree):
        self._words = {}
        for file in sorted(Path(tree, "tests").rglob("*.cpp")):
            words = words_of(str(file.relative_to(tree)))
            for suite in SUITE.findall(file.read_text(encoding="utf-8")):
                self._words.setdefault(suite, set()).update(words)

    def near(self, file, tests):
        """The suites among these tests that have something in common with the file, the nearest first."""
        wanted = words_of(file)
        suites = {test.split(".")[0].split("/")[-1] for test in tests}
        nearness = {suite: len(wanted & self._words.get(suite, set())) for suite in suites}
        return sorted((suite for suite in suites if nearness[suite]), key=lambda suite: (-nearness[suite], suite))

    def nearness(self, file, tests):
        near = self.near(file, tests)
        return len(words_of(file) & self._words.get(near[0], set())) if near else 0


def words_of(path):
    """The words in the names of folders and file, without those that say nothing."""
    return {word.lower() for word in WORD.findall(path)} - {"src", "tests", "test", "cpp", "h", "view", "screen"}
