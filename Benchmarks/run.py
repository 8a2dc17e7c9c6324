#!/usr/bin/env python3
"""Runs every benchmark of a build and prints one table of ratios; then measures the imports.

Usage: run.py BUILD_DIR [--filter REGEX] [--repetitions 3] [--skip-import]

Programs are BUILD_DIR/bin/*Benchmark. A pair of benchmarks named "<thing>/ours[/size]" and "<thing>/reference[/size]"
(or "/reference-<which>") makes one line: name, ours, reference, ratio (ours / reference, in CPU time), bar, "ok" or
"MISSED". The bar comes from bars.tsv beside this script; where it names none, ours must not be slower. What an item takes
and the counters of ours whose name speaks of memory follow. A benchmark without a reference has a line without a ratio.
The exit status is 1 where a bar was missed.
"""
import argparse
import json
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
REFERENCE = re.compile(r"/reference(-[^/]*)?(?=/|$)")
ITERATIONS = re.compile(r"/iterations:\d+")
MEMORY = re.compile(r"(?i)memory|peak|rss|bytes_used|allocs")


def read_bars(path):
    """[(pattern, bar)], the first pattern that matches a line's name wins."""
    rows = []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if line and not line.startswith("#"):
            fields = line.split("\t")
            if len(fields) < 2:
                sys.exit(f"{path.name}:{number}: a pattern, a tab and a bar are needed")
            rows.append((re.compile(fields[0]), float(fields[1])))
    return rows


def find_bar(bars, name):
    return next((bar for pattern, bar in bars if pattern.search(name)), 1.0)


def run_program(program, options):
    """{name: its figures} of one program, medians where there are repetitions."""
    command = [str(program), "--benchmark_format=json", f"--benchmark_repetitions={options.repetitions}",
               f"--benchmark_filter={options.filter}"]
    done = subprocess.run(command, stdout=subprocess.PIPE, check=False)
    if done.returncode:
        sys.exit(f"{program.name} ended with {done.returncode}")
    if not done.stdout.strip():
        return {}
    found = {}
    for entry in json.loads(done.stdout)["benchmarks"]:
        if entry.get("error_occurred"):
            sys.exit(f"{program.name}: {entry['name']}: {entry.get('error_message')}")
        median = entry.get("aggregate_name") == "median"
        single = options.repetitions == 1 and entry.get("run_type") == "iteration"
        if (median and entry.get("aggregate_unit", "time") == "time") or single:
            found[ITERATIONS.sub("", entry.get("run_name", entry["name"]))] = entry
    return found


def pairs(entries):
    """(name of the line, ours, reference) of each pair; a reference without its ours is an error."""
    for name, entry in entries.items():
        match = REFERENCE.search(name)
        if not match:
            continue
        ours = REFERENCE.sub("/ours", name, count=1)
        if ours not in entries:
            sys.exit(f"{name} has no {ours} to be held against")
        yield REFERENCE.sub(match[1] or "", name, count=1), entries[ours], entry


def alone(entries):
    """(name, figures) of each benchmark that is held against nothing."""
    paired = {REFERENCE.sub("/ours", name, count=1) for name in entries if REFERENCE.search(name)}
    return [(name, entry) for name, entry in entries.items() if not REFERENCE.search(name) and name not in paired]


def nanoseconds(entry):
    return entry["cpu_time"] * NANOSECONDS[entry["time_unit"]]


def time_text(value):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if value >= size:
            return f"{value / size:.3g} {unit}"
    return f"{value:.3g} ns"


def notes_text(ours, reference):
    notes = [f"{time_text(1e9 / ours['items_per_second'])} an item"] if "items_per_second" in ours else []
    for key, value in ours.items():
        if MEMORY.search(key) and isinstance(value, (int, float)):
            other = reference.get(key)
            notes.append(f"{key} {value:.4g}" + (f" / {other:.4g}" if isinstance(other, (int, float)) else ""))
    return "  ".join(notes)


def print_line(name, ours, reference, bars):
    """Prints one pair; returns whether its bar was missed."""
    ratio, bar = nanoseconds(ours) / nanoseconds(reference), find_bar(bars, name)
    print(f"{name:60} {time_text(nanoseconds(ours)):>10} {time_text(nanoseconds(reference)):>10} {ratio:8.3f} {bar:8} "
          f"{'ok' if ratio <= bar else 'MISSED':6}  {notes_text(ours, reference)}".rstrip(), flush=True)
    return ratio > bar


def print_alone(name, entry):
    print(f"{name:60} {time_text(nanoseconds(entry)):>10} {'':36} {notes_text(entry, {})}".rstrip(), flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--filter", default=".")
    parser.add_argument("--repetitions", type=int, default=3)
    parser.add_argument("--skip-import", action="store_true")
    options = parser.parse_args()
    programs = options.build / "bin"
    bars, missed, lines = read_bars(HERE / "bars.tsv"), 0, 0
    print(f"{'name':60} {'ours':>10} {'reference':>10} {'ratio':>8} {'bar':>8}")
    for program in sorted(programs.glob("*Benchmark")):
        family, entries = program.name.removesuffix("Benchmark"), run_program(program, options)
        for name, ours, reference in pairs(entries):
            missed += print_line(f"{family}: {name}", ours, reference, bars)
            lines += 1
        for name, entry in alone(entries):
            print_alone(f"{family}: {name}", entry)
    print(f"{lines} pairs, {missed} bars missed\n", flush=True)
    tool = programs / "qvfilter"
    if not options.skip_import and tool.exists():
        for command in ([HERE / "bench_import.py", tool, "--floor", programs / "InflateExpatFloor"],
                        [HERE / "bench_text_import.py", tool]):
            missed += subprocess.run(["/usr/bin/python3", *map(str, command)], check=False).returncode
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
