// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/help.h"

#include <algorithm>

namespace kavo {

namespace {

constexpr std::size_t kLineWidth = 80;
constexpr std::size_t kTextColumn = 28;  ///< where explanations stand

constexpr std::string_view kIntroduction =
    "The results of Kavo Timing without a window: the same tables, reports and targets for scripts.";

constexpr std::string_view kExamples =
    "kavo-timing-cli show\n"
    "kavo-timing-cli --user Marek show --filter1 \"World Record\"\n"
    "kavo-timing-cli show --json | jq -r '.rows[-1].cells[1]'\n"
    "kavo-timing-cli export-html --template responsive.ett report.html\n"
    "kavo-timing-cli next --limit 5\n"
    "kavo-timing-cli watch --template stream-overlay.ett --output overlay.html\n";

constexpr std::string_view kExitStatuses =
    "0  done\n"
    "1  an error ended the loading or the command; it is told on standard error\n"
    "2  a wrong call\n";

std::string_view takeUpTo(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

/// `first` and, from a column on, the words of a text, in as many lines as they need.
std::string paragraph(const std::string& first, std::string_view text, std::size_t column)
{
    std::string result;
    std::string line = first;
    if (line.size() > column) {
        result = line + "\n";
        line.clear();
    }
    line.resize(column, ' ');
    for (bool isFirst = true; !text.empty(); isFirst = false) {
        const std::string_view word = takeUpTo(text, ' ');
        if (!isFirst && line.size() + 1 + word.size() > kLineWidth) {
            result += line + "\n";
            line.assign(column, ' ');
        } else if (!isFirst) {
            line += ' ';
        }
        line += word;
    }
    return result + line + "\n";
}

/// A row of a list: what it is about, and the explanation beside it.
std::string listed(std::string_view item, std::string_view explanation)
{
    constexpr std::string_view kMargin = "  ";
    return paragraph(std::string(kMargin).append(item).append(kMargin), explanation, kTextColumn);
}

std::string section(std::string_view title, std::string_view lines)
{
    std::string text = "\n" + std::string(title) + ":\n";
    while (!lines.empty()) text.append("  ").append(takeUpTo(lines, '\n')).append("\n");
    return text;
}

/// "--filter1 NAME"
std::string asTyped(const OptionInfo& info)
{
    std::string text(info.names);
    if (info.value) text.append(info.isArgument() ? "" : " ").append(info.value->name);
    return info.takesMany ? text + "..." : text;
}

std::string explanation(const OptionInfo& info)
{
    std::string text(info.help);
    if (!info.value || info.value->choices.empty()) return text;
    text += ": ";
    for (std::size_t i = 0; i < info.value->choices.size(); ++i)
        text.append(i == 0 ? "" : i + 1 == info.value->choices.size() ? " or " : ", ").append(info.value->choices[i]);
    return text;
}

std::string optionLines(const std::vector<OptionInfo>& options)
{
    std::string text;
    for (const OptionInfo& info : options) {
        std::string typed = asTyped(info);
        if (const std::size_t comma = typed.find(','); comma != std::string::npos) typed.insert(comma + 1, 1, ' ');
        text += listed(typed, explanation(info));
    }
    return text;
}

std::string commandLines()
{
    std::string text;
    std::string_view group;
    for (const CommandInfo& command : commands()) {
        if (command.group != group) text.append("\n").append(command.group).append(":\n");
        group = command.group;
        text += listed(command.name, command.summary);
    }
    return text;
}

bool excludes(const OptionInfo& info, const OptionInfo& other)
{
    return std::find(info.excluded.begin(), info.excluded.end(), other.names) != info.excluded.end();
}

}  // namespace

std::string usageOf(const CommandInfo& command)
{
    std::string text(command.name);
    const std::vector<OptionInfo> options = optionsOf(command);
    for (std::size_t i = 0; i < options.size(); ++i) {
        const OptionInfo& info = options[i];
        if (i > 0 && excludes(info, options[i - 1])) {
            text.pop_back();
            text += " | " + asTyped(info) + "]";
        } else {
            text += info.isRequired ? " " + asTyped(info) : " [" + asTyped(info) + "]";
        }
    }
    return text;
}

std::string generalHelp()
{
    std::string text = "Usage: kavo-timing-cli [OPTION]... COMMAND [ARGUMENT]...\n\n";
    text += paragraph("", kIntroduction, 0);
    text += commandLines();
    text += "\nOptions, before or behind the command:\n" + optionLines(commonOptions());
    text += section("Examples", kExamples);
    text += section("Exit status", kExitStatuses);
    return text + "\nkavo-timing-cli COMMAND --help tells about a command.\n";
}

std::string helpOf(const CommandInfo& command)
{
    constexpr std::string_view kUsage = "Usage: kavo-timing-cli ";
    std::string text = paragraph(std::string(kUsage), usageOf(command), kUsage.size());
    text += "\n" + paragraph("", std::string(command.summary) + ".", 0);
    if (!command.details.empty()) text += paragraph("", command.details, 0);
    const std::vector<OptionInfo> options = optionsOf(command);
    if (!options.empty()) text += "\nOptions:\n" + optionLines(options);
    text += "\nCommon options:\n" + optionLines(commonOptions());
    return text + section("Examples", command.examples);
}

}  // namespace kavo
