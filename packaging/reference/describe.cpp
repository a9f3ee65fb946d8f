// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Prints the commands and options of both programs as JSON: the manuals and the completion of shells are made
// from it while the packages are built.

#include "cli/command_table.h"
#ifdef KAVO_GUI
#include "app/program_options.h"
#endif

#include <nlohmann/json.hpp>

#include <iostream>

namespace {

using Json = nlohmann::ordered_json;

std::string_view nameOf(kavo::ValueKind kind)
{
    switch (kind) {
    case kavo::ValueKind::Text: return "text";
    case kavo::ValueKind::Number: return "number";
    case kavo::ValueKind::File: return "file";
    case kavo::ValueKind::Folder: return "folder";
    case kavo::ValueKind::Nick: return "nick";
    case kavo::ValueKind::Choice: return "choice";
    }
    return {};
}

Json described(const kavo::OptionInfo& info)
{
    Json value;
    if (info.value)
        value = {{"name", info.value->name}, {"kind", nameOf(info.value->kind)}, {"choices", info.value->choices}};
    return {{"names", kavo::namesOf(info)}, {"value", std::move(value)},     {"help", info.help},
            {"excluded", info.excluded},    {"isRequired", info.isRequired}, {"takesMany", info.takesMany}};
}

Json described(const std::vector<kavo::OptionInfo>& options)
{
    Json all = Json::array();
    for (const kavo::OptionInfo& info : options) all.push_back(described(info));
    return all;
}

Json commandLine()
{
    Json commands = Json::array();
    for (const kavo::CommandInfo& command : kavo::commands())
        commands.push_back({{"name", command.name},
                            {"group", command.group},
                            {"summary", command.summary},
                            {"details", command.details},
                            {"examples", command.examples},
                            {"options", described(kavo::optionsOf(command))}});
    return {{"options", described(kavo::commonOptions())}, {"commands", std::move(commands)}};
}

#ifdef KAVO_GUI
Json described(const kavo::ProgramOption& option)
{
    Json names = Json::array();
    if (!option.shortName.empty()) names.push_back("-" + std::string(option.shortName));
    names.push_back("--" + std::string(option.name));
    Json value;
    if (option.value != kavo::OptionValue::None)
        value = {{"name", option.valueName},
                 {"kind", option.value == kavo::OptionValue::Folder ? "folder" : "text"},
                 {"choices", Json::array()}};
    return {{"names", std::move(names)}, {"value", std::move(value)}, {"help", option.help},
            {"excluded", Json::array()}, {"isRequired", false},       {"takesMany", false}};
}

Json desktopProgram()
{
    Json options = Json::array();
    for (const kavo::ProgramOption& option : kavo::kProgramOptions) options.push_back(described(option));
    return {{"options", std::move(options)}, {"commands", Json::array()}};
}
#endif

}  // namespace

int main()
{
    Json programs = {{"kavo-timing-cli", commandLine()}};
#ifdef KAVO_GUI
    programs["kavo-timing"] = desktopProgram();
#endif
    std::cout << programs.dump(2) << '\n';
    return std::cout.flush() ? 0 : 1;
}
