// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_table.h"

#include "cli/command_factories.h"

#include <array>

namespace kavo {

namespace {

constexpr std::string_view kResults = "Results";
constexpr std::string_view kProgress = "Progress";
constexpr std::string_view kReports = "Reports";
constexpr std::string_view kUpkeep = "Upkeep";

constexpr std::array kCommands = {
    CommandInfo{
        .name = "show",
        .group = kResults,
        .summary = "Print the results table",
        .details = "In colours where standard output is a terminal. --fit shortens the names of levels and players, "
                   "then the grades, never a time. As JSON it comes with grade counts, victories, colours and bold "
                   "marks, also when an error ended the loading.",
        .examples = "kavo-timing-cli show --filter1 Victories\n"
                    "kavo-timing-cli show --fit --colour always | less -R\n"
                    "kavo-timing-cli show --json | jq -r '.rows[-1].cells[1]'",
        .make = makeShowCommand,
    },
    CommandInfo{
        .name = "next",
        .group = kResults,
        .summary = "List the cheapest improvements",
        .details = "What is missing to the next better grade, the least first. Only levels that have been driven are "
                   "listed. A time that equals a target reaches it.",
        .examples = "kavo-timing-cli next\n"
                    "kavo-timing-cli next --grade \"World Class\" --limit 0\n"
                    "kavo-timing-cli next --json | jq '.within'",
        .make = makeNextCommand,
    },
    CommandInfo{
        .name = "club",
        .group = kResults,
        .summary = "Make the table of any number of players",
        .details = "The smallest total first; then the best of every level and who drove it. Files that cannot be "
                   "read are named and left out, and the exit status is 1.",
        .examples = "kavo-timing-cli club league/\n"
                    "kavo-timing-cli club north/ --partial north.part\n"
                    "kavo-timing-cli club --merge north.part south.part --json\n"
                    "kavo-timing-cli club league/ --html league.html",
        .make = makeClubCommand,
    },
    CommandInfo{
        .name = "history",
        .group = kProgress,
        .summary = "List the remembered results, the oldest first",
        .details = "Each distinct statistics file is kept once, outside the program folder. KAVO_HISTORY=off turns "
                   "the remembering off.",
        .examples = "kavo-timing-cli history\n"
                    "kavo-timing-cli history --json | jq -r '.states[-1].name'",
        .make = makeHistoryCommand,
    },
    CommandInfo{
        .name = "history save",
        .group = kProgress,
        .summary = "Remember the results as they are now",
        .details = "Prints the name of the state, also when it was remembered before.",
        .examples = "kavo-timing-cli history save",
        .make = makeHistorySaveCommand,
    },
    CommandInfo{
        .name = "history export",
        .group = kProgress,
        .summary = "Write the statistics file of a remembered state",
        .details = "A date names the last state up to its end; a time of day may follow it.",
        .examples = "kavo-timing-cli history export latest~1 before.txt\n"
                    "kavo-timing-cli history export 2026-11-21 november.txt",
        .make = makeHistoryExportCommand,
    },
    CommandInfo{
        .name = "diff",
        .group = kProgress,
        .summary = "Show what has changed between two remembered states",
        .details = "Level by level, with the grades by the targets of today and what the total has gained. A level "
                   "without a time counts ten minutes.",
        .examples = "kavo-timing-cli diff\n"
                    "kavo-timing-cli diff 2026-11-01 latest",
        .make = makeDiffCommand,
    },
    CommandInfo{
        .name = "best-ever",
        .group = kProgress,
        .summary = "Show the best of everything remembered",
        .details = "With FILE it is written as a statistics file, which the settings take as the file to compare with.",
        .examples = "kavo-timing-cli best-ever\n"
                    "kavo-timing-cli best-ever best.txt",
        .make = makeBestEverCommand,
    },
    CommandInfo{
        .name = "watch",
        .group = kProgress,
        .summary = "Follow the game and tell every improvement",
        .details = "A line as it happens, until Ctrl+C. A file that is being written is waited out. The results are "
                   "remembered, unless KAVO_HISTORY is off.",
        .examples = "kavo-timing-cli watch\n"
                    "kavo-timing-cli watch --template overlay.ett --output overlay.html\n"
                    "kavo-timing-cli watch --dashboard results.html",
        .make = makeWatchCommand,
    },
    CommandInfo{
        .name = "dashboard",
        .group = kReports,
        .summary = "Write everything about the results as one web page",
        .details = "Totals, next goals, all levels, who leads where, and the progress of what is remembered. The page "
                   "needs nothing but a browser and loads nothing. Without --output it is put where the results are "
                   "remembered, and its name is printed.",
        .examples = "kavo-timing-cli dashboard --open\n"
                    "kavo-timing-cli dashboard --output results.html",
        .make = makeDashboardCommand,
    },
    CommandInfo{
        .name = "export-text",
        .group = kReports,
        .summary = "Write the results as a text report",
        .details = "The same file as the window's text export.",
        .examples = "kavo-timing-cli export-text report.txt",
        .make = makeExportTextCommand,
    },
    CommandInfo{
        .name = "export-html",
        .group = kReports,
        .summary = "Write the results in the form of a template",
        .details = "The same file as the window's template export.",
        .examples = "kavo-timing-cli export-html --template responsive.ett report.html",
        .make = makeExportHtmlCommand,
    },
    CommandInfo{
        .name = "export-sheet",
        .group = kReports,
        .summary = "Write the results as a spreadsheet file",
        .details = "The sheet of the window's spreadsheet export, with times that can be added and sorted.",
        .examples = "kavo-timing-cli export-sheet results.xlsx",
        .make = makeExportSheetCommand,
    },
    CommandInfo{
        .name = "users",
        .group = kUpkeep,
        .summary = "List the users, a nick a line",
        .examples = "kavo-timing-cli users",
        .make = makeUsersCommand,
    },
    CommandInfo{
        .name = "update-targets",
        .group = kUpkeep,
        .summary = "Rewrite targets.txt from a downloaded records page",
        .details = "The targets before are kept as targets.bak.",
        .examples = "curl -s \"$PAGE\" | kavo-timing-cli update-targets --page -",
        .make = makeUpdateTargetsCommand,
    },
    CommandInfo{
        .name = "install-schemes",
        .group = kUpkeep,
        .summary = "Put the supplied colour schemes into the user's list",
        .details = "Without a NAME all of them. A scheme that is there already stays as it is.",
        .examples = "kavo-timing-cli install-schemes\n"
                    "kavo-timing-cli --user Marek install-schemes Night Contrast",
        .make = makeInstallSchemesCommand,
    },
    CommandInfo{
        .name = "doctor",
        .group = kUpkeep,
        .summary = "Find out what is wrong with the files",
        .details = "Looks at every file that the program reads, for every user, and changes nothing. A line for each "
                   "finding says where it is, what is expected there and what to do; the exit status is then 1.",
        .examples = "kavo-timing-cli doctor\n"
                    "kavo-timing-cli doctor --json | jq -r '.findings[].file'",
        .make = makeDoctorCommand,
    },
};

std::vector<OptionInfo> infosOf(std::vector<Option> options)
{
    std::vector<OptionInfo> infos;
    infos.reserve(options.size());
    for (Option& option : options) infos.push_back(std::move(option.info));
    return infos;
}

}  // namespace

std::span<const CommandInfo> commands()
{
    return kCommands;
}

const CommandInfo* findCommand(std::string_view name)
{
    for (const CommandInfo& command : kCommands)
        if (command.name == name) return &command;
    return nullptr;
}

std::vector<Option> CommonOptions::options()
{
    return {
        option("--program-folder", {.name = "DIR", .kind = ValueKind::Folder}, &programFolder,
               "the folder with users, targets and settings (environment: KAVO_PROGRAM_FOLDER)"),
        option("--user", {.name = "NICK", .kind = ValueKind::Nick}, &user,
               "whose results; by default who logged in last"),
        option("--code-page", {.name = "NAME"}, &codePage,
               "how texts that are no UTF-8 are shown: 1250, 1251, 1252, 866, koi8-r, iso-8859-2 ... (environment: "
               "KAVO_CODE_PAGE)"),
        option("--colour,--color",
               {.name = "WHEN", .kind = ValueKind::Choice, .choices = {kColourAuto, kColourAlways, kColourNever}},
               &colour, "colours for people; by default on a terminal that has them, unless NO_COLOR is set"),
        answer("-h,--help", Answer::Help, "this text; behind a command, the text about it"),
        answer("--version", Answer::Version, "the version"),
    };
}

std::vector<OptionInfo> optionsOf(const CommandInfo& command)
{
    return infosOf(command.make()->options());
}

std::vector<OptionInfo> commonOptions()
{
    return infosOf(CommonOptions().options());
}

}  // namespace kavo
