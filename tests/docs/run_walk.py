#!/usr/bin/env python3
"""run_walk.py TOOL PAGE: walks through a page as its reader would.

A block after a line `<!-- file: NAME -->` is written into that file. In a block marked console each line that starts with
"$ " is run by bash, and the lines after it are what it prints; all blocks of a page work in one folder, in their order.
With UPDATE=1 in the environment the page is written anew from what the commands print: read the difference before you
keep it. A page without a command is a failure.
"""
import difflib
import os
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"(?:^<!-- file: (?P<file>\S+) -->\n)?^```(?P<kind>\w+)\n(?P<content>.*?)^```$", re.MULTILINE | re.DOTALL)


def run(command, directory, tool):
    environment = os.environ | {"PATH": f"{tool.parent}:{os.environ['PATH']}", "HOME": str(directory)}
    done = subprocess.run(["bash", "-c", command], cwd=directory, env=environment, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, text=True, check=False)
    return done.stdout


def console(content, directory, tool):
    """A console block with what its commands print now."""
    lines = []
    for line in content.splitlines():
        if line.startswith("$ "):
            lines += [line, *run(line[2:], directory, tool).splitlines()]
    return "".join(line + "\n" for line in lines)


def walked(text, directory, tool):
    """The page as it is to be, and how many commands it has."""
    count = 0

    def block(match):
        nonlocal count
        content = match["content"]
        if match["file"]:
            (directory / match["file"]).write_text(content)
        if match["kind"] != "console":
            return match[0]
        count += len(re.findall(r"^\$ ", content, re.MULTILINE))
        return match[0].replace(f"console\n{content}", f"console\n{console(content, directory, tool)}")

    return BLOCK.sub(block, text), count


def main(tool, page):
    path = pathlib.Path(page)
    text = path.read_text()
    with tempfile.TemporaryDirectory() as directory:
        actual, count = walked(text, pathlib.Path(directory), pathlib.Path(tool).resolve())
    if os.environ.get("UPDATE"):
        path.write_text(actual)
        return 0
    sys.stdout.writelines(difflib.unified_diff(text.splitlines(True), actual.splitlines(True), page, "as the tool has it"))
    print(f"{count} commands")
    return 0 if actual == text and count > 0 else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
