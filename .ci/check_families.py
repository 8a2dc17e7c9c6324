#!/usr/bin/env python3
"""Fails where FilterUtils/README.md and the families in that folder differ.

Usage: check_families.py ROOT. A family is a header FU_<Name>.h; the README names each in one table row that begins
with | `FU_<Name>` |.
"""
import pathlib
import re
import sys


def main(root):
    folder = pathlib.Path(root) / "FilterUtils"
    families = {path.stem for path in folder.glob("FU_*.h")}
    rows = {}
    for number, line in enumerate((folder / "README.md").read_text(encoding="utf-8").splitlines(), 1):
        match = re.match(r"\| `(FU_\w+)` \|", line)
        if match:
            rows.setdefault(match[1], []).append(number)
    messages = [f"FilterUtils/README.md:1: {name} has no row: add one line that says what it holds"
                for name in sorted(families - rows.keys())]
    messages += [f"FilterUtils/README.md:{rows[name][0]}: {name} is not in the folder: remove the row"
                 for name in sorted(rows.keys() - families)]
    messages += [f"FilterUtils/README.md:{numbers[1]}: {name} has a second row: keep one"
                 for name, numbers in sorted(rows.items()) if len(numbers) > 1]
    print("\n".join(messages), end="\n" if messages else "")
    return 1 if messages else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
