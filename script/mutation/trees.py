"""Copies of the project, in which faults are planted and built."""
import functools
import json
import os
import re
import shlex
import shutil
import subprocess
from pathlib import Path

COPIED = ["CMakeLists.txt", "CMakePresets.json", "README.md", "cmake", "docs", "engine", "examples", "fuzz", "sdkengine",
          "studio/page/src", "tests", "tools"]
HERE = Path(__file__).resolve().parent
PLANTED_LINE = re.compile(r"\bplanted-(all-)?(\d+):\d+:(?:\d+:)? +(?:fatal |note: .* was not )?"
                          r"(?:error|required|in |declared|initialized)")


class Tree:
    """A copy of the project's sources with a build of its own."""

    def __init__(self, origin, folder):
        self.origin = origin
        self.folder = folder
        self.build = folder / "build"
        # Where a copy stands does not matter to what is compiled.
        self.environment = os.environ | {"CCACHE_BASEDIR": str(folder), "CCACHE_NOHASHDIR": "1",
                                         "CCACHE_SLOPPINESS": "pch_defines,time_macros"}

    def bring_up_to_date(self, changed=None):
        """Copies the sources, some of them with another text (as bytes). What is the same is not built again."""
        changed = changed or {}
        wanted = {str(path.relative_to(self.origin)) for path in files_below(self.origin) if path.is_file()}
        for path in [path for path in files_below(self.folder) if path.is_file()]:
            if str(path.relative_to(self.folder)) not in wanted:
                path.unlink()
        for relative in wanted:
            copy = self.folder / relative
            content = changed.get(relative) or (self.origin / relative).read_bytes()
            copy.parent.mkdir(parents=True, exist_ok=True)
            if not copy.exists() or copy.read_bytes() != content:
                copy.write_bytes(content)
                shutil.copymode(self.origin / relative, copy)

    def configure(self):
        """What a fault makes odd is no error."""
        subprocess.run(["cmake", "--preset", "dev", "-B", str(self.build), f"-DCMAKE_CXX_COMPILER_LAUNCHER={HERE / 'compile'}",
                        "-DCUSTOMSTYLE_WARNINGS_AS_ERRORS=OFF", "-DCMAKE_CXX_FLAGS_DEBUG=-O1",
                        "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld",
                        f"-DCMAKE_CXX_FLAGS=-w -fpch-preprocess -I{HERE}"],
                       cwd=self.folder, check=True, stdout=subprocess.DEVNULL)

    def compile(self, targets, jobs=1):
        return subprocess.run(["ninja", "-k0", "-C", str(self.build), f"-j{jobs}", *targets],
                              capture_output=True, text=True, env=self.environment, check=False)

    def check_syntax(self, relative):
        """What the compiler has to say about a source."""
        return subprocess.run(["g++", "-fsyntax-only", "-w", "-fno-diagnostics-show-caret", f"-I{HERE}",
                               *self.compiler_arguments(relative, self.folder), str(self.folder / relative)],
                              capture_output=True, text=True, check=False).stderr

    @functools.cached_property
    def _commands(self):
        return json.loads((self.build / "compile_commands.json").read_text())

    def compiler_arguments(self, relative, root):
        """What the compiler is told about a source below a root; a header is told what the sources near it are."""
        nearest = max(self._commands, key=lambda each: len(os.path.commonprefix([each["file"], str(self.folder / relative)])))
        words = shlex.split(nearest["command"])
        kept = []
        for word, following in zip(words, words[1:]):
            if word == "-isystem":
                kept += [word, following]
            elif re.match(r"-[ID].|-std=", word):
                kept.append(word)
        return ["-x", "c++", *(word.replace(str(self.folder), str(root)) for word in kept)]


def files_below(root):
    for name in COPIED:
        yield from ([root / name] if (root / name).is_file() else (root / name).rglob("*"))


def refused(output):
    """The numbers of the faults that a compiler's messages name: those whose whole declarations it refuses, and others."""
    found = PLANTED_LINE.findall(output)
    return {int(number) for whole, number in found if whole}, {int(number) for whole, number in found if not whole}
