#!/usr/bin/env python3
"""Runs clang-tidy with .clang-tidy over the sources of a build, as many at a time as there are processors.

Usage: run_tidy.py BUILD_DIR [PATH_PART]. BUILD_DIR has a compile_commands.json of Clang, whose warnings are findings as
well. They are all that is asked of tests and benchmarks; fuzzers are not in it. PATH_PART picks sources whose path holds it.

Nearly all of clang-tidy's time goes into the headers of the libraries, which every source brings along. So sources of one
folder and one target that define no name twice are checked as one text, and the lines that it finds are told in terms of
the sources. Where the compiler has something to say, the sources are checked by halves, and in the end one by one.
"""
import concurrent.futures
import itertools
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

SHIPPED_FOLDERS = ("Platform", "FilterUtils", "Filters", "Tool")
# The compiler's warnings do not count as a check of the tool, which wants one.
WARNINGS_ALONE = ["--checks=-*,clang-diagnostic-*,bugprone-suspicious-semicolon", "--header-filter=.*"]
SECONDS_PER_TEXT = 600
# States of a function that the analyzer looks at; with its own 225,000 it takes two thirds of all the time.
ANALYZER = ["--extra-arg=-Xclang", "--extra-arg=-analyzer-config", "--extra-arg=-Xclang", "--extra-arg=max-nodes=50000"]
SOURCES_PER_TEXT = 8
FINDING = re.compile(r"^(?P<file>/[^:]+):(?P<line>\d+):\d+: (?:error|warning|fatal error): (?P<what>.*?)"
                     r" \[(?P<check>[\w.,-]+?)(?:,-warnings-as-errors)?\]$")
# A name that a line at the left margin defines: of a type, a constant or a function, but for members.
DEFINED = re.compile(r"^(?:(?:struct|class|enum class|enum) +(?P<type>\w+)|using (?P<alias>\w+) *="
                     r"|(?!return |namespace |using |template|#|/)\w[\w:<>,&* ]*?[ &*](?P<name>\w+)(?:\(|\[| =|\{|;))", re.MULTILINE)


def defined_names(text):
    return {match["type"] or match["alias"] or match["name"] for match in DEFINED.finditer(text)}


def make_groups(commands):
    """Lists of sources, each of one folder and with one command, that define different names."""
    def kind(command):
        words = [word for word in shlex.split(command["command"]) if word.startswith(("-D", "-I", "-isystem", "-std"))]
        return str(pathlib.Path(command["file"]).parent), " ".join(words)

    groups = []
    for _, alike in itertools.groupby(sorted(commands, key=kind), kind):
        open_groups = []
        for command in alike:
            names = defined_names(pathlib.Path(command["file"]).read_text(encoding="utf-8"))
            home = next((group for group in open_groups
                         if len(group[0]) < SOURCES_PER_TEXT and not group[1] & names), None)
            if home is None:
                home = ([], set())
                open_groups.append(home)
            home[0].append(command)
            home[1].update(names)
        groups += [group for group, _ in open_groups]
    return sorted(groups, key=len, reverse=True)


def join(group, folder):
    """One source that holds those of a group, and where each of its lines comes from."""
    text, origins, included = [], [], set()
    for command in group:
        path = pathlib.Path(command["file"])
        lines = path.read_text(encoding="utf-8").splitlines()
        includes = {line for line in lines if line.startswith("#include ")}
        text += ["" if line in included else line for line in lines]
        included |= includes
        origins += [(path, number) for number in range(1, len(lines) + 1)]
    joined = pathlib.Path(folder) / pathlib.Path(group[0]["file"]).name
    joined.write_text("\n".join(text) + "\n", encoding="utf-8")
    command = dict(group[0], file=str(joined), command=group[0]["command"].replace(group[0]["file"], str(joined)))
    (pathlib.Path(folder) / "compile_commands.json").write_text(json.dumps([command]), encoding="utf-8")
    return joined, origins


def is_shipped(path, root):
    return path.relative_to(root).parts[0] in SHIPPED_FOLDERS


def run_tidy(source, build, config, options):
    return subprocess.run(["clang-tidy", "-p", build, f"--config-file={config}", "--quiet", *options, str(source)],
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8", check=False, timeout=SECONDS_PER_TEXT)


def check(group, root):
    """The findings in the sources of a group, as lines."""
    first = pathlib.Path(group[0]["file"])
    options = ANALYZER if is_shipped(first, root) else WARNINGS_ALONE
    first = first.relative_to(root)
    with tempfile.TemporaryDirectory() as folder:
        source, origins = join(group, folder)
        try:
            run = run_tidy(source, folder, root / ".clang-tidy", options)
            if run.returncode < 0:  # died of a signal; once more, to tell a crash from a machine in trouble
                run = run_tidy(source, folder, root / ".clang-tidy", options)
        except subprocess.TimeoutExpired:
            return [f"{first}:1: clang-tidy took over {SECONDS_PER_TEXT} s: split the file"]
    lines, found = [], 0
    for match in filter(None, map(FINDING.match, run.stdout.splitlines())):
        if match["check"].startswith("clang-diagnostic-") and len(group) > 1:  # may be between two of them
            half = len(group) // 2
            return check(group[:half], root) + check(group[half:], root)
        found += 1
        path, line = origins[int(match["line"]) - 1] if match["file"] == str(source) else (match["file"], match["line"])
        path = os.path.relpath(path, root)
        if not path.startswith(".."):  # the analyzer lost its way in a library, where nothing can be said to it
            lines.append(f"{path}:{line}: {match['what']}: see {match['check']}")
    if run.returncode and not found:
        lines.append(f"{first}:1: clang-tidy ended with {run.returncode}: {run.stdout}{run.stderr}")
    return lines


def main(build, part=""):
    root = pathlib.Path.cwd()
    commands = json.loads((pathlib.Path(build) / "compile_commands.json").read_text(encoding="utf-8"))
    sources = {}
    for command in commands:
        path = pathlib.Path(command["file"])
        if path.is_relative_to(root / "build") or not path.is_relative_to(root):
            continue
        if part in str(path.relative_to(root)):
            sources[command["file"]] = command
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        found = {line for lines in pool.map(lambda group: check(group, root), make_groups(sources.values())) for line in lines}
    print("\n".join(sorted(found)), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
