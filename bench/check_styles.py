#!/usr/bin/env python3
"""check_styles.py TOOL [STYLES [RULES]]: how many styles a second the check does, spread over two processors by xargs.

Each style has rules for types, elements and values drawn at random, the same for the same number: most of them fine, some
of them lost at a level or written again, as in real files. Prints styles a second, and processor time for one style, with
the mapping of the examples and for every map, 50 files a process.
"""
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time

MAP = pathlib.Path(__file__).resolve().parent.parent / "examples/map"
ELEMENTS = ["geometry", "geometry.fill", "geometry.stroke", "labels.text.fill", "labels.text.stroke", "labels", "all"]


def feature_types(tool):
    listed = json.loads(subprocess.run([tool, "list", "types", "--format", "json"], check=True, capture_output=True).stdout)
    return [each["name"] for each in listed["types"] if each["name"] != "all"]


def rule(dice, types):
    stylers = {"color": f"#{dice.randrange(1 << 24):06x}"}
    if dice.random() < 0.2:
        stylers = {"weight": str(dice.randrange(1, 12))}
    if dice.random() < 0.05:
        stylers = {"visibility": "off"}
    if dice.random() < 0.2:
        stylers["level"] = str(dice.randrange(4, 22))
    return {"featureType": dice.choice(types), "elementType": dice.choice(ELEMENTS), "stylers": stylers}


def write_styles(folder, types, styles, rules):
    for number in range(styles):
        dice = random.Random(number)
        text = ",\n  ".join(json.dumps(rule(dice, types)) for _ in range(rules))
        (folder / f"{number}.json").write_text(f"[\n  {text}\n]\n")


def measure(tool, folder, options):
    """Seconds and processor seconds for all styles."""
    before, start = os.times(), time.monotonic()
    command = f'ls "$1" | sed "s|^|$1/|" | xargs -n 50 -P 2 "$2" check {options} --format jsonl >/dev/null; true'
    subprocess.run(["bash", "-c", command, "bash", folder, tool], check=True)
    after = os.times()
    used = after.children_user + after.children_system - before.children_user - before.children_system
    return time.monotonic() - start, used


def main(tool, styles="2000", rules="50"):
    styles = int(styles)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        write_styles(folder, feature_types(tool), styles, int(rules))
        for what, options in (("every map", ""), ("examples/map", f"--mapping {MAP}")):
            seconds, used = measure(tool, folder, options)
            print(f"{what}: {styles / seconds:.0f} styles a second, "
                  f"{1000 * used / styles:.2f} ms of processor time each")


main(*sys.argv[1:])
