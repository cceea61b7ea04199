#!/usr/bin/env python3
r"""run_cases.py TOOL FILE [CASE...]: runs the cases of a table, all or those named, and compares what they print.

A table is a text of cases:

    == name of the behaviour
    file NAME               a file of the case: the lines below it, indented by two spaces
      its content
    $ customstyle check NAME
    | a line of standard output, a carriage return as \\r
    ! a line of standard error
    [1]                     the exit status, where it is not 0

A case may have several files and commands; they run one after the other in bash, in an empty directory with
copies of the examples' styles, variants and map, and of the folder "data" beside the table. A line that starts with # is a remark.
With UPDATE=1 in the environment the table is written anew from what the tool does: read the difference before you keep it.
With FAIL_FAST=1 no case is run after the first that differs.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
NO_LINE_END = "\\ no line end"


class Command:
    def __init__(self, text):
        self.text = text
        self.expected = []


class Case:
    def __init__(self, name):
        self.name = name
        self.head = []  # remarks and files, as they stand
        self.files = {}
        self.commands = []


def parse(path):
    """The cases of a table, after a first one without a name for what stands before them."""
    cases = [Case("")]
    target = None
    for number, line in enumerate(path.read_text().splitlines(), 1):
        case = cases[-1]
        if line.startswith("== "):
            cases.append(Case(line[3:]))
        elif line.startswith("$ "):
            case.commands.append(Command(line[2:]))
        elif line[:1] in "|![\\" and case.commands and line:
            case.commands[-1].expected.append(line)
        elif line.startswith("  ") and target is not None:
            case.files[target] += line[2:] + "\n"
            case.head.append(line)
            continue
        elif line.startswith("file "):
            target = line[5:]
            case.files[target] = ""
            case.head.append(line)
            continue
        elif not line or line.startswith("#"):
            case.head.append(line)
        else:
            sys.exit(f"{path}:{number}: not understood: {line}")
        target = None
    return cases


def lines_of(text, mark):
    lines = [f"{mark} {line}".rstrip(" ") for line in text.replace("\r", "\\r").split("\n")]
    if lines[-1] == mark:
        return lines[:-1]
    return lines + [NO_LINE_END]


def run(command, directory, tool):
    environment = os.environ | {"PATH": f"{tool.parent}:{os.environ['PATH']}", "HOME": str(directory)}
    environment.pop("NO_COLOR", None)
    done = subprocess.run(["bash", "-c", command.text], cwd=directory, env=environment, capture_output=True,
                          stdin=subprocess.DEVNULL, check=False)
    status = [f"[{done.returncode}]"] if done.returncode else []
    text = [stream.decode(errors="backslashreplace") for stream in (done.stdout, done.stderr)]
    return lines_of(text[0], "|") + lines_of(text[1], "!") + status


def prepare(case, directory):
    for folder in ("styles", "map", "variants"):  # copies, because commands write
        shutil.copytree(HERE.parent.parent / "examples" / folder, directory / "examples" / folder)
    shutil.copytree(HERE / "data", directory / "data")
    for name, content in case.files.items():
        path = directory / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(content)


def actual_of(case, tool):
    with tempfile.TemporaryDirectory() as name:
        directory = pathlib.Path(name)
        prepare(case, directory)
        return [run(command, directory, tool) for command in case.commands]


def difference(case, outputs):
    """What the commands of a case print otherwise, in the form of the table."""
    shown = []
    for command, actual in zip(case.commands, outputs):
        if command.expected == actual:
            continue
        shown += [f"$ {command.text}", "--- expected", *command.expected, "+++ actual", *actual]
    return shown


def text_of(case, outputs):
    lines = [f"== {case.name}"] if case.name else []
    lines += [line for line in case.head if line]
    for command, actual in zip(case.commands, outputs):
        lines += [f"$ {command.text}", *actual]
    return "\n".join(lines) + "\n"


def main(tool, table, *names):
    tool = pathlib.Path(tool).resolve()
    path = pathlib.Path(table)
    cases = parse(path)
    unknown = set(names) - {case.name for case in cases}
    if unknown or len(cases) == 1:
        sys.exit(f"{path}: no case {sorted(unknown)}")
    failures = 0
    texts = []
    for case in cases:
        outputs = actual_of(case, tool) if case.commands and (not names or case.name in names) else \
            [command.expected for command in case.commands]
        texts.append(text_of(case, outputs))
        shown = difference(case, outputs)
        if shown:
            failures += 1
            print(f"{path.name}: {case.name}", *shown, sep="\n")
            if os.environ.get("FAIL_FAST"):
                return 1
    if os.environ.get("UPDATE"):
        path.write_text("\n".join(text for text in texts if text.strip()))
        return 0
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
