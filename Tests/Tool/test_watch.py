#!/usr/bin/python3
"""Proves that watched_import.py sees each kind of misbehaviour, with little programs that misbehave."""
import pathlib
import tempfile
import unittest
from unittest import mock

import file_trace
import watched_import

HONEST = """
echo '{"tables": [], "media": []}' > "$4"
echo '{"messages": [{"message": "odd 7", "text": "odd {0}", "arguments": ["7"]}], "leftOut": []}' > "$6"
"""
REFUSING = "echo 'harm.xlsx: no package' >&2; exit 1"

# name, what the program does, what must be found; or "" for nothing
ROWS = (
    ("Honest", HONEST, ""),
    ("Refuses", REFUSING, ""),
    ("ReadsItsInput", 'read x < "$2"' + HONEST, ""),
    ("DiesOfSignal", "kill -SEGV $$", "ended with -11"),
    ("EndsOtherwise", "echo usage >&2; exit 2", "ended with 2"),
    ("Hangs", "while :; do :; done", "took more than"),
    ("RefusesSilently", "exit 1", "one line was due"),
    ("RefusesWithTwoLines", "echo 1 >&2; echo 2 >&2; exit 1", "one line was due"),
    ("RefusesWithoutLineEnd", "printf harm >&2; exit 1", "one line was due"),
    ("RefusesButWrites", 'echo {} > "$4";' + REFUSING, "refused, yet wrote ['out/model.json']"),
    ("AcceptsButComplains", HONEST + "echo odd >&2", "accepted, yet said"),
    ("AcceptsWithoutReport", 'echo "{}" > "$4"', "no report.json"),
    ("PrintsToStdout", HONEST + "echo done", "wrote to stdout"),
    ("LeavesFileInWorkingFolder", HONEST + "echo > left.tmp", "left behind: ['work/left.tmp']"),
    ("LeavesTemporaryFile", HONEST + 'echo > "$TMPDIR/left"', "left behind: ['temporary/left']"),
    ("LeavesFileBesideOutputs", HONEST + 'echo > "$4.tmp"', "wrote ['out/model.json.tmp']"),
)
TRACED_ROWS = (
    ("ReadsOtherFile", HONEST + "read x < /etc/passwd", '"/etc/passwd"'),
    ("TriesOtherFile", HONEST + "read x < /no/such/file || :", '"/no/such/file"'),
    ("ReadsBesideInput", HONEST + 'read x < "$2.rels" || :', ".rels"),
    ("ReadsByDetour", HONEST + 'read x < "${4%/*}/../../../../etc/passwd" || :', "passwd"),
    ("WritesOutside", HONEST + ': > "${2%/*}/stray"', "stray"),
    ("RunsProgram", HONEST + "/bin/true", '"/bin/true"'),
)
HONEST_LINKS = """
echo '{"links": [], "messages": []}'
"""
LINKS_ROWS = (
    ("Honest", HONEST_LINKS, ""),
    ("Refuses", REFUSING, ""),
    ("DiesOfSignal", "kill -SEGV $$", "ended with -11"),
    ("Hangs", "while :; do :; done", "took more than"),
    ("RefusesSilently", "exit 1", "one line was due"),
    ("RefusesButWrites", HONEST_LINKS + REFUSING, "links"),
    ("AcceptsButComplains", HONEST_LINKS + "echo odd >&2", "accepted, yet said"),
    ("AcceptsWithoutLinks", "echo '{}'", "wrote no links"),
    ("AcceptsWithoutJson", "echo none", "wrote no links"),
    ("LeavesFileInWorkingFolder", HONEST_LINKS + "echo > left.tmp", "left behind: ['work/left.tmp']"),
)
TRACED_LINKS_ROWS = (
    ("ReadsItsInput", 'read x < "$2"' + HONEST_LINKS, ""),
    ("ReadsOtherFile", HONEST_LINKS + "read x < /etc/passwd", '"/etc/passwd"'),
)

PAGE_ROWS = (
    ("Honest", "echo '<p>page</p>' > \"$4\"", ""),
    ("Refuses", REFUSING, ""),
    ("Hangs", "while :; do :; done", "took more than"),
    ("RefusesSilently", "exit 1", "one line was due"),
    ("RefusesButWrites", 'echo > "$4";' + REFUSING, "ended with 1, and wrote ['out/page.html']"),
    ("AcceptsWithoutPage", "exit 0", "ended with 0, and wrote []"),
    ("AcceptsButComplains", 'echo > "$4"; echo odd >&2', "accepted, yet said"),
    ("PrintsToStdout", 'echo > "$4"; echo done', "wrote to stdout"),
    ("WritesTooMuch", 'head -c 67108865 /dev/zero > "$4"', "wrote 67108865 bytes"),
    ("PageWithScript", "echo '<p><SCRIPT>' > \"$4\"", "may run something"),
    ("PageWithHandler", "echo '<p title=1 onclick=x>' > \"$4\"", "may run something"),
    ("PageWithRunningLink", "echo '<a href=\"javascript:x\">' > \"$4\"", "may run something"),
)
TEXT_ROWS = (
    ("Honest", "echo '<script>' > \"$3\"", ""),
    ("AcceptsWithoutText", "exit 0", "ended with 0, and wrote []"),
)


def watch_page(watcher, source):
    return watcher.watch_output(source, "page.html")


def watch_text(watcher, source):
    return watcher.watch_output(source, "text.txt")


class Watch(unittest.TestCase):
    def check(self, rows, watch=watched_import.Watcher.watch):
        for name, script, finding in rows:
            with self.subTest(name), tempfile.TemporaryDirectory() as folder:
                program, source = pathlib.Path(folder) / "program", pathlib.Path(folder) / "harm.xlsx"
                program.write_text(f"#!/bin/sh\n{script}\n", encoding="utf-8")
                program.chmod(0o755)
                source.write_bytes(b"harm")
                with mock.patch.object(watched_import, "SECONDS", 2):
                    verdict = watch(watched_import.Watcher(program), source)
                if finding:
                    self.assertTrue(any(finding in problem for problem in verdict.problems), verdict.problems)
                else:
                    self.assertEqual(verdict.problems, [])

    def test_outcomes_and_outputs(self):
        with mock.patch.object(file_trace, "STRACE", None):
            self.check(ROWS)
            self.check(LINKS_ROWS, watched_import.Watcher.watch_links)
            self.check(PAGE_ROWS, watch_page)
            self.check(TEXT_ROWS, watch_text)

    @unittest.skipUnless(file_trace.STRACE, "strace is not installed")
    def test_system_calls(self):
        self.check(ROWS[:3] + TRACED_ROWS)
        self.check(TRACED_LINKS_ROWS, watched_import.Watcher.watch_links)
        self.check([("ReadsOtherFile", PAGE_ROWS[0][1] + "; read x < /etc/passwd", '"/etc/passwd"')], watch_page)


if __name__ == "__main__":
    unittest.main()
