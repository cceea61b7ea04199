#!/usr/bin/env python3
"""validate_sarif.py TOOL MAPPING STYLE...: whether what the tool prints as SARIF is what SARIF 2.1.0 asks for.

- Each object has the properties that it must have, with values of the right kind, and none that there is not.
- Each result names a rule of the driver by id and index, and is as severe as the rule.
- Each region is the same place by lines and columns, counted in code points from 1, and by bytes.
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import urllib.parse

LEVELS = {"none", "note", "warning", "error"}
HARD_STYLE = ('\ufeff[\r\n  {"featureType": "lac d\u2019Ann\u00e9cy \U0001F30A", "elementType": "all",\r\n'
              '\t"stylers": {"color": "bleu fonc\u00e9", "\u00e9l\u00e9ment": "x", "weight": "1\u00bd"}},\n 12]\n// \u2026')

failures = []


def expect(condition, place, message):
    if not condition:
        failures.append(f"{place}: {message}")
    return condition


def is_text(value):
    return isinstance(value, str) and value != ""


def from_number(lowest):
    return lambda value: isinstance(value, int) and not isinstance(value, bool) and value >= lowest


def is_uri(value):
    return is_text(value) and re.fullmatch(r"[A-Za-z0-9\-._~:/?#\[\]@!$&'()*+,;=%]*", value) is not None


def is_absolute_uri(value):
    return is_uri(value) and re.match(r"[A-Za-z][A-Za-z0-9+.-]*:.", value) is not None


def in_set(values):
    return lambda value: value in values


def is_list(value):
    return isinstance(value, list) and len(value) > 0


def is_object(value):
    return isinstance(value, dict)


# Kinds of objects: the properties that each must have, and those that it may have.
REQUIRED = {
    "log": {"version": in_set({"2.1.0"}), "runs": is_list},
    "run": {"tool": is_object, "columnKind": in_set({"unicodeCodePoints"}), "results": lambda v: isinstance(v, list)},
    "driver": {"name": is_text, "version": is_text, "rules": is_list},
    "rule": {"id": is_text, "helpUri": is_absolute_uri, "shortDescription": is_object, "help": is_object, "defaultConfiguration": is_object},
    "message": {"text": is_text},
    "configuration": {"level": in_set(LEVELS)},
    "result": {"ruleId": is_text, "ruleIndex": from_number(0), "level": in_set(LEVELS), "message": is_object,
               "locations": is_list},
    "location": {"physicalLocation": is_object},
    "physicalLocation": {"artifactLocation": is_object, "region": is_object},
    "artifactLocation": {"uri": is_uri},
    "region": {"startLine": from_number(1), "startColumn": from_number(1), "endLine": from_number(1),
               "endColumn": from_number(1), "byteOffset": from_number(0), "byteLength": from_number(0)},
    "logicalLocation": {"fullyQualifiedName": is_text},
    "invocation": {"executionSuccessful": in_set({True, False})},
    "notification": {"message": is_object},
    "fix": {"description": is_object, "artifactChanges": is_list},
    "artifactChange": {"artifactLocation": is_object, "replacements": is_list},
    "replacement": {"deletedRegion": is_object},
    "content": {"text": lambda v: isinstance(v, str)},
}
OPTIONAL = {
    "log": {"$schema": is_uri},
    "rule": {"fullDescription": is_object},
    "run": {"invocations": is_list},
    "invocation": {"toolExecutionNotifications": lambda v: isinstance(v, list)},
    "notification": {"level": in_set(LEVELS)},
    "message": {"markdown": is_text},
    "replacement": {"insertedContent": is_object},
    "result": {"relatedLocations": is_list, "fixes": is_list, "partialFingerprints": is_object},
    "location": {"logicalLocations": is_list, "message": is_object},
}
PARTS = {
    "log": {"runs": "run"},
    "run": {"invocations": "invocation"},
    "invocation": {"toolExecutionNotifications": "notification"},
    "notification": {"message": "message"},
    "fix": {"description": "message", "artifactChanges": "artifactChange"},
    "artifactChange": {"artifactLocation": "artifactLocation", "replacements": "replacement"},
    "replacement": {"deletedRegion": "region", "insertedContent": "content"},
    "driver": {"rules": "rule"},
    "rule": {"shortDescription": "message", "fullDescription": "message", "help": "message",
             "defaultConfiguration": "configuration"},
    "result": {"message": "message", "locations": "location", "relatedLocations": "location",
               "fixes": "fix"},
    "location": {"physicalLocation": "physicalLocation", "logicalLocations": "logicalLocation", "message": "message"},
    "physicalLocation": {"artifactLocation": "artifactLocation", "region": "region"},
}


def check_object(kind, value, place):
    if not expect(isinstance(value, dict), place, "is no object"):
        return
    required, optional = REQUIRED[kind], OPTIONAL.get(kind, {})
    for name in required.keys() - value.keys():
        expect(False, place, f"lacks {name}")
    for name, member in value.items():
        test = required.get(name) or optional.get(name)
        if expect(test is not None, place, f"{kind} has no property {name}"):
            expect(test(member), place, f"{name} must not be {json.dumps(member)[:80]}")
    for name, part in PARTS.get(kind, {}).items():
        members = value.get(name, [])
        for i, member in enumerate(members if isinstance(members, list) else [members]):
            check_object(part, member, f"{place}.{name}[{i}]")


def path_of(uri, folder):
    return folder / urllib.parse.unquote(uri.removeprefix("file://"))


def offset_of(text, line, column):
    lines = re.split(r"(?<=\n)", text)
    return sum(map(len, lines[:line - 1])) + column - 1


def check_region(place, region, folder):
    data = path_of(place["artifactLocation"]["uri"], folder).read_bytes()
    marks = 1 if data.startswith(b"\xef\xbb\xbf") else 0  # a byte order mark is no character of the text
    text = data[3 * marks:].decode()
    begin, end = (offset_of(text, region[f"{side}Line"], region[f"{side}Column"]) for side in ("start", "end"))
    by_bytes = data[region["byteOffset"]:region["byteOffset"] + region["byteLength"]]
    expect(begin <= end and text[begin:end].encode() == by_bytes, place["artifactLocation"]["uri"],
           f"{text[begin:end]!r} by columns is {by_bytes!r} by bytes")


def check_result(result, rules, folder):
    rule = rules[result["ruleIndex"]] if result["ruleIndex"] < len(rules) else {}
    expect(rule.get("id") == result["ruleId"], result["ruleId"], f"has the index {result['ruleIndex']}")
    expect(rule.get("defaultConfiguration", {}).get("level") == result["level"], result["ruleId"], "has another level")
    for location in result["locations"] + result.get("relatedLocations", []):
        place = location["physicalLocation"]
        check_region(place, place["region"], folder)
    for location in result.get("relatedLocations", []):
        expect("message" in location, result["ruleId"], "has a related location without a message")


def check_log(log, folder):
    check_object("log", log, "$")
    if failures:
        return
    for run in log["runs"]:
        expect(run["tool"].keys() == {"driver"}, "tool", "must have a driver only")
        check_object("driver", run["tool"]["driver"], "$.driver")
        for result in run["results"]:
            check_object("result", result, "$.result")
        rules = run["tool"]["driver"]["rules"]
        expect(len({rule["id"] for rule in rules}) == len(rules), "$.driver.rules", "have ids in common")
        if not failures:
            for result in run["results"]:
                check_result(result, rules, folder)


def main(tool, mapping, *styles):
    with tempfile.TemporaryDirectory() as directory:
        folder = pathlib.Path(directory)
        (folder / "h\u00e4rt%est style.json").write_bytes(HARD_STYLE.encode())
        paths = [*styles, folder / "h\u00e4rt%est style.json", "h\u00e4rt%est style.json"]
        command = [pathlib.Path(tool).absolute(), "check", "--format", "sarif", "--effects", "--mapping", mapping, *paths]
        result = subprocess.run(command, capture_output=True, text=True, cwd=folder)
        expect(result.returncode == 1, "exit status", f"is {result.returncode}: {result.stderr}")
        log = json.loads(result.stdout)
        check_log(log, folder)
    count = len(log["runs"][0]["results"])
    expect(count > 100, "results", f"are {count}")
    print(f"{count} results, {len(failures)} failures")
    print("\n".join(failures[:50]))
    return 1 if failures else 0


sys.exit(main(*sys.argv[1:]))
