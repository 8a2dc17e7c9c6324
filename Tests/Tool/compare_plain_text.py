#!/usr/bin/python3
"""Compares the plain text of documents with what another office suite writes.

Usage: compare_plain_text.py QVFILTER FOLDER EXPECTED_DIFFERENCES [--only NAME]

Words are compared, and the order of lines that occur once. Blanks, bullets and labels of lists are no differences. The
suite gets copies in which tracked removals are carried out, since it writes removed text too. What else is known to
differ has a rule, and what each rule explains is counted: the suite writes neither notes nor text boxes, and the bare
numbers of notes behind words. EXPECTED_DIFFERENCES: see text_differences.py.
"""
import collections
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unicodedata
import zipfile

from sheet_reader import Unreadable
from text_differences import Difference, documents, finish, judge, read_expected, read_options
from text_numbers import BULLET
from text_reader import TextReader, flatten
from tool_runner import allowance, run, skip

SECONDS_PER_FILE = 30
INVISIBLE = dict.fromkeys(map(ord, "\u00AD\u200B\u200E\u200F\uFEFF\u2060"))
SIGNS = str.maketrans({"\u2011": "-", "\u00A0": " ", "\f": "\n", "\v": "\n"})
BULLET_LABEL = re.compile(r"[\u2022\u25AA\u25CF\u25CB\u25E6\u25A0\u2756\u2713\u27A2\uE000-\uF8FFo*\u00B7\u00A7\u2013-]")
NOTE_MARK = re.compile(r"\[(?:[0-9]+|[ivxlc]+|[a-z]+[0-9]+)\]")
BARE_MARK = re.compile(r"(?:[0-9]|[ivxlc])+(?=\W*$)")
REMOVAL = re.compile(rb"<w:(del|moveFrom) [^>]*(?<!/)>.*?</w:\1>", re.DOTALL)


def lines_of(text):
    """The pieces between tabs and ends of lines: lists of words."""
    text = unicodedata.normalize("NFC", text.translate(INVISIBLE).translate(SIGNS))
    for piece in re.split(r"[\n\t]", text):
        words = piece.split()
        if words:
            yield words


def accepted(path, folder):
    """A copy of a document in which tracked removals are carried out."""
    target = pathlib.Path(folder) / "in" / path.name
    target.parent.mkdir(exist_ok=True)
    with zipfile.ZipFile(path) as package, zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as copy:
        for info in package.infolist():
            content = package.read(info)
            copy.writestr(info.filename, REMOVAL.sub(b"", content) if info.filename.endswith(".xml") else content)
    return target


def write_there(suite, paths, folder):
    """{name: the suite's text}. One call is faster; documents on which it gives up are asked for one by one."""
    command = [suite, f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to",
               "txt:Text (encoded):UTF8", "--outdir", folder]
    for group in (paths, None):
        missing = [path for path in paths if not out_of(folder, path).is_file()]
        for some in [group] if group else [[path] for path in missing]:
            try:
                subprocess.run([*command, *map(str, some)], capture_output=True, check=False,
                               timeout=SECONDS_PER_FILE * max(len(some), 2))
            except subprocess.TimeoutExpired:
                pass
    return {path.name: out_of(folder, path).read_text(encoding="utf-8-sig") for path in paths
            if out_of(folder, path).is_file()}


def out_of(folder, path):
    return pathlib.Path(folder) / f"{path.stem}.txt"


def write_here(program, path, folder):
    """Our text, or the difference that its lack is."""
    out = pathlib.Path(folder) / "ours.txt"
    out.unlink(missing_ok=True)
    outcome = run([program, "convert", str(path), str(out)], timeout=60 * allowance(program).time)
    if outcome.status != 0 or outcome.timed_out or not out.is_file():
        return None, [Difference("convert", f"status {outcome.status}: {outcome.error_lines()[:3]}")]
    return out.read_text(encoding="utf-8-sig"), []


def words_in(text):
    return collections.Counter(word for words in lines_of(text) for word in words)


class Rules:
    """What is known to differ for a document; counts says how many words each rule explained."""

    def __init__(self, reader, counts):
        self._counts, self._notes = counts, len(reader.referred)
        labels = {each.item[2] for each in flatten(reader.blocks) if each.item and each.item[2] is not BULLET}
        self._labels = {word for label in labels for word in label.split()}
        boxes = "\n".join(each.text for blocks in reader.boxes for each in flatten(blocks))
        notes = "\n".join(each.text for blocks in reader.notes.values() for each in flatten(blocks))
        self._here_only = {"words of notes": words_in(notes), "words of text boxes": words_in(boxes)}

    def is_label(self, word):
        return word in self._labels or BULLET_LABEL.fullmatch(word) is not None

    def unlabelled(self, line):
        return tuple(line[1:] if self.is_label(line[0]) else line)

    def compare_words(self, here, there):
        """Words that only one side has, and that no rule explains."""
        here, there = here - there, there - here
        here = collections.Counter(NOTE_MARK.sub("", word) for word in here.elements())
        here, there = here - there, there - here
        del here[""]
        for word in list(there.elements()):
            bare = BARE_MARK.sub("", word)
            if self._notes and bare != word and (not bare or here[bare]):
                here, there = here - collections.Counter([bare]), there - collections.Counter([word])
                self._notes -= 1
                self._counts["words with numbers of notes"] += 1
        for rule, allowed in self._here_only.items():
            self._counts[rule] += sum((here & allowed).values())
            here = here - allowed
        for side, words in (("here", here), ("there", there)):
            for word in words.elements():
                if not self.is_label(word):
                    yield Difference(f"words {side} only", repr(word))


def once(lines):
    counted = collections.Counter(lines)
    return [line for line in lines if counted[line] == 1]


def compare(ours, theirs, path, counts):
    try:
        rules = Rules(TextReader(path), counts)
    except Unreadable as error:
        return [Difference("slow reader", str(error))]
    here, there = words_in(ours), words_in(theirs)
    counts["words alike"] += sum((here & there).values())
    found = list(rules.compare_words(here, there))
    first, second = (once([rules.unlabelled(line) for line in lines_of(text)]) for text in (ours, theirs))
    both = set(first) & set(second)
    counts["lines in order"] += len(both)
    for line, other in zip(*([line for line in lines if line in both] for lines in (first, second))):
        if line != other:
            return found + [Difference("order", f"{' '.join(line):.150} / {' '.join(other):.150}")]
    return found


def main():
    options = read_options(__doc__.splitlines()[0])
    suite = shutil.which("soffice")
    if not suite:
        return skip("no other office suite is installed")
    paths = documents(options)
    if not paths:
        return skip(f"no text documents in {options.folder}")
    expected, wrong, counts = read_expected(options.expected), 0, collections.Counter()
    with tempfile.TemporaryDirectory() as folder:
        texts = write_there(suite, [accepted(path, folder) for path in paths], folder)
        if not texts:
            return skip("the office suite writes no text documents")
        for path in paths:
            ours, found = write_here(options.program, path, folder)
            if path.name not in texts:
                found.append(Difference("nothing there", "the suite does not open it"))
            elif ours is not None:
                found += compare(ours, texts[path.name], path, counts)
            wrong += judge(path.name, found, expected)
    return finish(options, paths, wrong, counts)


if __name__ == "__main__":
    sys.exit(main())
