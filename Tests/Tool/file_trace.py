"""Which files a run of the program touches, by its system calls."""
import os
import pathlib
import re
import shutil

STRACE = shutil.which("strace")

CALL = re.compile(r"^\d+ +(?P<name>\w+)\((?P<arguments>.*)$")
QUOTED = re.compile(r'(?:(?P<at>AT_FDCWD|\d+)<(?P<folder>[^>]*)>, )?"(?P<path>(?:[^"\\]|\\.)*)"')
OPENING = {"open", "openat", "openat2", "creat"}
CHANGING = {"rename", "renameat", "renameat2", "unlink", "unlinkat", "rmdir", "mkdir", "mkdirat", "link", "linkat",
            "symlink", "symlinkat", "truncate", "chmod", "fchmodat", "chown", "lchown", "fchownat", "mknod", "mknodat",
            "mount", "chroot", "utimensat", "setxattr", "removexattr"}
REACHING_OUT = {"connect", "bind", "sendto", "listen"}
WRITING = re.compile(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_TMPFILE")

# What the loader, the C library, ICU and the sanitizers' runtime read before and beside any document.
SYSTEM = ("/lib/", "/lib64/", "/usr/lib/", "/usr/lib64/", "/usr/local/lib/", "/etc/ld.so.", "/usr/share/locale/",
          "/usr/lib/locale/", "/usr/share/icu/", "/usr/share/zoneinfo/", "/etc/localtime", "/etc/ssl/openssl.cnf",
          "/etc/gcrypt/", "/usr/share/gcrypt/", "/etc/gnutls/", "/proc/self/", "/proc/sys/", "/proc/cpuinfo",
          "/proc/meminfo", "/proc/mounts", "/sys/devices/system/", "/sys/fs/cgroup", "/dev/null", "/dev/urandom",
          "/dev/random", "/dev/tty")
SYSTEM_WRITABLE = ("/dev/null", "/dev/tty", "/proc/self/")


def command(log, program_and_arguments):
    """The command that runs the program and writes its calls to log."""
    return [STRACE, "-f", "-y", "-s", "4096", "-o", str(log), "-e", "trace=%file,%network", *program_and_arguments]


def trespasses(log, readable, writable):
    """What the run touched beyond the system's own files, the readable files and the writable folders."""
    readable = [_real(path) for path in readable]
    writable = [_real(path) for path in writable]
    executed, found = 0, []
    for line in pathlib.Path(log).read_text(encoding="utf-8", errors="replace").splitlines():
        match = CALL.match(line)
        if not match:
            continue
        name, arguments = match["name"], match["arguments"]
        if name in ("execve", "execveat"):
            executed += 1
            if executed > 1:
                found.append(line)
        elif name in REACHING_OUT or (name == "socket" and "AF_UNIX" not in arguments):
            found.append(line)
        elif name in CHANGING:
            found += [line for path in _paths(arguments) if not _within(path, writable)]
        elif name in OPENING:
            path = next(iter(_paths(arguments)), "")
            writes = name == "creat" or WRITING.search(arguments[arguments.rfind('"'):])
            system = SYSTEM_WRITABLE if writes else SYSTEM
            if not (path.startswith(system) or _within(path, writable) or (not writes and _within(path, readable))):
                found.append(line)
    if executed == 0:
        found.append("no call was traced")
    return found


def _paths(arguments):
    for match in QUOTED.finditer(arguments):
        path = match["path"].encode("latin-1", "replace").decode("unicode_escape")
        yield os.path.normpath(os.path.join(match["folder"] or "/", path))


def _real(path):
    return os.path.realpath(path)


def _within(path, folders):
    path = _real(path)
    return any(path == folder or path.startswith(folder + os.sep) for folder in folders)
