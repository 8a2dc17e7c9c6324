#!/usr/bin/env python3
"""Holds include-what-you-use against our headers: each compiles alone and without a warning, names what it uses, and
nothing else.

Usage: check_includes.py [--sources] BUILD_DIR MAPPING. BUILD_DIR has a compile_commands.json of the Clang preset with
VERIFY_INTERFACE_HEADER_SETS, whose one-include sources give the flags for each header. With --sources it prints what
the tool says of the sources and never fails: it is right less often there.
"""
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

EXCEPTIONS = pathlib.Path(__file__).with_name("iwyu-exceptions.tsv")
DROPPED_FLAGS = {"-Werror", "-c"}
DIAGNOSTIC = re.compile(r"^(/[^:]+):(\d+):\d+: (?:fatal )?(?:error|warning): (.*)$")


def is_ours(path):
    return path.is_relative_to(pathlib.Path.cwd()) and "build" not in path.relative_to(pathlib.Path.cwd()).parts


def jobs_of(commands, sources):
    """Pairs of file and flags: of each header through the source that only includes it, or of each source."""
    for command in commands:
        words = shlex.split(command["command"])
        source = pathlib.Path(command["file"])
        end = words.index("-o")
        compiler = next(i for i, word in enumerate(words) if "clang++" in word)
        flags = [word for word in words[compiler + 1:end] if word not in DROPPED_FLAGS]
        if not sources and "_verify_interface_header_sets" in command["command"]:
            name = re.match(r"#include <([^>]+)>", source.read_text(encoding="utf-8"))[1]
            roots = [pathlib.Path(flag[2:]) for flag in flags if flag.startswith("-I")]
            yield next(root / name for root in roots if (root / name).is_file()), flags
        elif sources and is_ours(source) and source.suffix == ".cpp":
            yield source, flags


def check(path, flags, mapping):
    """The tool's complaints about one file, as lines."""
    language = ["-x", "c++", "-Wno-pragma-once-outside-header"] if path.suffix == ".h" else []
    options = [word for option in ("--no_fwd_decls", "--quoted_includes_first", f"--mapping_file={mapping}",
                                   "--max_line_length=400")
               for word in ("-Xiwyu", option)]
    run = subprocess.run(["include-what-you-use", *options, *flags, *(["-w"] if language == [] else []), *language, str(path)],
                         stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", check=False)
    shown = path.relative_to(pathlib.Path.cwd())
    if f"({path} has correct" not in run.stdout and f"{path} should add these lines:" not in run.stdout:
        return [f"{shown}:1: include-what-you-use came to no verdict: {run.stdout}"]
    return diagnostics(run.stdout) + list(complaints(shown, path, run.stdout))


def diagnostics(output):
    """What the compiler says of our files."""
    found = (DIAGNOSTIC.match(line) for line in output.splitlines())
    return [f"{pathlib.Path(match[1]).relative_to(pathlib.Path.cwd())}:{match[2]}: {match[3]}: see the compiler"
            for match in found if match and is_ours(pathlib.Path(match[1]))]


def complaints(shown, path, output):
    remedy = None
    for line in output.splitlines():
        if line.endswith(" should add these lines:"):
            remedy = "used here: add the include" if line.startswith(str(path)) else None
        elif line.endswith(" should remove these lines:"):
            remedy = "not used here: remove the include" if line.startswith(str(path)) else None
        elif line.startswith("The full include-list") or not line:
            remedy = None if line else remedy
        elif remedy:
            include = re.search(r"#include ([<\"][^>\"]+[>\"])", line)
            number = re.search(r"// lines (\d+)-", line)
            if include:  # else a forward declaration, which is a matter of taste
                yield f"{shown}:{number[1] if number else 1}: {include[1]}: {remedy}"


def without_exceptions(lines):
    """What is left once the accepted findings are taken away, and the accepted ones that did not come up."""
    rows = [row.split("\t") for row in EXCEPTIONS.read_text(encoding="utf-8").splitlines() if not row.startswith("#")]
    accepted = {(file, include) for file, include, _ in rows}
    found = {}
    for line in lines:
        file, _, include, _ = (part.strip() for part in line.split(":", 3))
        found[line] = (file, include)
    yield from (line for line, key in found.items() if key not in accepted)
    yield from (f".ci/{EXCEPTIONS.name}:1: {file} {include}: not needed any more: remove the entry"
                for file, include in sorted(accepted - set(found.values())))


def main(arguments):
    sources = arguments[0] == "--sources"
    build, mapping = arguments[-2:]
    commands = json.loads((pathlib.Path(build) / "compile_commands.json").read_text(encoding="utf-8"))
    work = dict(jobs_of(commands, sources))
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        found = pool.map(lambda item: check(*item, os.path.abspath(mapping)), sorted(work.items()))
        lines = [line for file in found for line in file]
    if not sources:
        lines = list(without_exceptions(lines))
    print("\n".join(lines), end="\n" if lines else "")
    return 1 if lines and not sources else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
