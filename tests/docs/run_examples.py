#!/usr/bin/env python3
"""run_examples.py TOOL GUIDE: runs every example of a guide.

An example is a style in a block marked json, followed by its expectations in a block marked expect. A block marked mapping
may stand in front: the style ids of some feature types, while each other has one of its own. A block of one kind without
the others is a failure, so that no example goes unrun; only blocks of programs are left to another test.
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
EXAMPLE = re.compile(r"(?:mapping )?json expect ")


def feature_types(tool):
    schema = json.loads(subprocess.run([tool, "schema"], check=True, capture_output=True, text=True).stdout)
    names = [entry["const"] for entry in schema["items"]["properties"]["featureType"]["oneOf"]]
    return [name for name in names if name != "all"]


def write_mapping(tool, directory, some):
    lists = {name: [1000 + i] for i, name in enumerate(feature_types(tool))}
    given = json.loads(some)
    assert given.keys() <= lists.keys(), "a mapping names an unknown feature type"
    (directory / "CustomIndex").write_text(json.dumps(lists | given))


def run(tool, directory, blocks):
    command = [tool, "test", directory / "style.json", directory / "expectations"]
    (directory / "style.json").write_text(blocks["json"])
    (directory / "expectations").write_text(blocks["expect"])
    if "mapping" in blocks:
        write_mapping(tool, directory, blocks["mapping"])
        command += ["--mapping", directory]
    result = subprocess.run(command, capture_output=True, text=True)
    return "" if result.returncode == 0 else f"exit status {result.returncode}\n{result.stdout}{result.stderr}"


def examples_of(text):
    """The examples with their lines, or None where blocks are left over."""
    blocks = [(match[1], match[2], text.count("\n", 0, match.start()) + 1) for match in BLOCK.finditer(text)]
    if text.count("```") != 2 * len(blocks):
        return None
    blocks = [block for block in blocks if block[0] != "cpp"]
    kinds = "".join(kind + " " for kind, _, _ in blocks)
    if not kinds or EXAMPLE.sub("", kinds):
        return None
    examples = []
    for kind, content, line in blocks:
        if kind == "mapping" or (kind == "json" and (not examples or "json" in examples[-1][1])):
            examples.append((line, {}))
        examples[-1][1][kind] = content
    return examples


def main(tool, guide):
    examples = examples_of(pathlib.Path(guide).read_text())
    if examples is None:
        print(f"{guide}: not every json block is followed by an expect block, or a block is not closed")
        return 1
    failures = 0
    with tempfile.TemporaryDirectory() as directory:
        for line, blocks in examples:
            problem = run(tool, pathlib.Path(directory), blocks)
            if problem:
                failures += 1
                print(f"{guide}:{line}: {problem}")
    print(f"{len(examples)} examples, {failures} failures")
    return 1 if failures else 0


sys.exit(main(*sys.argv[1:]))
