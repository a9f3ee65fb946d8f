#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Prints the completion of a program's commands, options, values and files for a shell.

Usage: completion.py PROGRAMS.JSON PROGRAM bash|zsh|fish
"""

import importlib
import json
import pathlib
import re
import sys


class Program:
    """What completion needs to know of a program."""

    def __init__(self, name, described):
        self.name = name
        self.function = "_" + name.replace("-", "_")
        self.options = [Option(option) for option in described["options"]]
        self.commands = [Command(command) for command in described["commands"]]

    def first_words(self):
        """The first words of the commands, each with the summary of what it does alone or begins."""
        words = {}
        for command in self.commands:
            words.setdefault(command.words[0], command.summary)
        return words

    def second_words(self, first):
        return {c.words[1]: c.summary for c in self.commands if len(c.words) == 2 and c.words[0] == first}

    def every_option(self):
        return self.options + [option for command in self.commands for option in command.options]

    def kinds(self):
        """What values of options there are."""
        return {option.kind for option in self.every_option()}


class Command:
    def __init__(self, described):
        self.name = described["name"]
        self.words = self.name.split()
        self.summary = described["summary"]
        every = [Option(option) for option in described["options"]]
        for option in every:
            for other in every:  # each tells of those before it alone
                if set(option.names) & set(other.excluded):
                    option.excluded += [name for name in other.names if name not in option.excluded]
        self.options = [option for option in every if option.names]
        self.arguments = [option for option in every if not option.names]


class Option:
    """An option, or (without a name) an argument."""

    def __init__(self, described):
        value = described["value"]
        self.names = described["names"]
        self.kind = value["kind"] if value else None
        self.value = value["name"] if value else ""
        self.choices = value["choices"] if value else []
        self.help = described["help"]
        self.excluded = list(described["excluded"])
        self.takes_many = described["takesMany"]

    def suffix(self):
        """ "ett" for a file that is called TEMPLATE.ett."""
        found = re.fullmatch(r"\w+\.([a-z0-9]+)", self.value)
        return found[1] if found and self.kind == "file" else ""


def quoted(text):
    """As one word of a shell."""
    return "'" + text.replace("'", "'\\''") + "'"


def main():
    if len(sys.argv) != 4 or sys.argv[3] not in ("bash", "zsh", "fish"):
        sys.exit(__doc__)
    described = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    program = Program(sys.argv[2], described[sys.argv[2]])
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    sys.stdout.write(importlib.import_module(f"completion_{sys.argv[3]}").completion_of(program))


if __name__ == "__main__":
    main()
