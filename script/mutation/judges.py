"""Who can notice a fault: tests one by one, each with the faults that it comes past and the time that it takes."""
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from collections import Counter, defaultdict
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

MEMORY = 8 << 30  # bytes that a program may ask for
LONGEST = 120  # seconds that a program may take without a fault
QUICK = 0.1  # seconds
LONGEST_ARGUMENT = 100_000  # bytes
LONGEST_OUTPUT = 1_000_000  # bytes that are searched for the name of a test
FEW = 8  # tests that are asked at first
CASE = re.compile(r"^== (.+)$", re.MULTILINE)
FAILED = re.compile(r"^\[  FAILED  \] (\S+)|^\S+\.cases: (.+)$", re.MULTILINE)
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
        self.experience = defaultdict(Counter)  # {path of a source: {(program, test): faults that it noticed}}
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

    def failed(self, program, names, seconds, **environment):
        """The name of a test that fails, of those of a program that are named or of all, or None. It is empty where the
        program does not say it. The tests need so many seconds without a fault; what takes far longer fails."""
        patience = int(5 * seconds) + 5
        limits = ["prlimit", f"--cpu={patience}", f"--as={MEMORY}", "--"]
        with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryFile() as output:
            os.chmod(folder, 0o777)  # there are tests that are somebody else for a while
            process = subprocess.Popen(limits + self.command(program, names), stdin=subprocess.DEVNULL, stdout=output,
                                       stderr=subprocess.DEVNULL, cwd=self.build, start_new_session=True,
                                       env=os.environ | {"TMPDIR": folder, "FAIL_FAST": "1"} | environment)
            try:
                passed = process.wait(4 * patience) == 0
            except subprocess.TimeoutExpired:
                passed = False
            finally:
                # A fault may leave processes behind.
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
                process.wait()
            return None if passed else self._failed_in(output)

    @staticmethod
    def _failed_in(output):
        output.seek(0)
        named = FAILED.search(output.read(LONGEST_OUTPUT).decode(errors="replace"))
        return named.group(1) or named.group(2) if named else ""

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
            passed = self.failed(test.program, [test.name], LONGEST, PLANTED_REACHED=file.name) is None
            test.seconds = time.monotonic() - begin
            test.reached = file.read()
        return passed

    def reaching(self, number):
        return [test for test in self.tests if test.reached[number]]

    def noticed(self, number, tests, path):
        """The program that notices a fault in a source, or None. First those tests are asked that noticed most in the same
        source, then the quick ones: most faults need no others."""
        known = self.experience[path]
        ordered = sorted(tests, key=lambda test: (-known[test.program, test.name], test.seconds))
        few = min(FEW, sum((test.program, test.name) in known for test in ordered))
        ordered[few:] = sorted(ordered[few:], key=lambda test: test.seconds)
        quick = few + sum(test.seconds < QUICK for test in ordered[few:])
        for asked in (ordered[:few], ordered[few:few + FEW], ordered[few + FEW:quick], ordered[max(few + FEW, quick):]):
            by_program = defaultdict(list)
            seconds = Counter()
            for test in asked:
                by_program[test.program].append(test.name)
                seconds[test.program] += test.seconds
            for program in sorted(by_program, key=lambda each: seconds[each]):
                failed = self.failed(program, by_program[program], seconds[program], PLANTED_FAULT=str(number))
                if failed is not None:
                    known[program, failed] += 1
                    return program
        return None
