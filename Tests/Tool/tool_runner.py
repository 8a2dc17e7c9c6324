"""Runs the program under test in a bounded child process and says what became of it."""
import os
import pathlib
import resource
import signal
import subprocess
import tempfile
import threading
import time
from dataclasses import dataclass

SKIPPED = 77  # what CTest takes for "skipped"
GIB = 1 << 30


@dataclass
class Outcome:
    status: int  # the exit status; the negated number of the signal that ended it
    stdout: bytes
    stderr: bytes
    seconds: float
    cpu_seconds: float
    peak_bytes: int
    timed_out: bool

    def error_lines(self):
        return self.stderr.decode("utf-8", "replace").splitlines()


@dataclass
class Allowance:
    """How much more a run may take where the build watches itself, or is not optimised."""
    time: float
    memory: float
    instrumented: bool
    optimised: bool


def allowance(program):
    """Limits are multiplied by these. Whether a build is optimised, only who built it knows: QV_UNOPTIMISED is set."""
    content = pathlib.Path(program).read_bytes()
    instrumented = any(mark in content for mark in (b"__asan_init", b"__tsan_init"))
    optimised = not instrumented and not os.environ.get("QV_UNOPTIMISED")
    return Allowance(1 if optimised else 10, 6 if instrumented else 1, instrumented, optimised)


def run(command, stdin=b"", timeout=60, cwd=None, environment=None, limit_memory=0, stdout=None):
    """Runs command to its end, or kills its process group after timeout seconds.

    limit_memory bounds the address space in bytes. The peak counts what this process holds itself while it starts
    the child, so a caller that wants a fine measure keeps itself small. stdout may be a descriptor of the caller's.
    """
    def bound():
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        if limit_memory:
            resource.setrlimit(resource.RLIMIT_AS, (limit_memory, limit_memory))

    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as errors, tempfile.TemporaryFile() as given:
        given.write(stdin)
        given.seek(0)
        begin = time.monotonic()
        # pylint: disable=subprocess-popen-preexec-fn
        child = subprocess.Popen(command, stdin=given, stdout=out if stdout is None else stdout, stderr=errors, cwd=cwd,
                                 env=environment, preexec_fn=bound, start_new_session=True)
        expired = threading.Event()

        def kill():
            expired.set()
            os.killpg(child.pid, signal.SIGKILL)

        timer = threading.Timer(timeout, kill)
        timer.start()
        try:
            _, code, usage = os.wait4(child.pid, 0)
        finally:
            timer.cancel()
        child.returncode = os.waitstatus_to_exitcode(code)
        out.seek(0)
        errors.seek(0)
        return Outcome(child.returncode, out.read(), errors.read(), time.monotonic() - begin,
                       usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024, expired.is_set())


def skip(why):
    print(f"SKIPPED: {why}")
    return SKIPPED
