# SPDX-FileCopyrightText: 2026 Kavo Timing contributors
# SPDX-License-Identifier: GPL-3.0-or-later

"""Completion for bash, through the functions of the package bash-completion."""

from completion import quoted

# Candidates may hold blanks: readline takes the words of a reply as they stand.
AMONG = r"""
# CANDIDATE...: replies those that begin with what stands there, in any case of letters.
FUNCTION_among()
{
    local candidate word typed=${cur#[\"\']}
    typed=${typed//\\/}
    for candidate in "$@"; do
        [[ ${candidate,,} == "${typed,,}"* ]] || continue
        word=$candidate
        [[ $cur == [\"\']* ]] || printf -v word %q "$candidate"
        COMPREPLY+=("$word")
    done
}
"""

NICKS = r"""
# A word of the command line without its quotes.
FUNCTION_unquoted()
{
    local word
    word=$(xargs printf %s <<<"$1" 2>/dev/null)
    [[ $word == \~ || $word == \~/* ]] && word=$HOME${word#\~}
    printf %s "$word"
}

# PROGRAM FOLDER: replies the nicks of a program folder, which the program itself knows.
FUNCTION_nicks()
{
    local program folder nick nicks=()
    program=$(FUNCTION_unquoted "$1")
    folder=$(FUNCTION_unquoted "$2")
    while IFS= read -r nick; do
        nicks+=("${nick%$'\r'}")
    done < <("$program" ${folder:+--program-folder "$folder"} users 2>/dev/null)
    FUNCTION_among "${nicks[@]}"
}
"""

BEGIN = r"""
FUNCTION()
{
    # shellcheck disable=SC2034  # what _init_completion sets
    local cur prev words cword split
    _init_completion -s || return
"""

WORDS = r"""
    # The words that are no options: command and arguments. Some options take all words up to the next option.
    local i typed=() folder='' many=''
    for ((i = 1; i < cword; i++)); do
        case ${words[i]} in
            --program-folder=*) folder=${words[i]#*=} many='' ;;
            --program-folder) folder=${words[++i]} many='' ;;
            ONE_VALUE) many='' i=$((i + 1)) ;;
            MANY_VALUES) many=${words[i]} ;;
            -?*) many='' ;;
            *) [[ $many ]] || typed+=("${words[i]}") ;;
        esac
    done
    local command=${typed[0]-} argument=$((${#typed[@]} - 1))
    [[ $many && $cur != -* ]] && prev=$many
"""


def completion_of(program):
    lines = [f"# bash completion for {program.name}, made from its own table of options"]
    lines += AMONG.splitlines() if program.kinds() & {"choice", "nick"} else []
    lines += NICKS.splitlines() if "nick" in program.kinds() else []
    lines += BEGIN.splitlines()
    lines += command_lines(program) if program.commands else []
    lines += value_lines(program) + option_lines(program) + word_lines(program)
    lines += ["} &&", f"    complete -F {program.function} {program.name}", ""]
    return "\n".join(lines).replace("FUNCTION", program.function)


def command_lines(program):
    def names(takes_many):
        found = [name for o in program.every_option() if o.kind and o.takes_many == takes_many for name in o.names]
        return [name for name in dict.fromkeys(found) if name != "--program-folder"]

    lines = []
    for line in WORDS.splitlines():
        if "ONE_VALUE" in line and not names(False) or "MANY_VALUES" in line and not names(True):
            continue
        line = line.replace("ONE_VALUE", " | ".join(names(False)))
        lines.append(line.replace("MANY_VALUES", " | ".join(names(True))))
    longer = [quoted(command.name) for command in program.commands if len(command.words) == 2]
    if longer:
        lines += [
            '    case "$command ${typed[1]-}" in',
            f"        {' | '.join(longer)}) command+=\" ${{typed[1]}}\" argument=$((argument - 1)) ;;",
            "    esac",
        ]
    return lines


def action_of(option):
    """What completes a value; an empty text when nothing can."""
    if option.kind == "folder":
        return "_filedir -d"
    if option.kind == "file":
        return "_filedir " + option.suffix() if option.suffix() else "_filedir"
    if option.kind == "nick":
        return 'FUNCTION_nicks "$1" "$folder"'
    if option.kind == "choice":
        return "FUNCTION_among " + " ".join(map(quoted, option.choices))
    return ""


def value_lines(program):
    lines = ["", "    # A value behind an option.", "    case $prev in"]
    for option in program.options:
        if option.kind:
            lines += case_of(" | ".join(option.names), action_of(option))
    lines.append("    esac")
    valued = [(command, option) for command in program.commands for option in command.options if option.kind]
    if valued:
        lines.append('    case "$command $prev" in')
        for command, option in valued:
            patterns = " | ".join(quoted(f"{command.name} {name}") for name in option.names)
            lines += case_of(patterns, action_of(option))
        lines.append("    esac")
    return lines + ["    $split && return"]


def case_of(patterns, action):
    actions = [f"            {action}"] if action else []
    return [f"        {patterns})", *actions, "            return", "            ;;"]


def reply(words):
    return f'mapfile -t COMPREPLY < <(compgen -W {words} -- "$cur")'


def option_lines(program):
    common = [name for option in program.options for name in option.names]
    lines = ["", "    if [[ $cur == -* ]]; then", f"        local options='{' '.join(common)}'"]
    if program.commands:
        lines.append("        case $command in")
        for command in program.commands:
            own = " ".join(name for option in command.options for name in option.names)
            if own:
                lines.append(f"            {quoted(command.name)}) options+=' {own}' ;;")
        lines.append("        esac")
    return lines + [f"        {reply(chr(34) + '$options' + chr(34))}", "        return", "    fi"]


def word_lines(program):
    if not program.commands:
        return ["    " + reply(quoted(" ".join(option.names[-1] for option in program.options)))]
    first = program.first_words()
    lines = ["    if ((${#typed[@]} == 0)); then", f"        {reply(quoted(' '.join(first)))}"]
    lines += ["        return", "    fi"]
    for word in first:
        second = program.second_words(word)
        if second:
            lines += [
                f"    if ((${{#typed[@]}} == 1)) && [[ $command == {quoted(word)} ]]; then",
                f"        {reply(quoted(' '.join(second)))}",
                "    fi",
            ]
    lines.append('    case "$command/$argument" in')
    for command in program.commands:
        for number, argument in enumerate(command.arguments):
            pattern = quoted(f"{command.name}/") + "*" if argument.takes_many else quoted(f"{command.name}/{number}")
            if action_of(argument):
                lines.append(f"        {pattern}) {action_of(argument)} ;;")
    return lines + ["    esac"]
