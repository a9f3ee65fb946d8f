# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Runs the two programs on a sandbox, alone or under strace."""

import contextlib
import os
import re
import shutil
import signal
import subprocess
import time
from typing import NamedTuple

import sandbox

# Without fonts and settings of the desktop, a window is there in half the time.
FONTS = '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig/>\n'
SUPPLIED = ("targets.txt", "targets_old.txt", "history.txt", "links.txt")

LONGEST = 60  # seconds that any run may take


class Result(NamedTuple):
    status: int
    out: str
    errors: str
    seconds: float
    is_hanging: bool

    def boxes(self):
        """What the user was told: message boxes and standard error."""
        return [text for words in self.words_of_steps() for text in words]

    def words_of_steps(self):
        """The same for each step: the start, then what the user did. Where an error was printed is not known: it counts
        as the last step's."""
        steps = [[]]
        for line in self.out.splitlines():
            if line.startswith("begin: "):
                steps.append([])
            elif line.startswith("box: "):
                steps[-1].append(line[5:])
        steps[-1] += [line for line in self.errors.splitlines() if line.strip()]
        return steps

    def is_crash(self):
        return (self.status not in (0, 1, 2) and not self.is_hanging) or "Sanitizer" in self.errors or (
            "runtime error:" in self.errors)


class Programs:
    """Copies of the executables in a folder that cannot be written, with the supplied files beside it."""

    def __init__(self, build, folder):
        self.folder = folder
        self._running = set()
        self._is_stopped = False
        self.fonts = os.path.join(folder, "fonts.conf")
        with open(self.fonts, "w", encoding="ascii") as file:
            file.write(FONTS)
        for name in ("home", "run", "bin"):
            os.makedirs(os.path.join(folder, name), mode=0o700)
        with open(os.path.join(build, "CMakeCache.txt"), encoding="utf-8") as file:
            options = file.read()
        self.is_sanitized = "KAVO_SANITIZE:BOOL=ON" in options
        self.is_release = "CMAKE_BUILD_TYPE:STRING=Release" in options
        self.cli = shutil.copy(os.path.join(build, "bin/kavo-timing-cli"), os.path.join(folder, "bin"))
        # A build without windows may have those of an earlier one lying about.
        has_windows = "KAVO_GUI:BOOL=ON" in options
        self.operations = has_windows and shutil.copy(os.path.join(build, "tests/kavo-operations"),
                                                      os.path.join(folder, "bin"))
        share = os.path.join(folder, "share/kavo-timing")
        os.makedirs(share)
        for name in SUPPLIED:
            with open(os.path.join(share, name), "w", encoding="ascii", newline="") as file:
                file.write(sandbox.FILES["program/" + name])

    def protect(self):
        os.chmod(os.path.join(self.folder, "bin"), 0o500)

    def environment(self, root):
        return {
            "PATH": "/usr/bin:/bin",
            "HOME": os.path.join(self.folder, "home"),
            "XDG_RUNTIME_DIR": os.path.join(self.folder, "run"),
            "XDG_DATA_HOME": os.path.join(root, "data"),
            "FONTCONFIG_FILE": self.fonts,
            "QT_QPA_PLATFORM": "offscreen",
            "QT_LOGGING_RULES": "*=false",
            "QT_NO_GLIB": "1",
            "LC_ALL": "C.UTF-8",
            "KAVO_HISTORY": "off",
            # Nobody reads what a build that counts covered lines says of the counts that it cannot keep here.
            "GCOV_PREFIX": os.path.join(self.folder, "nowhere"),
            "GCOV_ERROR_FILE": os.devnull,
            "ASAN_OPTIONS": "detect_leaks=0:abort_on_error=1:handle_abort=0:hard_rss_limit_mb=8192",
            "UBSAN_OPTIONS": "halt_on_error=1:abort_on_error=1",
        }

    def command(self, operation, root):
        folder = [] if operation.is_first_start else ["--program-folder", os.path.join(root, "program")]
        if operation.is_window:
            files = ["--report", os.path.join(root, "out/report"), "--page", os.path.join(root, "in/page.html")]
            return [self.operations, *folder, *files, *operation.steps]
        return [self.cli, *folder, *(argument.format(root=root) for argument in operation.arguments)]

    def start(self, command, root, **more):
        """Starts a command in a session of its own, so that it can be ended with what it started."""
        if self._is_stopped:
            raise InterruptedError("the tests were ended")
        streams = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **more}
        process = subprocess.Popen(command, env=self.environment(root), start_new_session=True, **streams)
        self._running.add(process)
        return process

    def finish(self, process, limit=LONGEST):
        """Waits for the end of a command, for `limit` seconds at most."""
        start = time.monotonic()
        is_hanging = False
        try:
            out, errors = process.communicate(timeout=limit)
        except subprocess.TimeoutExpired:
            is_hanging = True
            os.killpg(process.pid, signal.SIGKILL)
            out, errors = process.communicate()
        self._running.discard(process)
        return Result(process.returncode, (out or b"").decode(errors="replace"),
                      (errors or b"").decode(errors="replace"), time.monotonic() - start, is_hanging)

    def run(self, command, root, limit=LONGEST, **more):
        return self.finish(self.start(command, root, **more), limit)

    def stop(self):
        """Ends what is still running, and starts nothing any more."""
        self._is_stopped = True
        for process in list(self._running):
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)


class Call(NamedTuple):
    """A system call on a file of the sandbox: the `ordinal`-th of this name in its thread."""

    name: str
    ordinal: int
    text: str
    # Before the operation itself: while the program starts.
    is_start: bool


# Calls that wait for files or start programs touch none.
NO_TOUCH = {"execve", "execveat", "poll", "ppoll", "select", "pselect6", "epoll_wait", "epoll_pwait", "epoll_ctl"}


def traced_calls(log, root):
    """The calls that a trace names on files of the sandbox, in their order."""
    calls, counts, is_start = [], {}, True
    for line in log.splitlines():
        match = re.match(r"(\d+) +(\w+)\(", line)
        if not match:
            continue
        counts[match.groups()] = counts.get(match.groups(), 0) + 1
        if '"/kavo-operation/' in line:
            is_start = False
        name = match.group(2)
        if root in line and name not in NO_TOUCH:
            text = line[match.start(2):].replace(root + "/", "")
            calls.append(Call(name, counts[match.groups()], text, is_start))
    return calls


def trace_command(log, command):
    return ["strace", "-f", "--seccomp-bpf", "-y", "-s", "0", "-o", log, "-e", "trace=%file,%desc", *command]


def fault_command(log, call, fault, command):
    """Under strace, killed at a call or with a call that fails once."""
    injected = "signal=KILL" if fault == "KILL" else "error=" + fault
    # A signal gets lost where the tracer is woken for chosen calls only.
    fast = [] if fault == "KILL" else ["--seccomp-bpf"]
    return ["strace", "-f", *fast, "-y", "-s", "0", "-o", log, "-e", "trace=" + call.name, "-e",
            f"inject={call.name}:{injected}:when={call.ordinal}", *command]


def was_hit(log, root, fault):
    """Whether the fault met a call on a file of the sandbox."""
    found = log.splitlines()
    if fault != "KILL":
        return any("(INJECTED)" in line and root in line for line in found)
    # The call that never returned; the end of another thread may stand in its midst.
    ended = {line.split()[0] for line in found if line.endswith("= ?")}
    return any(root in line and line.split()[0] in ended and line.endswith(("= ?", "<unfinished ...>"))
               for line in found) and any("killed by SIGKILL" in line for line in found)


def can_trace():
    """Nothing, or the reason why strace cannot be used here."""
    if shutil.which("strace") is None:
        return "strace is not installed"
    done = subprocess.run(["strace", "-f", "--seccomp-bpf", "-o", os.devnull, "-e", "trace=openat", "true"],
                          capture_output=True, check=False)
    return None if done.returncode == 0 else done.stderr.decode(errors="replace").strip().splitlines()[-1]
