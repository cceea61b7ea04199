#!/usr/bin/env python3
"""output_schemas.py TOOL ROOT: whether every JSON that the tool prints, and each legend that comes along, meets its schema
in docs/schemas, and whether the schemas refuse what they should and list the fields of a style that the tool knows.
"""
import functools
import itertools
import json
import pathlib
import subprocess
import sys
import tempfile

import jsonschema

STYLES = ["night", "pale", "transit", "mistakes", "no-labels", "main-roads"]


def calls(scratch):
    """Each call with the schema of its output and whether that is a document a line."""
    for name in STYLES:
        style = f"examples/styles/{name}.json"
        # The whole map of a large style has thousands of answers alike.
        for mapping in ([], ["--mapping", "examples/map"]) if name in ("pale", "mistakes") else ([],):
            yield "dump", False, ["dump", style, *mapping, "--format", "json"]
            yield "query", False, ["query", style, *mapping, "--type", "highway", "--type", "land", "--level", "all",
                                   "--format", "json"]
            yield "explain", False, ["explain", style, *mapping, "--type", "town", "--level", "4,12,other", "--format",
                                     "json"]
            yield "diff", False, ["diff", style, "examples/styles/night.json", *mapping, "--format", "json"]
        yield "export", False, ["export", style, "--report", "-", "-o", scratch / "style.json"]
        yield "import", False, ["import", scratch / "style.json", "--report", "-", "-o", scratch / "back.json"]
        yield "check", False, ["check", style, "--effects", "--format", "json"]
        yield "check-line", True, ["check", style, "--effects", "--format", "jsonl"]
    for variant in ("night", "winter", "brand"):
        path = f"examples/variants/{variant}.toml"
        yield "check", False, ["check", path, "--effects", "--mapping", "examples/map", "--format", "json"]
        yield "explain", False, ["explain", path, "--type", "highway", "--level", "all", "--format", "json"]
        yield "diff", False, ["diff", "examples/variants/day.toml", path, "--format", "json"]
    yield from calls_of_everything(scratch)
    yield "check", False, ["check", "no/such/style.json", "--format", "json"]
    for what in ("types", "elements", "stylers", "codes"):
        yield "list", False, ["list", what, "--format", "json"]


def calls_of_everything(scratch):
    """Calls that print every field of a style."""
    yield "dump", False, ["dump", scratch / "everything.json", "--format", "json"]
    yield "query", False, ["query", scratch / "everything.json", "--id", "1000-1071", "--level", "10", "--format", "json"]


def legends(root):
    """Each legend with the schema of legends; the tool reads them."""
    for path in sorted((root / "tools/export/legends").iterdir()):
        yield "legend", path.name, [json.loads(path.read_text())]


def outputs(tool, root, scratch):
    for name, by_line, arguments in calls(scratch):
        yield name, " ".join(map(str, arguments)), documents(tool, root, arguments, by_line)


def documents(tool, root, arguments, by_line):
    done = subprocess.run([tool, *arguments], cwd=root, capture_output=True, text=True, check=False)
    return [json.loads(text) for text in (done.stdout.splitlines() if by_line else [done.stdout])]


def listed(tool, root, what):
    return documents(tool, root, ["list", what, "--format", "json"], False)[0][what]


def style_of_everything(tool, root):
    """A style in which each element of each type has each styler."""
    kinds, elements, stylers = (listed(tool, root, what) for what in ("types", "elements", "stylers"))
    return [{"featureType": kind["name"], "elementType": element["path"],
             "stylers": {styler["name"]: json.loads(styler["example"])}}
            for kind, element, styler in itertools.product(kinds, elements, stylers) if styler["name"] != "level"]


def field_lists(tool, root, scratch):
    """Where the fields of a style are listed: in three schemas, and in what is printed of a style with all of them."""
    explanation = validator_of(root, "explain").schema["properties"]["explanations"]["items"]["properties"]
    yield "explain.schema.json", [name for name, value in explanation.items() if value == {"$ref": "#/$defs/history"}]
    for name, _, arguments in calls_of_everything(scratch):
        yield f"{name}.schema.json", validator_of(root, name).schema["$defs"]["style"]["properties"]
        answers = documents(tool, root, arguments, False)[0]["styles" if name == "dump" else "answers"]
        yield f"{name} of a style with all stylers", [field for answer in answers for field in answer["style"]]


def unequal_fields(tool, root, scratch):
    """What the lists of fields lack, or have without explain's telling of it."""
    call = ["explain", "examples/styles/night.json", "--type", "town", "--level", "4", "--format", "json"]
    explanation = documents(tool, root, call, False)[0]["explanations"][0]
    known = {name for name, value in explanation.items() if isinstance(value, dict)}
    of_answer = {"icon", "land_background", "grid_background"}  # explained, too, but not a member of the style
    for where, names in field_lists(tool, root, scratch):
        fields = set(names) - of_answer
        yield from [f'{where}: "{name}" is missing, explain has it' for name in sorted(known - of_answer - fields)]
        yield from [f'{where}: "{name}" is there, explain does not have it' for name in sorted(fields - known)]


def misread(document):
    """The document with a member that no schema knows, and with another version."""
    yield document | {"surprise": 1}
    yield document | {"version": 0}


@functools.cache
def validator_of(root, name):
    schema = json.loads((root / f"docs/schemas/{name}.schema.json").read_text())
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(schema)


def failures_of(validator, call, found):
    for document in found:
        yield from [f"{call}: {error.json_path}: {error.message[:200]}" for error in validator.iter_errors(document)][:3]


def leniencies(validator, name, document):
    if any(validator.is_valid(wrong) for wrong in misread(document)):
        yield f"{name}: the schema takes anything"


def main(tool, root):
    root = pathlib.Path(root)
    failures = []
    count = 0
    refused = set()
    with tempfile.TemporaryDirectory() as folder:
        scratch = pathlib.Path(folder)
        (scratch / "everything.json").write_text(json.dumps(style_of_everything(tool, root)))
        for name, call, found in (*outputs(tool, root, scratch), *legends(root)):
            count += len(found)
            validator = validator_of(root, name)
            failures += failures_of(validator, call, found)
            if found and name not in refused:
                refused.add(name)
                failures += leniencies(validator, name, found[0])
        failures = [*unequal_fields(tool, root, scratch), *failures]
    print(f"{count} documents, {len(failures)} failures")
    print("\n".join(failures[:30]))
    return 1 if failures or count < 50 else 0


sys.exit(main(*sys.argv[1:]))
