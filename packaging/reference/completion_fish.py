# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Completion for fish."""


WORDS = r"""
# The words before the cursor that are no options and no values of options, without the program's name.
function FUNCTION_words
    set -l tokens (commandline -opc)
    set -e tokens[1]
    set -l skip no
    set -l many no
    for token in $tokens
        if test $skip = yes
            set skip no
            continue
        end
        switch $token
            case ONE_VALUE
                set skip yes
                set many no
            case MANY_VALUES
                set many yes
            case '-?*'
                set many no
            case '*'
                test $many = yes; or echo -- $token
        end
    end
end

# COMMAND...: whether one of these is the command; the longest name that fits counts.
function FUNCTION_is
    set -l words (FUNCTION_words)
    set -l command "$words[1]"
    contains -- "$words[1..2]" LONGER; and set command "$words[1..2]"
    contains -- "$command" $argv
end

# COMMAND NUMBER: whether its NUMBERth argument stands at the cursor.
function FUNCTION_argument
    FUNCTION_is $argv[1]; or return
    test (count (FUNCTION_words)) -eq (math (count (string split ' ' -- $argv[1])) + $argv[2] - 1)
end

# WORD: whether it stands there, and nothing behind it yet.
function FUNCTION_begins
    set -l words (FUNCTION_words)
    test "$words" = "$argv[1]"
end
"""

NICKS = r"""
# The nicks of the program folder in question, which the program itself knows.
function FUNCTION_nicks
    set -l tokens (commandline -opc)
    set -l program $tokens[1]
    set -l folder
    for i in (seq (count $tokens))
        switch $tokens[$i]
            case '--program-folder=*'
                set folder --program-folder (string replace -- '--program-folder=' '' $tokens[$i])
            case --program-folder
                set -l next (math $i + 1)
                test $next -le (count $tokens); and set folder --program-folder $tokens[$next]
        end
    end
    string match -q -- '~*' $program; and set program (string replace -- '~' $HOME $program)
    string match -q -- '~*' $folder[2]; and set folder[2] (string replace -- '~' $HOME $folder[2])
    $program $folder users 2>/dev/null | string trim --right --chars \r
end
"""


def quoted(text):
    """As one word of fish, where a backslash also escapes between quotes."""
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def completion_of(program):
    lines = [f"# fish completion for {program.name}, made from its own table of options"]
    if program.commands:
        lines += words_function(program)
        lines += NICKS.splitlines() if "nick" in program.kinds() else []
    begin = f"complete -c {program.name}"
    lines += ["", f"{begin} -f"]
    lines += [f"{begin}{option_words(option)}" for option in program.options]
    for word, summary in program.first_words().items():
        lines.append(f"{begin} -n 'FUNCTION_begins \"\"' -a {word} -d {quoted(summary)}")
        for second, text in program.second_words(word).items():
            lines.append(f"{begin} -n 'FUNCTION_begins {word}' -a {second} -d {quoted(text)}")
    for command in program.commands:
        condition = quoted(f"FUNCTION_is {quoted(command.name)}")
        lines += [f"{begin} -n {condition}{option_words(option)}" for option in command.options]
        lines += [begin + line for line in argument_words(command)]
    return "\n".join(lines).replace("FUNCTION", "_" + program.function) + "\n"


def words_function(program):
    def names(takes_many):
        found = [name for o in program.every_option() if o.kind and o.takes_many == takes_many for name in o.names]
        return " ".join(dict.fromkeys(found))

    longer = " ".join(quoted(command.name) for command in program.commands if len(command.words) == 2)
    text = WORDS.replace("ONE_VALUE", names(False)).replace("LONGER", longer or "''")
    many = names(True)
    if many:
        return text.replace("MANY_VALUES", many).splitlines()
    return text.replace("            case MANY_VALUES\n                set many yes\n", "").splitlines()


def option_words(option):
    words = "".join(f" -l {name[2:]}" if name.startswith("--") else f" -s {name[1:]}" for name in option.names)
    return words + (value_words(option, "-x") if option.kind else "") + f" -d {quoted(option.help)}"


def value_words(option, required):
    """What completes the value; `required` tells that there must be one."""
    if option.kind == "folder":
        return f" {required} -a '(__fish_complete_directories)'"
    if option.kind == "file" and option.suffix():
        return f" {required} -k -a '(__fish_complete_suffix .{option.suffix()})'"
    if option.kind == "file":
        return " -r -F" if required else " -F"
    if option.kind == "nick":
        return f" {required} -a '(FUNCTION_nicks)'"
    if option.kind == "choice":
        return f" {required} -a {quoted(' '.join(map(quoted, option.choices)))}"
    return f" {required}"


def argument_words(command):
    for number, argument in enumerate(command.arguments, start=1):
        if argument.kind in ("text", "number"):
            continue
        condition = f"FUNCTION_argument {quoted(command.name)} {number}"
        if argument.takes_many:
            condition = f"FUNCTION_is {quoted(command.name)}"
        yield f" -n {quoted(condition)}{value_words(argument, '')}"
