"""One run over a file that nobody trusts, watched: time, memory, outputs, stray files, system calls."""
import json
import os
import pathlib
import re
import tempfile
from dataclasses import dataclass, field

import file_trace
from tool_runner import GIB, allowance, run

SECONDS = 10
OUTPUT_BYTES = 64 << 20  # what a small document may become
SMALL_BYTES = 1 << 20
SCRIPT = re.compile(rb"<script|<[^>]* on[a-z]+ *=|href=.javascript:", re.IGNORECASE)


@dataclass
class Verdict:
    status: int = 0
    line: str = ""  # what stderr says
    messages: list = field(default_factory=list)  # the report's, as a person reads them
    model: dict = None
    report: dict = None
    problems: list = field(default_factory=list)


class Watcher:
    """Runs one program over files, each time in a fresh folder."""

    def __init__(self, program):
        self._program = os.path.realpath(program)
        self._allowance = allowance(program)

    def watch(self, source, on_done=None):
        """Imports a file; on_done(verdict, media folder) sees the outputs and gives what is wrong with them."""
        return self._watch_twice(lambda traced: self._import(source, traced, None if traced else on_done))

    def watch_links(self, source):
        """Asks for the links of a file."""
        return self._watch_twice(lambda traced: self._list_links(source, traced))

    def watch_output(self, source, name):
        """Has a file written as another one: a page where the name ends with .html, else what its ending says."""
        return self._watch_twice(lambda traced: self._write_output(source, name, traced))

    def _watch_twice(self, watch_once):
        verdict = watch_once(False)
        # What files are touched is seen in the builds that ship; one that watches itself would take twice its time.
        if file_trace.STRACE and not self._allowance.instrumented:
            again = watch_once(True)
            verdict.problems += [problem for problem in again.problems if problem not in verdict.problems]
            if again.status != verdict.status:
                verdict.problems.append(f"status {verdict.status} at first, then {again.status}")
        return verdict

    def _import(self, source, traced, on_done):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name).resolve()
            out = folder / "out"
            outcome, verdict = self._run(folder, source, traced, [
                "import", str(source), "--model", str(out / "model.json"), "--report", str(out / "report.json"),
                "--media", str(out / "media"), "--ids", "sequential"])
            self._judge_outputs(outcome, folder, verdict)
            if on_done and verdict.model is not None:
                verdict.problems += on_done(verdict, out / "media")
            return verdict

    def _list_links(self, source, traced):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name).resolve()
            outcome, verdict = self._run(folder, source, traced, ["links", str(source), "--json"])
            present = self._find_outputs(folder, verdict)
            if present or (verdict.status == 1 and outcome.stdout):
                verdict.problems.append(f"wrote {sorted(present)} and {outcome.stdout[:99]!r}")
            if verdict.status == 0:
                self._judge_links(outcome, verdict)
            else:
                self._judge_refusal(verdict)
            return verdict

    def _write_output(self, source, name, traced):
        with tempfile.TemporaryDirectory() as folder:
            folder = pathlib.Path(folder).resolve()
            out = folder / "out" / name
            is_page = out.suffix == ".html"
            arguments = ["preview", str(source), "-o", str(out)] if is_page else ["convert", str(source), str(out)]
            outcome, verdict = self._run(folder, source, traced, arguments)
            present = self._find_outputs(folder, verdict)
            if outcome.stdout:
                verdict.problems.append(f"wrote to stdout: {outcome.stdout[:99]!r}")
            expected = {f"out/{name}"} if verdict.status == 0 else set()
            if present != expected:
                verdict.problems.append(f"ended with {verdict.status}, and wrote {sorted(present)}")
            elif verdict.status == 0:
                self._judge_text(out, source, verdict)
            if verdict.status != 0:
                self._judge_refusal(verdict)
            return verdict

    @staticmethod
    def _judge_text(out, source, verdict):
        if verdict.line:
            verdict.problems.append(f"accepted, yet said {verdict.line[:400]!r}")
        if pathlib.Path(source).stat().st_size < SMALL_BYTES and out.stat().st_size > OUTPUT_BYTES:
            verdict.problems.append(f"wrote {out.stat().st_size} bytes")
        script = SCRIPT.search(out.read_bytes()) if out.suffix == ".html" else None
        if script:
            verdict.problems.append(f"the page may run something: {script[0][-200:]!r}")

    def _run(self, folder, source, traced, arguments):
        for part in ("work", "out", "temporary"):
            (folder / part).mkdir()
        command, log = [self._program, *arguments], folder / "calls"
        if traced:
            command = file_trace.command(log, command)
        outcome = run(command, timeout=(60 if traced else SECONDS) * self._allowance.time, cwd=folder / "work",
                      environment={**os.environ, "TMPDIR": str(folder / "temporary")},
                      limit_memory=0 if traced or self._allowance.instrumented else 8 * GIB)
        verdict = Verdict(outcome.status, outcome.stderr.decode("utf-8", "replace"))
        self._judge_bounds(outcome, traced, verdict.problems)
        if traced:
            libraries = pathlib.Path(self._program).parent.parent / "lib"
            verdict.problems += file_trace.trespasses(log, [source, self._program, libraries], [folder / "out"])
        return outcome, verdict

    def _judge_bounds(self, outcome, traced, problems):
        if outcome.timed_out:
            problems.append(f"took more than {SECONDS * self._allowance.time} s")
        elif not traced and outcome.peak_bytes > GIB * self._allowance.memory:
            problems.append(f"took {outcome.peak_bytes / GIB:.2f} GiB")

    @staticmethod
    def _find_outputs(folder, verdict):
        present = {path.relative_to(folder).as_posix() for path in folder.rglob("*")}
        present -= {"work", "out", "temporary", "calls"}
        stray = {path for path in present if not path.startswith("out/")}
        if stray:
            verdict.problems.append(f"left behind: {sorted(stray)}")
        return present - stray

    @staticmethod
    def _judge_outputs(outcome, folder, verdict):
        present = Watcher._find_outputs(folder, verdict)
        if outcome.stdout:
            verdict.problems.append(f"wrote to stdout: {outcome.stdout[:99]!r}")
        if verdict.status == 0:
            Watcher._judge_model(folder / "out", present, verdict)
            return
        Watcher._judge_refusal(verdict)
        if verdict.status == 1 and present:
            verdict.problems.append(f"refused, yet wrote {sorted(present)}")

    @staticmethod
    def _judge_refusal(verdict):
        if verdict.status != 1:
            verdict.problems.append(f"ended with {verdict.status}: {verdict.line[-900:]!r}")
            return
        lines = verdict.line.splitlines()
        if len(lines) != 1 or not lines[0].strip() or not verdict.line.endswith("\n"):
            verdict.problems.append(f"one line was due on stderr, not {verdict.line[:400]!r}")

    @staticmethod
    def _judge_links(outcome, verdict):
        if verdict.line:
            verdict.problems.append(f"accepted, yet said {verdict.line[:400]!r}")
        try:
            keys = list(json.loads(outcome.stdout))
        except ValueError as error:
            keys = [str(error)]
        if keys != ["links", "messages"]:
            verdict.problems.append(f"wrote no links: {keys}")

    @staticmethod
    def _judge_model(out, present, verdict):
        if verdict.line:
            verdict.problems.append(f"accepted, yet said {verdict.line[:400]!r}")
        for name in ("model.json", "report.json"):
            if f"out/{name}" not in present:
                verdict.problems.append(f"no {name}")
                return
        verdict.model = json.loads((out / "model.json").read_text(encoding="utf-8"))
        verdict.report = json.loads((out / "report.json").read_text(encoding="utf-8"))
        verdict.messages = [message["message"] for message in verdict.report["messages"]]
        expected = {"out/model.json", "out/report.json", "out/media"}
        expected |= {f"out/media/{entry['id']}" for entry in verdict.model["media"]}
        extra = {path for path in present if path.startswith("out/")} - expected
        if extra:
            verdict.problems.append(f"wrote {sorted(extra)}")
