"""What the comparisons of text documents and presentations share: their runs over a corpus, and lists of the differences that are known.

A list is tab-separated: file, what and how often ("text 2"), reason. It is exact: a row that does not occur any more
fails as a new difference does.
"""
import argparse
import collections
import concurrent.futures
import json
import pathlib
import sys
from collections import namedtuple

from tool_runner import allowance, run, skip

Difference = namedtuple("Difference", "category detail")
DETAILS = 5


def import_model(program, path):
    """The model of a document, or the difference that its failure is."""
    outcome = run([program, "import", str(path), "--model", "-"], timeout=60 * allowance(program).time)
    if outcome.timed_out:
        return None, [Difference("import", "took too long")]
    if outcome.status != 0:
        return None, [Difference("import", f"status {outcome.status}: {outcome.error_lines()[:3]}")]
    try:
        return json.loads(outcome.stdout), []
    except ValueError as error:
        return None, [Difference("import", f"no JSON: {error}")]


def read_expected(path):
    rows = {}
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line or line.startswith("#"):
            continue
        fields = line.split("\t")
        if len(fields) != 3 or not fields[2].strip():
            sys.exit(f"{path.name}:{number}: three fields are needed, and the last one gives the reason")
        rows[fields[0], fields[1]] = fields[2]
    return rows


def judge(name, found, expected):
    """Prints what is not expected, and what is expected in vain; returns how many there were."""
    groups = collections.defaultdict(list)
    for difference in found:
        groups[difference.category].append(difference.detail)
    occurring = {f"{category} {len(details)}": details for category, details in groups.items()}
    wanted = {what for file, what in expected if file == name}
    for what, details in occurring.items():
        if what not in wanted:
            print(f"{name}\t{what}")
            for detail in details[:DETAILS]:
                print(f"        {detail}"[:400])
    for what in sorted(wanted - occurring.keys()):
        print(f"{name}\t{what}: is listed, but does not occur any more")
    return len(occurring.keys() ^ wanted)


def read_options(description):
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("program")
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("expected", type=pathlib.Path)
    parser.add_argument("--only", default="")
    parser.add_argument("--jobs", type=int, default=2)
    return parser.parse_args()


TEXTS = ("docx", "*.doc[xm]", "text documents")


def documents(options, kind=TEXTS):
    """The documents of the folder of their kind, or of the folder itself."""
    name, pattern, _ = kind
    folder = options.folder / name if (options.folder / name).is_dir() else options.folder
    return sorted(path for path in folder.glob(pattern) if options.only in path.name)


def compare_all(options, compare_file, kind=TEXTS):
    """Compares each document by compare_file(program, path), which gives differences and counts; the exit status.

    kind: the folder of the documents, what their names are like, and what they are called.
    """
    paths = documents(options, kind)
    if not paths:
        return skip(f"no {kind[2]} in {options.folder}")
    expected, wrong, counts = read_expected(options.expected), 0, collections.Counter()
    with concurrent.futures.ProcessPoolExecutor(options.jobs) as pool:
        for path, (found, counted) in zip(paths, pool.map(compare_file, [options.program] * len(paths), paths)):
            wrong += judge(path.name, found, expected)
            counts.update(counted)
    return finish(options, paths, wrong, counts)


def finish(options, paths, wrong, counts):
    """Prints what was compared; rows of files that are not there are wrong too, unless only some are asked for."""
    names = {path.name for path in paths}
    for name in sorted({file for file, _ in read_expected(options.expected)} - names):
        if not options.only:
            wrong += 1
            print(f"{name}: is listed, but there is no such file")
    print(", ".join([f"{len(paths)} files", *(f"{count} {what}" for what, count in sorted(counts.items()))]))
    return 1 if wrong else 0
