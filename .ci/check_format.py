#!/usr/bin/env python3
"""Fails where a source is not laid out as .clang-format has it.

Usage: check_format.py ROOT. One process per file and up to three tries: clang-format 14 now and then crashes on
the aligned tables of tests, and is right the next time.
"""
import concurrent.futures
import os
import pathlib
import subprocess
import sys

SECONDS_PER_FILE = 60
TRIES = 3


def check(root, name):
    for _ in range(TRIES):
        try:
            run = subprocess.run(["clang-format", "--dry-run", "-Werror", root / name], stdout=subprocess.DEVNULL,
                                 stderr=subprocess.PIPE, encoding="utf-8", check=False, timeout=SECONDS_PER_FILE)
        except subprocess.TimeoutExpired:
            continue
        if run.returncode == 0:
            return None
        first = run.stderr.split("\n", 1)[0].split(":")
        if run.returncode == 1 and len(first) > 2:
            return f"{name}:{first[1]}: not laid out by .clang-format: run clang-format -i {name}"
    return f"{name}:1: clang-format crashed {TRIES} times: write the place where it does so otherwise"


def main(root):
    names = subprocess.run(["git", "-C", root, "ls-files", "--cached", "--others", "--exclude-standard", "--", "*.h",
                            "*.cpp"], check=True, stdout=subprocess.PIPE, encoding="utf-8").stdout.split()
    names = [name for name in names if (root / name).is_file()]
    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        found = [line for line in pool.map(lambda name: check(root, name), names) if line]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found or not names else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
