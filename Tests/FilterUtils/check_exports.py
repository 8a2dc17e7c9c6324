#!/usr/bin/env python3
"""Compares what a shared library exports with a checked-in list, so that a change of the ABI is always a visible diff.

Usage: check_exports.py [--bless | --skip] LIBRARY LIST

The list holds the demangled names of all defined dynamic symbols, one a line, sorted; names that several symbols share
(the variants of a constructor, the destructors) stand once. Sanitizers' own symbols are left out. --bless writes the
list instead; read the diff before it is committed: a name that goes or changes breaks who was linked against it.
--skip compares nothing, says so and returns 77: the list is that of GCC without instrumentation.
"""
import pathlib
import subprocess
import sys


def exports(library):
    output = subprocess.run(["nm", "-D", "--defined-only", "--demangle", library], check=True,
                            stdout=subprocess.PIPE, encoding="utf-8").stdout
    names = {line.split(" ", 2)[2] for line in output.splitlines()}  # ADDRESS TYPE NAME
    return sorted(name for name in names if not name.startswith("__odr_asan"))


def main(arguments):
    bless = arguments[:1] == ["--bless"]
    library, path = arguments[-2:]
    if arguments[0] == "--skip":
        print(f"skipped: {path} lists the exports of GCC without instrumentation; {library} was built otherwise")
        return 77
    actual = exports(library)
    if bless:
        pathlib.Path(path).write_text("".join(f"{name}\n" for name in actual), encoding="utf-8")
        print(f"{path}: {len(actual)} exports written")
        return 0
    expected = pathlib.Path(path).read_text(encoding="utf-8").splitlines()
    if not actual:
        print(f"{library}: no exports found: nothing was compared")
        return 1
    for name in sorted(set(expected) - set(actual)):
        print(f"- {name}")
    for name in sorted(set(actual) - set(expected)):
        print(f"+ {name}")
    if expected != actual:
        print(f"{path}: the exports differ: restore them, or accept the change with ./dev test --bless-exports")
        return 1
    print(f"{len(actual)} exports as listed")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
