# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Types at real shells, as a person does, and tells what completion makes of it."""

import os
import pty
import re
import select
import subprocess
import time

LONGEST_WAIT = 20  # seconds


class TypedShell:
    """A shell that reads lines from a terminal of its own."""

    PROMPT = "ready> "

    def __init__(self, command, environment, folder):
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder)
            os.execvpe(command[0], command, environment)
        self.output = b""
        self.number = 0
        self.wait_for(self.PROMPT)

    def close(self):
        os.close(self.terminal)
        os.waitpid(self.process, 0)

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def wait_for(self, text):
        """Reads until the text comes; returns what came with it."""
        end = time.monotonic() + LONGEST_WAIT
        while text.encode() not in self.output:
            left = end - time.monotonic()
            if left <= 0 or not select.select([self.terminal], [], [], left)[0]:
                raise TimeoutError(f"no {text!r} in {self.output!r}")
            self.output += os.read(self.terminal, 65536)
        before, _, self.output = self.output.partition(text.encode())
        return before.decode(errors="replace")

    def run(self, line):
        """Runs a line to its end, which is told from its echo by a sum."""
        self.number += 1
        self.type(f"{line}; echo end-$(({self.number}+1000))\n")
        self.wait_for(f"end-{self.number + 1000}")
        self.wait_for(self.PROMPT)

    def buffer_after(self, keys):
        """The line that stands there when the keys have been typed; it is dropped then."""
        self.type(keys + self.SHOW)
        self.wait_for("<<")
        line = self.wait_for(">>")
        self.type("\x15")  # Ctrl+U
        self.run(":")
        return line

    def completed(self, line):
        return self.buffer_after(line + "\t")

    def candidates(self, line):
        """The words that the last one could become."""
        begin = line[: line.rfind(" ") + 1]
        with_all = self.buffer_after(line + self.ALL)
        return sorted(re.findall(r"(?:\\.|[^ \\])+", with_all[len(begin) :])) if with_all != line else []


class Bash(TypedShell):
    SHOW = "\x0f"  # Ctrl+O
    ALL = "\x14"  # Ctrl+T

    def __init__(self, scripts, environment, folder):
        environment = {**environment, "PS1": self.PROMPT, "INPUTRC": "/dev/null", "TERM": "dumb"}
        super().__init__(["bash", "--noprofile", "--norc", "-i"], environment, folder)
        self.run("source /usr/share/bash-completion/bash_completion")
        for script in scripts.glob("*.bash"):
            self.run(f"source '{script}'")
        self.run("bind 'set bell-style none'; bind 'set enable-bracketed-paste off'")
        self.run("bind '\"\\C-t\": insert-completions'")
        self.run("bind -x '\"\\C-o\": printf \"<<%s>>\" \"$READLINE_LINE\"'")


class Zsh(TypedShell):
    SHOW = "\x0f"
    ALL = "\x14"

    def __init__(self, scripts, environment, folder):
        environment = {**environment, "PS1": self.PROMPT, "ZDOTDIR": str(folder), "TERM": "dumb"}
        super().__init__(["zsh", "-f", "-i"], environment, folder)
        self.run("unsetopt beep prompt_sp zle_bracketed_paste 2>/dev/null; unset zle_bracketed_paste")
        self.run("autoload -Uz compinit && compinit -u -D")
        for script in scripts.glob("*.zsh"):
            name = "_" + script.stem
            self.run(f"{name}() {{ source '{script}' }}; compdef {name} {script.stem}")
        self.run("show() { print -rn -- \"<<$BUFFER>>\" }; zle -N show; bindkey '^O' show")
        self.run("all() { _main_complete; compstate[insert]=all }; zle -C all complete-word all; bindkey '^T' all")


class Fish:
    """Fish tells what it would complete without being typed at."""

    END = "--end--"
    # Marks around the line keep its blanks; what goes wrong is told among the candidates.
    LOOP = f"while read --local line; complete --do-complete=(string sub --start 2 --end -1 -- $line); echo {END}; end"

    def __init__(self, scripts, environment, folder):
        begin = "".join(f"source '{script}'; " for script in scripts.glob("*.fish"))
        self.process = subprocess.Popen(
            ["fish", "--no-config", "-c", begin + self.LOOP],
            env=environment,
            cwd=folder,
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            encoding="utf-8",
        )

    def close(self):
        self.process.stdin.close()
        self.process.wait(LONGEST_WAIT)
        self.process.stdout.close()

    def candidates(self, line):
        self.process.stdin.write(f"|{line}|\n")
        self.process.stdin.flush()
        found = []
        while (text := self.process.stdout.readline()) != self.END + "\n":
            if not text:
                raise EOFError(f"fish ended: {found}")
            found.append(text.rstrip("\n").split("\t")[0])
        return sorted(found)

    def completed(self, line):
        """Only where there is one candidate, as fish would take it."""
        found = self.candidates(line)
        return line[: line.rfind(" ") + 1] + found[0] + " " if len(found) == 1 else line
