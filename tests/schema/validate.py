#!/usr/bin/env python3
"""validate.py TOOL CORPUS STYLES: tries the schema that the tool prints on the styles of the corpus program.

- The schema is a schema, and uses only words that its readers know.
- The good example styles are valid.
- A rule with one styler is valid if and only if the component does something with it and does not complain.
- The same holds for rules with several stylers.
- What the check has nothing to say about is valid: each violation of the schema is a finding.
- Mistakes that can be seen without a map are violations, both in the standard form and in the form for editors.
- What the form for editors says about elements and label types is true, and its examples are valid.
"""
import json
import pathlib
import re
import subprocess
import sys

from jsonschema import Draft202012Validator, ValidationError, validators

GOOD_EXAMPLES = ["main-roads", "night", "no-labels", "pale", "transit"]

# Of the keywords of the standard those that style files need; "format" is none of them, as it would refuse nothing.
STANDARD_WORDS = {"$schema", "$id", "title", "description", "examples", "type", "const", "enum", "pattern", "required",
                  "items", "properties", "patternProperties", "additionalProperties", "allOf", "anyOf", "oneOf", "not",
                  "if", "then"}
EDITOR_WORDS = STANDARD_WORDS | {"markdownDescription", "errorMessage", "enumDescriptions", "defaultSnippets", "format"}
REMEMBERED_WORDS = ["properties", "allOf", "anyOf", "oneOf", "not", "if"]
CHECKED_TWICE = 40  # one style in so many
SCHEMA_IN = ["items", "additionalProperties", "not", "if", "then"]
SCHEMAS_IN = ["allOf", "anyOf", "oneOf"]
NAMED_SCHEMAS_IN = ["properties", "patternProperties"]

failures = []


def remembering(word):
    """The keyword of the validator, which asks once about each value: a violation it knows is one without details."""
    original, known = Draft202012Validator.VALIDATORS[word], {}

    def errors_of(validator, argument, instance, schema):
        key = id(schema), repr(instance)
        if key not in known:
            # Keeps the schema, so that no other one gets its address.
            known[key] = schema, next(iter(original(validator, argument, instance, schema) or ()), None) is None
        if not known[key][1]:
            yield ValidationError("known violation")

    return errors_of


# For yes or no. Without references each answer depends on the part of the schema and on the value alone; rules differ
# in how they combine few values.
QuickValidator = validators.extend(Draft202012Validator, {word: remembering(word) for word in REMEMBERED_WORDS})


def expect(condition, message, value):
    if not condition:
        failures.append(f"{message}: {json.dumps(value)}")


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def schemas_below(schema):
    if not isinstance(schema, dict):
        return
    yield schema
    inner = [schema[word] for word in SCHEMA_IN if word in schema]
    inner += [each for word in SCHEMAS_IN for each in schema.get(word, [])]
    inner += [each for word in NAMED_SCHEMAS_IN for each in schema.get(word, {}).values()]
    for each in inner:
        yield from schemas_below(each)


def check_words(schema, words):
    members = {"featureType", "elementType", "stylers", "color", "visibility", "weight", "fontsize", "level"}
    for each in schemas_below(schema):
        expect(each.keys() <= words, "unknown keywords", sorted(each.keys() - words))
        expect(each.get("properties", {}).keys() <= members, "unknown members", list(each.get("properties", {})))


def check_examples(schema):
    validator = Draft202012Validator(schema)
    for snippet in schema["items"]["defaultSnippets"]:
        expect(snippet.keys() == {"label", "description", "body"}, "a snippet has other members", snippet)
        filled = re.sub(r"\$\{\d+:([^}]*)\}", r"\1", json.dumps([snippet["body"]]))
        expect(validator.is_valid(json.loads(filled)), "a snippet is a violation", filled)
    stylers = schema["items"]["properties"]["stylers"]["properties"]
    for name, styler in stylers.items():
        example = json.loads("{" + re.search("`(.*)`", styler["markdownDescription"]).group(1) + "}")
        expect(list(example) == [name], "the example is of another styler", example)
        expect(Draft202012Validator(styler).is_valid(example.get(name)), "the example is a violation", example)
        expect(styler["title"] == name, "the title is not the name", styler["title"])


# Roads and areas have a type for their names, which is called like them.
def check_label_types(schema):
    types = schema["items"]["properties"]["featureType"]
    reaching = []
    for index, (name, description) in enumerate(zip(types["enum"], types["enumDescriptions"], strict=True)):
        expect(f"Feature type {index}." in description, "another number", [name, description])
        reached = re.search(r"Rules for its labels reach (\w+) as well\.", description)
        if reached:
            reaching.append(name)
            expect(reached.group(1) == name + "label" and reached.group(1) in types["enum"], "reaches another type",
                   [name, description])
    expect(len(reaching) == 16, "other types reach labels", reaching)


def messages_of(validator, style):
    """What an editor says: the nearest message on the way to each violated part of the schema."""
    for error in validator.iter_errors(style):
        schema, message = validator.schema, None
        for step in error.absolute_schema_path:
            schema = schema[step]
            if isinstance(schema, dict):
                message = schema.get("errorMessage", message)
        yield message


def check_message(message, elements, works):
    """works(path, styler) says whether a styler, or any for none, does something to the type of the rule."""
    where = re.fullmatch(r"No effect: (.*) (?:does nothing to|works on) this element(?: of this feature type)?"
                         r"(?:; it works on (.*))?\.", message)
    if where:
        styler = None if where.group(1) == "no styler" else where.group(1)
        expected = [path for path in elements if works(path, styler)]
        named = where.group(2).split(", ") if where.group(2) else []
        expect(named == expected, f"names other elements than {expected}", message)
        return True
    nowhere = re.fullmatch(r"No effect: (.*) does nothing to this feature type\.", message)
    if nowhere:
        expect(not any(works(path, nowhere.group(1)) for path in elements), "works", message)
        return True
    unknown = re.fullmatch(r"Unknown element: .* Write one of (.*)\.", message)
    if unknown:
        expect(unknown.group(1).split(", ") == elements, "names other elements", message)
    return bool(unknown)


def shown_styler(stylers):
    [(name, value)] = stylers.items()
    return f'"{name}": "{value}"' if name == "visibility" else name


def check_messages(schema, lines):
    validator = Draft202012Validator(schema)
    elements = [each["const"] for each in schema["items"]["properties"]["elementType"]["anyOf"][0]["oneOf"]]
    rules = [(line["style"][0], line["works"]) for line in lines if line["part"] == "single" and "findings" in line]
    working = {(rule["featureType"], rule["elementType"], shown)
               for rule, works in rules if works for shown in (None, shown_styler(rule["stylers"]))}
    expect(set(elements) <= {rule["elementType"] for rule, _ in rules}, "not all in the corpus", elements)
    for rule, works in rules:
        if works:
            continue
        messages = list(messages_of(validator, [rule]))
        known = [check_message(message, elements, lambda path, shown: (rule["featureType"], path, shown) in working)
                 for message in messages]
        expect(known and all(known), "other messages", [rule, messages])


def check_line(validator, for_editors, line):
    style = line["style"]
    is_valid = validator.is_valid(style)
    line["valid"] = is_valid
    if line["part"] in ("single", "random"):
        expect(is_valid or not line["works"], "works, but is a violation", style)
        expect(line["works"] or not is_valid, "does not work, but is valid", style)
    if "findings" in line:
        expect(is_valid or line["findings"] > 0, "is a violation without a finding", style)
    if line["part"] == "peculiar":
        # A style without rules is one that does nothing, and what a new file starts from.
        expect(is_valid == (line["findings"] == 0 or style == []), "is valid, but has findings", style)
        expect(for_editors.is_valid(style) == is_valid, "is another thing to editors", style)


def main(tool, corpus, styles):
    schema = json.loads(output_of(tool, "schema"))
    editor_schema = json.loads(output_of(tool, "schema", "--editor"))
    Draft202012Validator.check_schema(schema)
    check_words(schema, STANDARD_WORDS)
    check_words(editor_schema, EDITOR_WORDS)
    check_examples(editor_schema)
    check_label_types(editor_schema)
    validator = Draft202012Validator(schema)

    for name in GOOD_EXAMPLES:
        style = json.loads((pathlib.Path(styles) / f"{name}.json").read_text())
        for error in validator.iter_errors(style):
            failures.append(f"{name}.json: {error.json_path}: {error.message}")
    mistakes = json.loads((pathlib.Path(styles) / "mistakes.json").read_text())
    expect(not validator.is_valid(mistakes), "is valid", "mistakes.json")

    lines = [json.loads(line) for line in output_of(corpus).splitlines()]
    quick, for_editors = QuickValidator(schema), Draft202012Validator(editor_schema)
    for line in lines:
        check_line(quick, for_editors, line)
    # What it remembers changes no answer.
    for line in lines[::CHECKED_TWICE]:
        expect(validator.is_valid(line["style"]) == line["valid"], "is another thing to the plain validator", line)
    check_messages(editor_schema, lines)
    valid = sum(line["valid"] for line in lines if "findings" in line)
    asked = sum("findings" in line for line in lines)
    print(f"{len(lines)} styles, {asked} of them checked, {valid} of those valid, {len(failures)} failures")
    print("\n".join(failures[:50]))
    return 1 if failures else 0


sys.exit(main(*sys.argv[1:]))
