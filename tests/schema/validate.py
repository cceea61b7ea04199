#!/usr/bin/env python3
"""validate.py TOOL CORPUS STYLES: tries the schema that the tool prints on the styles of the corpus program.

- The schema is a schema.
- The good example styles are valid.
- A rule with one styler is valid if and only if the component does something with it and does not complain.
- The same holds for rules with several stylers.
- What the check has nothing to say about is valid: each violation of the schema is a finding.
"""
import json
import pathlib
import subprocess
import sys

from jsonschema import Draft202012Validator

GOOD_EXAMPLES = ["main-roads", "night", "no-labels", "pale", "transit"]

failures = []


def expect(condition, message, value):
    if not condition:
        failures.append(f"{message}: {json.dumps(value)}")


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def check_line(validator, line):
    style = line["style"]
    is_valid = validator.is_valid(style)
    line["valid"] = is_valid
    if line["part"] in ("single", "random"):
        expect(is_valid or not line["works"], "works, but is a violation", style)
        expect(line["works"] or not is_valid, "does not work, but is valid", style)
    if "findings" in line:
        expect(is_valid or line["findings"] > 0, "is a violation without a finding", style)


def main(tool, corpus, styles):
    schema = json.loads(output_of(tool, "schema"))
    Draft202012Validator.check_schema(schema)
    validator = Draft202012Validator(schema)

    for name in GOOD_EXAMPLES:
        style = json.loads((pathlib.Path(styles) / f"{name}.json").read_text())
        for error in validator.iter_errors(style):
            failures.append(f"{name}.json: {error.json_path}: {error.message}")
    mistakes = json.loads((pathlib.Path(styles) / "mistakes.json").read_text())
    expect(not validator.is_valid(mistakes), "is valid", "mistakes.json")

    lines = [json.loads(line) for line in output_of(corpus).splitlines()]
    for line in lines:
        check_line(validator, line)
    valid = sum(line["valid"] for line in lines if "findings" in line)
    asked = sum("findings" in line for line in lines)
    print(f"{len(lines)} styles, {asked} of them checked, {valid} of those valid, {len(failures)} failures")
    print("\n".join(failures[:50]))
    return 1 if failures else 0


sys.exit(main(*sys.argv[1:]))
