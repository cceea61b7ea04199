#!/usr/bin/env python3
"""manual_and_completion.py TOOL SHARE DOCUMENT...: whether the manual pages and completions below the folder SHARE are
those of the tool, whether mandoc and the shells accept them, whether the shells then complete what the help names, and
whether the calls that documents show name commands and options that exist.
"""
import os
import pathlib
import pty
import re
import select
import subprocess
import sys
import tempfile
import time

failures = []


def expect(condition, message):
    if not condition:
        failures.append(message)


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def commands_of(tool):
    sections = output_of(tool, "--help").split("\nOptions:")[0]
    return re.findall(r"^  (\w+)  ", sections, re.MULTILINE)


def options_of(tool, command):
    listed = output_of(tool, command, "--help").split("Options:")[1].split("\n\n")[0]
    return set(re.findall(r"^  (?:-\w, )?(--[\w-]+)", listed, re.MULTILINE))


def check_pages(tool, share, commands):
    """A page a command, made by this tool, without warnings, with every option."""
    names = {path.name for path in (share / "man/man1").iterdir()}
    expect(names == {"customstyle.1"} | {f"customstyle-{command}.1" for command in commands}, f"pages: {sorted(names)}")
    for name in sorted(names):
        page = share / "man/man1" / name
        expect(page.read_text() == output_of(tool, "manual", name[:-2]), f"{name}: is not up to date")
        lint = subprocess.run(["mandoc", "-T", "lint", "-W", "warning", page], capture_output=True, text=True, check=False)
        expect(lint.returncode == 0, f"{name}: {lint.stdout}")
    for command in commands:
        text = output_of("mandoc", "-T", "ascii", share / f"man/man1/customstyle-{command}.1")
        plain = re.sub(".\b", "", text)
        for option in options_of(tool, command):
            expect(option in plain, f"the page of {command} lacks {option}")


def in_bash(script, *words):
    """What bash offers for the last word."""
    program = f'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _customstyle; printf "%s\\n" "${{COMPREPLY[@]}}"'
    return set(output_of("bash", "-c", program, "bash", script, "customstyle", *words).split())


def in_fish(script, *words):
    line = " ".join(("customstyle", *words))
    lines = output_of("fish", "--no-config", "-c", f"source {script}; complete -C '{line}'").splitlines()
    return {line.split("\t")[0] for line in lines}


def in_zsh(script, *words):
    """What zsh lists in a terminal for the last word."""
    with tempfile.TemporaryDirectory() as directory:
        child, terminal = pty.fork()
        if child == 0:
            os.chdir(directory)
            os.environ.update(TERM="vt100", HOME=directory, COLUMNS="200", LINES="400")
            os.execvp("zsh", ["zsh", "-f", "-i"])
        setup = f"autoload -U compinit; compinit -D; LISTMAX=10000; source {script}; PROMPT=rea''dy\n"
        os.write(terminal, setup.encode())
        read_until(terminal, b"ready")
        read_until(terminal, None, patience=0.7)  # the rest of the prompt, if any
        os.write(terminal, (" ".join(("customstyle", *words)) + "\t\t").encode())
        shown = read_until(terminal, None)
        os.write(terminal, b"\x03exit\n")
        os.close(terminal)
        os.waitpid(child, 0)
        plain = re.sub(r"\x1b\[[\d;?]*[A-Za-z]|\0", " ", shown.decode(errors="replace"))
        return set(re.findall(r"-{0,2}[\w-]+", plain))


def read_until(terminal, mark, patience=30):
    """What a terminal shows up to a mark, or until nothing more comes.
    patience: how long to wait for the first of it, in seconds
    """
    shown = b""
    end = time.monotonic() + 30
    while time.monotonic() < end and not (mark and mark in shown):
        ready, _, _ = select.select([terminal], [], [], patience if mark or not shown else 0.7)
        if not ready:
            break
        shown += os.read(terminal, 65536)
    return shown


def check_completion(tool, share, commands):
    shells = {"bash": (in_bash, share / "bash-completion/completions/customstyle"),
              "zsh": (in_zsh, share / "zsh/site-functions/_customstyle"),
              "fish": (in_fish, share / "fish/vendor_completions.d/customstyle.fish")}
    for shell, (complete, script) in shells.items():
        expect(script.read_text() == output_of(tool, "completion", shell), f"{shell}: is not up to date")
        offered = complete(script, "")
        expect(set(commands) <= offered, f"{shell}: lacks {sorted(set(commands) - offered)}")
        for command in commands if shell != "zsh" else ["check"]:  # in a terminal each takes seconds
            missing = options_of(tool, command) - complete(script, command, "--")
            expect(not missing, f"{shell}: {command} lacks {sorted(missing)}")
        types = complete(script, "explain", "--type", "highwayl")
        expect("highwaylabel" in types, f"{shell}: types: {sorted(types)[:20]}")


def calls_in(text):
    """The calls that a text shows: command and options."""
    found = re.findall(r"(?<![\w:])customstyle ([a-z]+)\b([^`\n|]*)", text)
    return [(command, set(re.findall(r"(?<=\s)--[\w-]+", rest))) for command, rest in found]


def check_calls(tool, document, commands):
    calls = calls_in(pathlib.Path(document).read_text())
    expect(calls, f"{document}: shows no call")
    for command, named in calls:
        unknown = named - options_of(tool, command) if command in commands else {command}
        expect(not unknown, f"{document}: there is no {command} {' '.join(sorted(unknown))}")


def main(tool, share, *documents):
    share = pathlib.Path(share).resolve()
    commands = commands_of(tool)
    expect(len(commands) > 8, f"the help names {commands}")
    check_pages(tool, share, commands)
    check_completion(tool, share, commands)
    for document in documents:
        check_calls(tool, document, commands)
    print(f"{len(commands)} commands, {len(failures)} failures")
    print("\n".join(failures))
    return 1 if failures else 0


sys.exit(main(*sys.argv[1:]))
