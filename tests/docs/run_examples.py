#!/usr/bin/env python3
"""run_examples.py TOOL GUIDE: runs every example of a guide.

An example is a style in a block marked json, followed by its expectations in a block marked expect. A block of one kind
without the other is a failure, so that no example goes unrun.
"""
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def run(tool, directory, style, expectations):
    paths = [pathlib.Path(directory) / name for name in ("style.json", "expectations")]
    for path, text in zip(paths, (style, expectations)):
        path.write_text(text)
    result = subprocess.run([tool, "test", *paths], capture_output=True, text=True)
    return "" if result.returncode == 0 else f"exit status {result.returncode}\n{result.stdout}{result.stderr}"


def main(tool, guide):
    text = pathlib.Path(guide).read_text()
    blocks = [(match[1], match[2], text.count("\n", 0, match.start()) + 1) for match in BLOCK.finditer(text)]
    failures = 0 if text.count("```") == 2 * len(blocks) else 1
    kinds = [kind for kind, _, _ in blocks]
    if failures or not kinds or kinds != ["json", "expect"] * (len(kinds) // 2):
        print(f"{guide}: not every json block is followed by an expect block, or a block is not closed")
        return 1
    with tempfile.TemporaryDirectory() as directory:
        for (_, style, line), (_, expectations, _) in zip(blocks[::2], blocks[1::2]):
            problem = run(tool, directory, style, expectations)
            if problem:
                failures += 1
                print(f"{guide}:{line}: {problem}")
    print(f"{len(blocks) // 2} examples, {failures} failures")
    return 1 if failures else 0


sys.exit(main(*sys.argv[1:]))
