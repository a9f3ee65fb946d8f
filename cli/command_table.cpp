#include "cli/command_table.h"

#include "cli/command_factories.h"

#include <array>

namespace kavo {

namespace {

constexpr std::string_view kResults = "Results";
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
