#!/usr/bin/env python3
"""check_includes.py [ROOT]: whether every source includes only what its folder may include.

Names each include that is not allowed with its file and line, and exits with 1 if there is one.
"""

import os
import re
import sys

# A folder, and the folders right below it. A folder may include its own files, the folders below it, and what is below
# those in turn. Folders are named as include paths name them; "customstyle" means the public headers.
BELOW = {
    # base library and component
    "vi": [],
    "customstyle": ["vi"],
    "customstyle/json": ["vi"],
    "customstyle/model": ["customstyle"],
    "customstyle/styling": ["customstyle/model", "customstyle/json"],
    "customstyle/loading": ["customstyle/styling"],
    "customstyle/queries": ["customstyle/model"],
    "stylesnapshot": ["customstyle/queries"],
    # tools: public headers of the component only
    "tools/support": [],
    "tools/json": ["tools/support"],
    "tools/vocabulary": ["tools/json", "customstyle"],
    "tools/study": ["tools/vocabulary"],
    # files and threads, which a page has none of
    "tools/host": ["tools/study"],
    # readers of the study, which do not know each other
    "tools/check": ["tools/study"],
    "tools/explain": ["tools/study"],
    "tools/export": ["tools/study"],
    # the way back, by the same legends; it writes style files
    "tools/import": ["tools/export", "tools/layout"],
    "tools/layout": ["tools/host"],
    "tools/build": ["tools/layout"],
    # the studio's server, and nobody else, speaks HTTP
    "tools/server": ["tools/host"],
    "tools/minify": ["tools/study"],
    "tools/schema": ["tools/study"],
    # but these two speak of answers as "explain" does
    "tools/diff": ["tools/explain"],
    "tools/expectations": ["tools/explain"],
    # programs
    "tools/customstyle": ["tools/build", "tools/check", "tools/diff", "tools/expectations", "tools/export", "tools/host",
                          "tools/import", "tools/layout", "tools/minify", "tools/schema", "tools/server"],
    "studio": ["tools/check", "tools/diff", "tools/expectations", "tools/import", "tools/minify", "tools/schema"],
    "examples": ["customstyle"],
    "cmake": [],
    # what planted faults ask
    "script": [],
    # what looks at all of it
    "bench": ["tools/customstyle", "studio"],
    "tests": ["bench", "examples", "stylesnapshot", "customstyle/loading"],
    "fuzz": ["tests"],
}

# Include paths are relative to these.
ROOTS = ["engine/dev/inc/", "engine/dev/src/", "sdkengine/src/app/map/customstyle/include/",
         "sdkengine/src/app/map/stylesnapshot/include/", "sdkengine/src/app/map/"]
SOURCE = re.compile(r"\.(h|cpp)$")
INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')


def folder_of(include):
    """The folder of the table that an include path names, or None."""
    parts = include.split("/")[:-1]
    depth = 2 if parts[:1] in (["customstyle"], ["tools"]) else 1
    folder = "/".join(parts[:depth])
    return folder if folder in BELOW else None


def folder_of_file(path):
    root = next((root for root in ROOTS if path.startswith(root)), "")
    return folder_of(path[len(root):])


def reach(folder):
    """All that a folder may include."""
    reached = {folder}
    for below in BELOW[folder]:
        reached |= reach(below)
    return reached


def includes(path):
    with open(path, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            match = INCLUDE.match(line)
            if match:
                yield number, match[1] == '"', match[2]


def faults_of(root, path):
    folder = folder_of_file(path)
    if folder is None:
        yield f"{path}:1: the folder has no line in {os.path.relpath(__file__, root)}"
        return
    allowed = reach(folder)
    for number, quoted, included in includes(os.path.join(root, path)):
        target = folder_of(included)
        if target is None and quoted:
            yield f"{path}:{number}: \"{included}\" begins with no folder of ours; includes name their root"
        elif target is not None and target not in allowed:
            yield f"{path}:{number}: {folder} must not include {target} (\"{included}\")"


def sources(root):
    for folder, folders, files in os.walk(root):
        folders[:] = sorted(name for name in folders
                            if not name.startswith((".", "build")) and name != "node_modules")
        for name in sorted(files):
            if SOURCE.search(name):
                yield os.path.relpath(os.path.join(folder, name), root)


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else "."
    count = 0
    faults = []
    for path in sources(root):
        count += 1
        faults += faults_of(root, path)
    for fault in faults:
        print(fault)
    if count == 0:
        sys.exit(f"{root}: there are no sources")
    print(f"{count} sources, {len(faults)} includes that are not allowed")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
