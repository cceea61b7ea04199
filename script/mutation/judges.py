"""Who can notice a fault: tests one by one, each with the faults that it comes past and the time that it takes."""
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

MEMORY = 4 << 30  # bytes that a program may ask for
LONGEST = 120  # seconds that a program may take without a fault
QUICK = 0.1  # seconds
LONGEST_ARGUMENT = 100_000  # bytes
CASE = re.compile(r"^== (.+)$", re.MULTILINE)
# What tests of ctest need built.
NEEDED = {"cli_studio_server": ["customstyle_tool"], "cli_terminal": ["customstyle_tool"],
          "docs_manual_and_completion": ["customstyle_tool", "customstyle_share"],
          "docs_output_schemas": ["customstyle_tool"],
          "schema_validation_test": ["customstyle_tool", "schema_corpus"]}


def is_table(program):
    return program.endswith(".cases")


def targets_of(program):
    """What has to be built before a program, a table of runs or a test of ctest can be asked."""
    return ["customstyle_tool"] if is_table(program) else NEEDED.get(program, [Path(program).name])


@dataclass
class Test:
    program: str
    name: str  # empty for a program that is asked as a whole
    seconds: float = 0
    reached: bytes = b""  # by the numbers of faults


class Judges:
    """The tests of some programs, in a tree that is built."""

    def __init__(self, tree, programs=()):
        self.tests_folder = tree.folder / "tests"
        self.build = tree.build
        self.programs = programs
        self.tests = [test for program in programs for test in self._tests_of(program)]

    def _tests_of(self, program):
        if program in NEEDED:
            return [Test(program, "")]
        if is_table(program):
            return [Test(program, name) for name in CASE.findall((self.tests_folder / program).read_text())]
        listed = subprocess.run([str(self.build / "tests" / program), "--gtest_list_tests"],
                                capture_output=True, text=True, check=True).stdout
        tests, suite = [], ""
        for line in listed.splitlines():
            name = line.split("#")[0].rstrip()
            if name.startswith("  "):
                tests.append(Test(program, suite + name.strip()))
            elif name.endswith("."):
                suite = name
        return tests

    def command(self, program, names):
        if program in NEEDED:
            return ["ctest", "--test-dir", str(self.build), "--no-tests=error", "-R", f"^{program}$"]
        if is_table(program):
            return [sys.executable, "-S", str(self.tests_folder / "cli" / "run_cases.py"), str(self.build / "customstyle"),
                    str(self.tests_folder / program), *names]
        chosen = "--gtest_filter=" + ":".join(names)
        if not names or len(chosen) > LONGEST_ARGUMENT:
            chosen = "--gtest_filter=*"
        return [str(self.build / "tests" / program), "--gtest_brief=1", "--gtest_fail_fast", chosen]

    def passes(self, program, names, seconds, **environment):
        """Whether tests of a program, or all of them, pass that need so many seconds without a fault; what takes far
        longer fails."""
        patience = int(5 * seconds) + 5
        limits = ["prlimit", f"--cpu={patience}", f"--as={MEMORY}", "--"]
        with tempfile.TemporaryDirectory() as folder:
            os.chmod(folder, 0o777)  # there are tests that are somebody else for a while
            process = subprocess.Popen(limits + self.command(program, names), stdin=subprocess.DEVNULL,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, cwd=self.build,
                                       start_new_session=True, env=os.environ | {"TMPDIR": folder} | environment)
            try:
                return process.wait(4 * patience) == 0
            except subprocess.TimeoutExpired:
                return False
            finally:
                # A fault may leave processes behind.
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
                process.wait()

    def get_to_know(self, faults, jobs):
        """Runs every test without a fault: which faults' places does it reach, and how long does it take?"""
        with ThreadPoolExecutor(jobs) as pool:
            sound = list(pool.map(lambda test: self._measure(test, faults), self.tests))
        failing = [f"{test.program} {test.name}" for test, passed in zip(self.tests, sound) if not passed]
        if failing:
            sys.exit("fails without a fault: " + ", ".join(failing))

    def _measure(self, test, faults):
        with tempfile.NamedTemporaryFile() as file:
            file.truncate(faults + 1)
            begin = time.monotonic()
            passed = self.passes(test.program, [test.name], LONGEST, PLANTED_REACHED=file.name)
            test.seconds = time.monotonic() - begin
            test.reached = file.read()
        return passed

    def reaching(self, number):
        return [test for test in self.tests if test.reached[number]]

    def noticed(self, number, tests):
        """The program that notices a fault, or None. Quick tests are asked first: most faults need no others."""
        ordered = sorted(tests, key=lambda test: test.seconds)
        quick = sum(test.seconds < QUICK for test in ordered)
        for asked in (ordered[:8], ordered[8:quick], ordered[max(8, quick):]):
            by_program = defaultdict(list)
            for test in asked:
                by_program[test.program].append(test)
            for program in sorted(by_program, key=self.programs.index):
                if not self.passes(program, [test.name for test in by_program[program]],
                                   sum(test.seconds for test in by_program[program]), PLANTED_FAULT=str(number)):
                    return program
        return None

