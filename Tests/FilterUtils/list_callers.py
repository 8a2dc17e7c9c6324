#!/usr/bin/env python3
"""Says who calls what a shared library exports, and fails for what nobody calls and no table explains.

Usage: list_callers.py [--list | --skip] ROOT LIBRARY USER...

LIBRARY is FilterUtils, each USER a library or program over it: what they leave undefined and LIBRARY defines is called.
The variants of a constructor or destructor count as one; tables of classes and type information are left out. Sources
are named by words: a file below Filters/ or Tool/ that has the function's name, and includes a header which declares it.

What nobody calls stands in uncalled-exports.tsv beside this script: NAME, KIND and REASON, separated by tabs. NAME is
demangled, with std::string and boost::string_ref by those names; without arguments it covers all overloads and
instantiations. The kinds:
  exporter   only a writer of files will call it; the reason says what text or attribute it writes
  library    "CALLER: what for"; CALLER is an exported function, called or in the table, and the name occurs in
             FilterUtils/ beyond its own definition
  virtual    "BASE::FUNCTION: what for"; reached through that function, which a header declares virtual
  caller     programs and libraries over the same platform call it; such a row may cover instantiations that are called
--list prints each function with its callers. --skip looks at nothing, says so and returns 77: instrumented builds
and other compilers emit names of their own.
"""
import collections
import pathlib
import re
import subprocess
import sys

KINDS = ("exporter", "library", "virtual", "caller")
SHORT_NAMES = (
    ("std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string"),
    ("boost::basic_string_ref<char, std::char_traits<char> >", "boost::string_ref"),
    ("std::basic_istream<char, std::char_traits<char> >", "std::istream"),
    ("std::basic_string_view<char16_t, std::char_traits<char16_t> >", "std::u16string_view"),
    ("[abi:cxx11]", ""),
)
WORD = re.compile(r"[A-Za-z_]\w*")
INCLUDE = re.compile(r'#include [<"]([\w/.]+)[>"]')
COMMENT = re.compile(r"//.*|/\*.*?\*/")
# By the formatter's rules, what begins in the first column defines or declares; calls are indented.
STATEMENT = re.compile(r"\s+\S")
HEADER_STATEMENT = re.compile(r"\s+(?:(?:return|throw|if|using)\b|[\w:<>]+ _\w+;)")  # the last one: a member


def shorten(name):
    for long, short in SHORT_NAMES:
        name = name.replace(long, short)
    return name


def drop_template_arguments(name):
    inner = re.compile(r"<[^<>]*>")
    while inner.search(name):
        name = inner.sub("", name)
    return name


class Function:
    """An exported function or object under one name, whichever symbols it has."""

    def __init__(self, name, path):
        self.name = name  # with arguments
        self.path = path if "operator" in path else drop_template_arguments(path)  # without
        self.is_called = False
        parts = self.path.split("::")
        self.identifier = parts[-1].lstrip("~")  # of a constructor or destructor: that of the class
        if self.identifier.startswith("operator"):
            self.identifier = parts[-2]
        self.scope = parts[-2] if parts[-2][0].isupper() and parts[-2] not in ("QV", "DOM", "FilterUtils") else None

    def is_named(self, name):
        return name in (self.name, self.path)


def symbols(file, selection):
    output = subprocess.run(["nm", "-D", selection, file], check=True, stdout=subprocess.PIPE, encoding="utf-8").stdout
    return [line.split()[-1].split("@")[0] for line in output.splitlines()]


def demangle(names, *options):
    output = subprocess.run(["c++filt", *options], check=True, stdout=subprocess.PIPE, encoding="utf-8",
                            input="".join(f"{name}\n" for name in names)).stdout
    return [shorten(line) for line in output.splitlines()]


def read_functions(library, users):
    defined = [name for name in symbols(library, "--defined-only") if not name.startswith(("_ZT", "__odr_asan"))]
    wanted = {name for user in users for name in symbols(user, "--undefined-only")}
    functions = {}
    for mangled, name, path in zip(defined, demangle(defined), demangle(defined, "-p")):
        function = functions.setdefault(name, Function(name, path))
        function.is_called |= mangled in wanted
    return [functions[name] for name in sorted(functions)]


class Sources:
    """The words of the sources over the library, and which of its headers each includes, directly or not."""

    def __init__(self, root):
        self.root = root
        self.texts = {}
        self.closures = {}
        self.files = collections.defaultdict(set)  # by word
        self.headers = collections.defaultdict(set)  # of the library, by word
        for folder in ("FilterUtils", "Filters", "Tool"):
            for path in sorted((root / folder).rglob("*.h")) + sorted((root / folder).rglob("*.cpp")):
                self.add(path.relative_to(root).as_posix(), folder)

    def add(self, name, folder):
        text = COMMENT.sub("", (self.root / name).read_text(encoding="utf-8"))
        self.texts[name] = text
        index = self.files if folder != "FilterUtils" else self.headers if name.endswith(".h") else {}
        for word in set(WORD.findall(text)):
            if word in index or isinstance(index, collections.defaultdict):
                index[word].add(name)

    def closure(self, name):
        """All files of ours that @p name includes."""
        if name not in self.closures:
            self.closures[name] = set()  # ends circles
            found = set()
            for included in INCLUDE.findall(self.texts[name]):
                for candidate in (included, f"Tool/{included}"):
                    if candidate in self.texts:
                        found |= {candidate} | self.closure(candidate)
            self.closures[name] = found
        return self.closures[name]

    def callers(self, function):
        declaring = self.headers[function.identifier]
        if function.scope:
            declaring = declaring & self.headers[function.scope]
        return [name for name in sorted(self.files[function.identifier]) if self.closure(name) & declaring]

    def is_used_in_library(self, identifier):
        word = re.compile(rf"\b{identifier}\b")
        for name, text in self.texts.items():
            if name.startswith("FilterUtils/"):
                begin = STATEMENT if name.endswith(".cpp") else HEADER_STATEMENT
                if any(begin.match(line) and word.search(line) for line in text.splitlines()):
                    return True
        return False

    def is_virtual(self, function):
        parts = function.split("::")
        return len(parts) == 2 and any(
            re.search(rf"\bvirtual [^;]*{re.escape(parts[1])}\(", self.texts[name]) for name in self.headers[parts[0]])


Row = collections.namedtuple("Row", "number name kind reason")


def read_table(path):
    rows, faults = [], []
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line or line.startswith("#"):
            continue
        cells = [cell.strip() for cell in line.split("\t")]
        if len(cells) != 3 or not all(cells):
            faults.append(f"{path.name}:{number}: not a name, a kind and a reason: {line[:80]}")
        elif cells[1] not in KINDS:
            faults.append(f"{path.name}:{number}: a kind that is none of {', '.join(KINDS)}: {cells[1]}")
        else:
            rows.append(Row(number, *cells))
    return rows, faults


def find_by_name(functions, name):
    return [function for function in functions
            if any(function.is_named(prefix + name) for prefix in ("", "QV::FilterUtils::", "QV::DOM::", "QV::"))]


def judge_reason(row, covered, functions, rows_of, sources):
    """What is wrong with the words of a row; None where they hold."""
    origin = row.reason.split(": ")[0]
    if row.kind == "library":
        callers = find_by_name(functions, origin)
        if not callers:
            return f"{origin} is no exported function: begin with the one that calls {row.name}"
        if not any(caller.is_called or caller.name in rows_of for caller in callers):
            return f"{origin}, which calls it, is neither called nor in the table"
        if all(function in covered for function in callers):
            return f"{origin} is named as its own caller"
        if not sources.is_used_in_library(covered[0].identifier):
            return f"nothing in FilterUtils/ has the name {covered[0].identifier} beyond its definition"
    if row.kind == "virtual" and not sources.is_virtual(origin):
        return f"no header declares {origin} virtual"
    return None


def judge(functions, rows, sources):
    """Fails the table for what it lacks and for what it has too much; returns messages, and the row of each name."""
    faults, rows_of = [], {}
    covers = [(row, [function for function in functions if function.is_named(row.name)]) for row in rows]
    for row, covered in covers:
        called = [function.name for function in covered if function.is_called]
        if not covered:
            faults.append(f"{row.number}: no longer exported: {row.name}")
        elif called and (row.kind != "caller" or len(called) == len(covered)):
            faults.append(f"{row.number}: called now: {called[0]}")
        for function in covered:
            if not function.is_called and rows_of.setdefault(function.name, row) is not row:
                faults.append(f"{row.number}: in line {rows_of[function.name].number} already: {function.name}")
    for row, covered in covers:
        fault = judge_reason(row, covered, functions, rows_of, sources) if covered else None
        if fault:
            faults.append(f"{row.number}: {fault}")
    faults += [f"1: nobody calls {function.name}: call it, or say here why it is exported"
               for function in functions if not function.is_called and function.name not in rows_of]
    return faults, rows_of


def main(arguments):
    if arguments[:1] == ["--skip"]:
        print("skipped: this build exports names of its own")
        return 77
    is_listing = arguments[:1] == ["--list"]
    root, library, *users = arguments[is_listing:]
    functions = read_functions(library, users)
    called = sum(function.is_called for function in functions)
    if not called:
        print(f"{library}: nothing of {len(functions)} exports is called: nothing was compared")
        return 1
    table = pathlib.Path(__file__).with_name("uncalled-exports.tsv")
    sources = Sources(pathlib.Path(root))
    rows, faults = read_table(table)
    more_faults, rows_of = judge(functions, rows, sources)
    faults += [f"{table.name}:{fault}" for fault in more_faults]
    if is_listing:
        for function in functions:
            row = rows_of.get(function.name)
            callers = ", ".join(sources.callers(function)) or "through a template of its header"
            print(f"{function.name} <- {callers if function.is_called else f'{row.kind}: {row.reason}' if row else '?'}")
    for fault in faults:
        print(fault)
    if not is_listing and not faults:
        print(f"{len(functions)} exports: {called} called by filters and the tool, "
              f"{len(functions) - called} in {table.name}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
