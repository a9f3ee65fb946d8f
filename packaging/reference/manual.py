#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Prints the manual page of a program: PROGRAM.1.in, with the options and commands that the program itself knows.

Usage: manual.py PROGRAMS.JSON PROGRAM
"""

import json
import pathlib
import re
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))
import releases  # noqa: E402

LINE_WIDTH = 76


def escaped(text):
    """Characters that the formatter would take for its own, or print as others than those to be typed."""
    text = text.replace("\\", "\\e").replace("-", "\\-").replace("^", "\\(ha").replace("~", "\\(ti")
    text = text.replace("'", "\\(aq").replace("`", "\\(ga")
    return re.sub(r"^(?=\.)", r"\\&", text)


def bold(text):
    return f"\\fB{escaped(text)}\\fR"


def italic(text):
    return f"\\fI{escaped(text)}\\fR"


def filled(text):
    """Lines of a page for a text: each sentence begins a line, so that the formatter knows its end."""
    lines = []
    for sentence in re.split(r"(?<=[.!?])\s+", text.strip()):
        line = ""
        for word in sentence.split():
            if line and len(line) + 1 + len(word) > LINE_WIDTH:
                lines.append(escaped(line))
                line = ""
            line += (" " if line else "") + word
        if line:
            lines.append(escaped(line))
    return lines


def as_sentence(text):
    text = text[:1].upper() + text[1:]
    return text if text[-1:] in ".!?" else text + "."


def explanation(option):
    if "--help" in option["names"]:
        return "Print the help and exit."
    if "--version" in option["names"]:
        return "Print the version and exit."
    choices = option["value"]["choices"] if option["value"] else []
    text = option["help"].rstrip(".")
    if choices:
        text += ": " + ", ".join(choices[:-1]) + (" or " if len(choices) > 1 else "") + choices[-1]
    return as_sentence(text)


def call_of(option, names):
    """The option or argument as it is typed: "--user NICK"."""
    text = ", ".join(map(bold, names))
    if option["value"]:
        text += (" " if text else "") + italic(option["value"]["name"])
    return text + (" ..." if option["takesMany"] else "")


def synopsis_of(command):
    """The whole call; options that exclude each other stand in one pair of brackets."""
    groups = []
    for option in command["options"]:
        if groups and groups[-1][-1]["names"] and groups[-1][-1]["names"][-1] in option["excluded"]:
            groups[-1].append(option)
        else:
            groups.append([option])
    text = bold(command["name"])
    for group in groups:
        calls = " | ".join(call_of(option, option["names"][-1:]) for option in group)
        text += f" {calls}" if group[0]["isRequired"] else f" [{calls}]"
    return text


def option_list(options):
    lines = []
    for option in options:
        lines += [".TP", call_of(option, option["names"]), *filled(explanation(option))]
    return lines


def command_list(commands):
    lines, group = [], None
    for command in commands:
        if command["group"] != group:
            group = command["group"]
            lines.append(f".SS {group}")
        lines += [".TP", synopsis_of(command), *filled(as_sentence(command["summary"]))]
        lines += filled(command["details"]) if command["details"] else []
        if command["options"]:
            lines += [".RS", *option_list(command["options"]), ".RE"]
    return lines


def environment_list(program):
    """The variables that stand in for options, as the options' own explanations name them."""
    lines = []
    for option in program["options"] + [option for command in program["commands"] for option in command["options"]]:
        named = re.search(r"\(environment: (\w+)\)", option["help"])
        if named:
            lines += [".TP", bold(named[1]), "Stands in for", f".BR {escaped(option['names'][-1])} ,", "which goes first."]
    return lines


def example_list(commands):
    lines = [".nf", ".RS 4"]
    for command in commands:
        lines += [escaped(line) for line in command["examples"].splitlines()]
    return lines + [".RE", ".fi"]


def page_of(template, name, program, release):
    title = f'.TH {escaped(name.upper())} 1 {release.date:%Y-%m-%d} "Kavo Timing {release.version}" "User Commands"'
    parts = {
        "@TITLE@": [title],
        "@OPTIONS@": option_list(program["options"]),
        "@COMMANDS@": command_list(program["commands"]),
        "@ENVIRONMENT@": environment_list(program),
        "@EXAMPLES@": example_list(program["commands"]),
    }
    lines = []
    for line in template.splitlines():
        lines += parts.get(line, [line])
    return "\n".join(lines) + "\n"


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    name = sys.argv[2]
    programs = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    template = (HERE / f"{name}.1.in").read_text(encoding="utf-8")
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    sys.stdout.write(page_of(template, name, programs[name], releases.read_releases()[0]))


if __name__ == "__main__":
    main()
