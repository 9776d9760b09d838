"""Our own copy of the working tree and its build. Changes are never written into either: a changed file is compiled
beside them, and its objects are linked in front of the unchanged ones."""

import json
import os
import re
import shlex
import shutil
import subprocess
from dataclasses import dataclass
from pathlib import Path

FAST_LINKERS = (("mold", "-fuse-ld=mold"), ("ld.lld", "-fuse-ld=lld"))


@dataclass
class Program:
    """A test program: how it is linked, and what from."""

    name: str
    path: Path
    link: list
    inputs: set


class Tree:
    def __init__(self, original: Path, folder: Path):
        self.original = original
        self.root = folder / "tree"
        self.build = folder / "build"

    def update(self):
        """Copies what has changed since the last time and builds every test program."""
        listed = self._run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], self.original)
        files = {name for name in listed.split("\0") if name and (self.original / name).is_file()}
        for name in files:
            copy_if_changed(self.original / name, self.root / name)
        for path in [path for path in self.root.rglob("*") if path.is_file()]:
            if str(path.relative_to(self.root)) not in files:
                path.unlink()
        self._configure()
        print(f"Building the unchanged program and its tests in {self.build} …", flush=True)
        subprocess.run(["ninja", "-C", str(self.build), "--quiet"], check=True)
        self._read_build()

    def _configure(self):
        linker = next((flag for name, flag in FAST_LINKERS if shutil.which(name)), "")
        subprocess.run(["cmake", "-S", str(self.root), "-B", str(self.build), "-G", "Ninja", "-DCMAKE_UNITY_BUILD=OFF",
                        "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g0",
                        f"-DCMAKE_EXE_LINKER_FLAGS={linker}"], check=True, stdout=subprocess.DEVNULL)

    def _run(self, command, folder):
        return subprocess.run(command, cwd=folder, check=True, capture_output=True, text=True).stdout

    def _read_build(self):
        entries = json.loads((self.build / "compile_commands.json").read_text())
        commands = [compiler_only(shlex.split(entry["command"])) for entry in entries]
        self._compile = {words[words.index("-o") + 1]: words for words in commands}
        self._objects = {str(Path(words[-1]).relative_to(self.root)): output for output, words in self._compile.items()
                         if Path(words[-1]).is_relative_to(self.root)}
        self._includers = self._read_includers()
        executables = (path for path in sorted(self.build.glob("tests/**/test-*"))
                       if path.is_file() and os.access(path, os.X_OK))
        programs = (self._program(path) for path in executables)
        self.programs = [program for program in programs if any("gtest" in word for word in program.inputs)]

    def _read_includers(self):
        """The objects by each file of ours that they include."""
        includers, current = {}, None
        for line in self._run(["ninja", "-t", "deps"], self.build).splitlines():
            if line.startswith("    "):
                included = os.path.normpath(self.build / line.strip())
                includers.setdefault(included, set()).add(current)
            elif line:
                current = line.split(":")[0]
        return includers

    def _program(self, path):
        target = str(path.relative_to(self.build))
        listed = self._run(["ninja", "-t", "commands", target], self.build).splitlines()
        words = [word for word in shlex.split(listed[-1]) if word not in (":", "&&")]
        return Program(path.name, path, words, set(words))

    def objects_for(self, file):
        """The objects that are made from that file."""
        if not file.endswith(".h"):
            return [self._objects[file]] if file in self._objects else []
        return sorted(output for output in self._includers.get(str(self.root / file), ()) if output in self._compile)

    def source_of(self, output):
        return Path(self._compile[output][-1])

    def compile_command(self, output, to, source, optimisation="-O0", overlay=None):
        """Compiles `source` to `to`, otherwise as that object; headers are looked for in `overlay` first."""
        words = [word if word != "-O0" else optimisation for word in self._compile[output]]
        words[words.index("-o") + 1] = str(to)
        words[-1] = str(source)
        return words[:1] + (["-iquote", str(overlay)] if overlay else []) + ["-w"] + words[1:]

    def link_command(self, program, objects, to):
        """Links the program to `to` with these objects, by name of the one they stand for. Those of libraries come
        first, so that the libraries' own are not needed."""
        words = [str(objects.get(word, word)) for word in program.link]
        words[words.index("-o") + 1] = str(to)
        return words[:1] + [str(path) for output, path in objects.items() if output not in program.inputs] + words[1:]

    def programs_with(self, output):
        archive = re.sub(r"CMakeFiles/([^/]+)\.dir/.*", r"lib\1.a", output)
        return [program for program in self.programs if archive in program.inputs or output in program.inputs]


def compiler_only(words):
    """Without the compiler cache, which would only fill up."""
    return words[next(at for at, word in enumerate(words) if word.endswith(("c++", "g++", "clang++"))):]


def copy_if_changed(source, target):
    if target.is_file() and target.read_bytes() == source.read_bytes():
        return
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(source, target)
