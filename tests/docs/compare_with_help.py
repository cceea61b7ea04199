#!/usr/bin/env python3
"""compare_with_help.py TOOL MANUAL COMPLETION DOCUMENT...: whether all that the help of the tool names is in its manual
page and in the completion of bash, subcommand by subcommand, and nothing else; and whether the calls that documents show
name subcommands and options that there are.
"""
import re
import subprocess
import sys


def help_of(tool, *subcommand):
    return subprocess.run([tool, *subcommand, "--help"], check=True, capture_output=True, text=True).stdout


def subcommands_of(text):
    return re.findall(r"^  (\w+)  ", text[text.index("Subcommands:"):], re.MULTILINE)


def options_of(text):
    listed = text[text.index("Options:"):].split("\n\n")[0]
    lines = re.findall(r"^  ((?:-\w,)?--[\w-]+)", listed, re.MULTILINE)
    return {option for line in lines for option in line.split(",") if option.startswith("--")}


def values_of(text):
    found = re.search(r"--format TEXT:\{([\w,]+)\}", text)
    return set(found[1].split(",")) if found else set()


def manual_sections(text):
    parts = re.split(r"^\.Ss (\w+)$", text.split(".Sh ENVIRONMENT")[0], flags=re.MULTILINE)
    return dict(zip(parts[1::2], parts[2::2]))


def manual_options(section):
    return {"-" + option for option in re.findall(r"\bFl (-[\w-]+)", section)} | {"--help"}


def manual_values(section):
    found = re.search(r"Fl -format Cm ([\w |]+)", section)
    return set(found[1].split(" | ")) if found else set()


def completed(completion, *words):
    """What bash offers for the last word."""
    script = f'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _customstyle; printf "%s\\n" "${{COMPREPLY[@]}}"'
    command = ["bash", "-c", script, "bash", completion, "customstyle", *words]
    return set(subprocess.run(command, check=True, capture_output=True, text=True).stdout.split())


def calls_in(text):
    """The calls that a text shows: subcommand and options."""
    found = re.findall(r"(?<![\w:])customstyle ([a-z]+)\b([^`\n|]*)", text)
    return [(subcommand, set(re.findall(r"(?<=\s)--[\w-]+", rest))) for subcommand, rest in found]


failures = []


def expect_equal(what, expected, actual):
    if expected != actual:
        failures.append(f"{what}: missing {sorted(expected - actual)}, unknown {sorted(actual - expected)}")


def check_calls(path, options):
    with open(path) as document:
        calls = calls_in(document.read())
    if not calls:
        failures.append(f"{path}: shows no call")
    for subcommand, named in calls:
        unknown = named - options.get(subcommand, set())
        if subcommand not in options or unknown:
            failures.append(f"{path}: there is no {subcommand} {' '.join(sorted(unknown))}")


def main(tool, manual_path, completion, *documents):
    with open(manual_path) as manual:
        text = manual.read()
    sections = manual_sections(text)
    top = help_of(tool)
    subcommands = set(subcommands_of(top))
    expect_equal("manual: subcommands", subcommands, set(sections))
    expect_equal("manual: synopsis", subcommands, set(re.findall(r"^\.Cm (\w+)$", text.split(".Sh DESC")[0], re.MULTILINE)))
    expect_equal("manual: options", options_of(top), manual_options(text.split(".Sh DESC")[0].split(".Cm")[0]))
    expect_equal("completion: subcommands", subcommands | options_of(top), completed(completion, ""))
    for subcommand in sorted(subcommands & set(sections)):
        help_text = help_of(tool, subcommand)
        options = options_of(help_text)
        expect_equal(f"manual: options of {subcommand}", options, manual_options(sections[subcommand]))
        expect_equal(f"completion: options of {subcommand}", options, completed(completion, subcommand, "--"))
        expect_equal(f"manual: formats of {subcommand}", values_of(help_text), manual_values(sections[subcommand]))
        if values_of(help_text):
            expect_equal(f"completion: formats of {subcommand}", values_of(help_text),
                         completed(completion, subcommand, "--format", ""))
    known = {subcommand: options_of(help_of(tool, subcommand)) for subcommand in subcommands}
    for document in (manual_path, *documents):
        check_calls(document, known)
    print(f"{len(subcommands)} subcommands, {len(failures)} failures")
    print("\n".join(failures))
    return 1 if failures or not subcommands else 0


sys.exit(main(*sys.argv[1:]))
