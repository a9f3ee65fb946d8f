# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Completion for zsh, through _arguments."""

import re

from completion import quoted

AMONG = r"""
# CANDIDATE...: those that begin with what stands there, in any case of letters.
FUNCTION_among() {
  compadd -M 'm:{[:lower:][:upper:]}={[:upper:][:lower:]}' -- "$@"
}
"""

NICKS = r"""
# The nicks of the program folder in question, which the program itself knows.
FUNCTION_nicks() {
  local word before
  local -a nicks folder
  for word in $words_of_program; do
    [[ $before == --program-folder ]] && folder=(--program-folder ${(Q)${word/#\~\//$HOME/}})
    [[ $word == --program-folder=* ]] && folder=(--program-folder ${(Q)${${word#*=}/#\~\//$HOME/}})
    before=$word
  done
  nicks=(${${(f)"$(_call_program nicks $words_of_program[1] ${(q)folder} users 2>/dev/null)"}%$'\r'})
  FUNCTION_among $nicks
}
"""


def completion_of(program):
    lines = [f"#compdef {program.name}", f"# Made from the program's own table of options."]
    lines += AMONG.splitlines() if program.kinds() & {"choice", "nick"} else []
    lines += NICKS.splitlines() if "nick" in program.kinds() else []
    lines += commands_body(program) if program.commands else plain_body(program)
    lines += ["", 'FUNCTION "$@"', ""]
    return "\n".join(lines).replace("FUNCTION", program.function)


def described(text):
    """The text between brackets or behind a colon of a spec."""
    return re.sub(r"([\[\]\\:])", r"\\\1", text)


def action_of(option):
    if option.kind == "folder":
        return "_directories"
    if option.kind == "file":
        return f'_files -g "*.(#i){option.suffix()}(-.)"' if option.suffix() else "_files"
    if option.kind == "nick":
        return "FUNCTION_nicks"
    if option.kind == "choice":
        # The blank keeps the message's options away: all words are candidates.
        return " FUNCTION_among " + " ".join(re.sub(r"([\s:])", r"\\\1", choice) for choice in option.choices)
    return " "


def spec_of(option):
    """The words that tell _arguments of an option or argument."""
    message = described(option.value.lower())
    if not option.names:
        return [quoted(("*" if option.takes_many else "") + f":{message}:{action_of(option)}")]
    others = " ".join(option.names + option.excluded)
    value = f":{message}:{action_of(option)}" if option.kind else ""
    if option.takes_many:  # the words behind its first value complete as those without an option do
        return [quoted(f"*{name}=[{described(option.help)}]{value}") for name in option.names]
    return [quoted(f"({others}){name}{'=' if value else ''}[{described(option.help)}]{value}") for name in option.names]


def specs(options):
    return [word for option in options for word in spec_of(option)]


def call(words, indent):
    """One call of _arguments, a spec per line."""
    lines = [f"_arguments {words[0]}"] if words else ["_arguments"]
    lines += ["  " + word for word in words[1:]]
    return [" " * indent + line + (" \\" if i + 1 < len(lines) else "") for i, line in enumerate(lines)]


def plain_body(program):
    return ["", "FUNCTION() {", *call(["-S", *specs(program.options)], 2), "}"]


def listed(name, words):
    """An array of words with their descriptions."""
    lines = [f"local -a {name}", f"{name}=("]
    lines += ["  " + quoted(word.replace(":", "\\:") + ":" + text) for word, text in words.items()]
    return lines + [")", f"_describe -t commands command {name}"]


def commands_body(program):
    lines = ["", "FUNCTION() {", "  local context state state_descr line ret=1"]
    lines += ["  local -a common words_of_program", "  typeset -A opt_args"]
    lines += ["  words_of_program=($words)", "  common=("]
    lines += ["    " + word for word in specs(program.options)]
    lines += ["  )", "  _arguments -C -S $common '1: :->command' '*:: :->argument' && ret=0"]
    lines += ["  case $state in", "    command)"]
    lines += ["      " + line for line in listed("commands", program.first_words())]
    lines[-1] += " && ret=0"
    lines += ["      ;;", "    argument)", "      case $words[1] in"]
    for word in program.first_words():
        lines += [f"        {word})", *first_word_lines(program, word), "          ;;"]
    return lines + ["      esac", "      ;;", "  esac", "  return ret", "}"]


def first_word_lines(program, word):
    alone = [command for command in program.commands if command.words == [word]]
    longer = [command for command in program.commands if len(command.words) == 2 and command.words[0] == word]
    lines = []
    if longer:
        lines += ["          case $words[2] in"]
        for command in longer:
            lines += [f"            {command.words[1]})", "              shift words", "              (( CURRENT-- ))"]
            lines += [*command_call(command, 14), "              return", "              ;;"]
        lines += ["          esac", "          if (( CURRENT == 2 )); then"]
        lines += ["            " + line for line in listed("commands", program.second_words(word))]
        lines[-1] += " && ret=0"
        lines += ["          fi"]
    for command in alone:
        lines += command_call(command, 10)
        lines[-1] += " && ret=0"
    return lines


def command_call(command, indent):
    return call(["-S $common", *specs(command.options + command.arguments)], indent)
