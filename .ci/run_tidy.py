#!/usr/bin/env python3
"""Runs clang-tidy with .clang-tidy over the sources that ship, as many at a time as there are processors.

Usage: run_tidy.py BUILD_DIR [PATH_PART]. BUILD_DIR has a compile_commands.json of Clang. Tests and benchmarks are left
out: the compiler's warnings are enough for them. PATH_PART picks sources whose path holds it.
"""
import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys

FOLDERS = ("Platform", "FilterUtils", "Filters", "Tool")
SECONDS_PER_FILE = 300
FINDING = re.compile(r"^(?P<file>/[^:]+):(?P<line>\d+):\d+: (?:error|warning): (?P<what>.*?)"
                     r" \[(?P<check>[\w.,-]+?)(?:,-warnings-as-errors)?\]$")


def run_tidy(source, build):
    return subprocess.run(["clang-tidy", "-p", build, "--quiet", str(source)], stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, encoding="utf-8", check=False, timeout=SECONDS_PER_FILE)


def check(source, build, root):
    try:
        run = run_tidy(source, build)
        if run.returncode < 0:  # died of a signal; once more, to tell a crash from a machine in trouble
            run = run_tidy(source, build)
    except subprocess.TimeoutExpired:
        return [f"{source.relative_to(root)}:1: clang-tidy took over {SECONDS_PER_FILE} s: split the file"]
    lines, found = [], 0
    for line in run.stdout.splitlines():
        match = FINDING.match(line)
        if match:
            found += 1
            path = os.path.relpath(match["file"], root)
            if path.startswith(".."):
                continue  # the analyzer lost its way in a library, where nothing can be said to it
            lines.append(f"{path}:{match['line']}: {match['what']}: see {match['check']}")
    if run.returncode and not found:
        lines.append(f"{source.relative_to(root)}:1: clang-tidy ended with {run.returncode}: {run.stdout}{run.stderr}")
    return lines


def main(build, part=""):
    root = pathlib.Path.cwd()
    commands = json.loads((pathlib.Path(build) / "compile_commands.json").read_text(encoding="utf-8"))
    sources = sorted({pathlib.Path(command["file"]) for command in commands})
    sources = [path for path in sources if path.is_relative_to(root) and part in str(path.relative_to(root))
               and path.relative_to(root).parts[0] in FOLDERS]
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        found = {line for lines in pool.map(lambda path: check(path, build, root), sources) for line in lines}
    print("\n".join(sorted(found)), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
