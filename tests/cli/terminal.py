#!/usr/bin/env python3
"""terminal.py TOOL: what the tool shows in a terminal, and only there: for how long the user has been waiting, how far
the proofs of a long check have come, and colours in explanations and differences, unless the user wants none.
"""
import json
import os
import pathlib
import pty
import re
import subprocess
import sys
import tempfile

LONG = 40000  # rules, which take a fast machine more than a second

failures = []


def in_terminal(command, **environment):
    """What a command writes to a terminal, for all its streams."""
    ours, theirs = pty.openpty()
    environment = {name: value for name, value in os.environ.items() if name != "NO_COLOR"} | environment
    process = subprocess.Popen(command, stdin=theirs, stdout=theirs, stderr=theirs, env=environment)
    os.close(theirs)
    shown = b""
    try:
        while piece := os.read(ours, 65536):
            shown += piece
    except OSError:  # Linux says so that the other end is closed
        pass
    process.wait()
    os.close(ours)
    return shown.decode()


def expect(condition, message, text):
    if not condition:
        failures.append(f"{message}: {text[:200]!r}")


def style_with(directory, count):
    """A style file with so many rules for the colour of the water; the last one has the number before the count."""
    rule = {"featureType": "water", "elementType": "geometry"}
    style = pathlib.Path(directory) / f"{count}.json"
    style.write_text(json.dumps([rule | {"stylers": {"color": f"#{i:06x}"}} for i in range(count)]))
    return style


def try_progress(tool, style, quick_style):
    check = [tool, "check", "--quiet", style]
    shown = in_terminal(check)
    expect(re.search(rf"\r{style}: \d+ s", shown), "no progress is shown", shown)
    expect(re.search(r" s, \d+ of \d+ proofs", shown), "no proofs are counted", shown)
    expect(" proofs\x1b[K\r\x1b[K" in shown, "the line of the progress stays", shown[-200:])
    piped = subprocess.run(check, capture_output=True, text=True)
    expect(piped.stderr == "", "progress is shown in a pipe", piped.stderr)
    shown = in_terminal([tool, "check", quick_style])
    expect("\r\x1b[K" not in shown, "progress of what takes no time is shown", shown)


def try_colours_of_diff(tool, style, other):
    diff = [tool, "diff", other, style]
    shown = in_terminal(diff)
    expect("\x1b[48;2;0;0;1m" in shown and "\x1b[1mwater" in shown, "no colour is shown", shown)
    plain = in_terminal(diff, TERM="dumb")
    expect("#000001" in plain and "\x1b" not in plain, "a colour is shown", plain)
    wanted = subprocess.run([*diff, "--color", "always"], capture_output=True, text=True)
    expect("\x1b[48;2;0;0;1m" in wanted.stdout, "no colour is shown in a pipe that wants it", wanted.stdout)


def try_colours(tool, style):
    explain = [tool, "explain", "--style", style, "--id", "1002", "--level", "9", "--field", "fill"]
    shown = in_terminal(explain)
    expect("\x1b[48;2;0;0;1m" in shown, "no colour is shown", shown)
    plain = in_terminal(explain, NO_COLOR="1")
    expect("#000001" in plain and "\x1b" not in plain, "a colour is shown", plain)
    empty = in_terminal(explain, NO_COLOR="")
    expect("\x1b[48;2;0;0;1m" in empty, "no colour is shown where the variable is empty", empty)
    piped = subprocess.run(explain, capture_output=True, text=True)
    expect("#000001" in piped.stdout and "\x1b" not in piped.stdout, "a colour is shown in a pipe", piped.stdout)


def main(tool):
    with tempfile.TemporaryDirectory() as directory:
        try_progress(tool, style_with(directory, LONG), style_with(directory, 2))
        try_colours(tool, style_with(directory, 2))
        try_colours_of_diff(tool, style_with(directory, 2), style_with(directory, 1))
    print(f"{len(failures)} failures")
    print("\n".join(failures))
    return 1 if failures else 0


sys.exit(main(*sys.argv[1:]))
