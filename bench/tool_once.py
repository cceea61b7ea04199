#!/usr/bin/env python3
"""Runs a program once and prints what it took as one JSON object: tool_once.py COMMAND FILES PROGRAM [ARGUMENT...]

COMMAND and FILES only name the run. Exit status 1 is the program's finding; a higher one ends this with an error.
"""

import json
import resource
import subprocess
import sys
import time


def main(command, files, *call):
    begin = time.monotonic()
    status = subprocess.run(call, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False).returncode
    seconds = time.monotonic() - begin
    if status not in (0, 1):
        sys.exit(f"{' '.join(call)}: exit status {status}")
    peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss
    print(json.dumps({"command": command, "files": files, "seconds": seconds, "peak_kb": peak}))


if __name__ == "__main__":
    main(*sys.argv[1:])
