// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/call.h"

#include "cli/option_parser.h"
#include "cli/suggestion.h"

namespace kavo {

namespace {

constexpr std::size_t kLongestName = 2;  ///< words in a command's name

/// The common option that an argument ("--user", "--user=Marek") names.
const Option* findOption(const std::vector<Option>& options, std::string_view argument)
{
    const std::string_view typed = argument.substr(0, argument.find('='));
    for (const Option& option : options)
        for (const std::string_view name : namesOf(option.info))
            if (name == typed) return &option;
    return nullptr;
}

[[noreturn]] void refuseBeforeCommand(const std::string& argument, const std::vector<Option>& commonOptions)
{
    std::vector<std::string_view> names;
    for (const Option& option : commonOptions)
        for (const std::string_view name : namesOf(option.info)) names.push_back(name);
    const std::string typed = argument.substr(0, argument.find('='));
    throw UsageError("unknown option " + typed + " before the command" +
                     didYouMean(typed, names, "; the options of a command stand behind it"));
}

/// Places of the first words that are neither a common option nor the value of one. Behind an option that
/// only a command may know, nothing tells a word from a value.
std::vector<std::size_t> placesOfWords(const std::vector<std::string>& arguments,
                                       const std::vector<Option>& commonOptions)
{
    std::vector<std::size_t> places;
    bool onlyWords = false;
    for (std::size_t i = 0; i < arguments.size() && places.size() < kLongestName; ++i) {
        const std::string& argument = arguments[i];
        if (onlyWords || !argument.starts_with('-')) {
            places.push_back(i);
        } else if (argument == "--") {
            onlyWords = true;
        } else if (const Option* option = findOption(commonOptions, argument)) {
            const bool hasValueBehind = option->info.value && argument.find('=') == std::string::npos;
            if (hasValueBehind) ++i;
        } else if (places.empty()) {
            refuseBeforeCommand(argument, commonOptions);
        } else {
            break;
        }
    }
    return places;
}

std::vector<std::string_view> namesOfCommands()
{
    std::vector<std::string_view> names;
    for (const CommandInfo& command : commands()) names.push_back(command.name);
    return names;
}

/// A command whose name goes on takes no arguments by itself: its second word may be a mistyped one.
void refuseMistypedSecondWord(const std::string& first, const std::string& second)
{
    std::vector<std::string_view> names = namesOfCommands();
    std::erase_if(names, [&first](std::string_view name) { return !name.starts_with(first + " "); });
    const std::string typed = first + " " + second;
    const std::string meant = didYouMean(typed, names, "");
    if (!meant.empty()) throw UsageError("unknown command " + typed + meant);
}

}  // namespace

Call findCall(std::vector<std::string> arguments, const std::vector<Option>& commonOptions)
{
    std::vector<std::size_t> places = placesOfWords(arguments, commonOptions);
    if (places.empty()) return {nullptr, std::move(arguments)};
    const CommandInfo* command = nullptr;
    if (places.size() == kLongestName) command = findCommand(arguments[places[0]] + " " + arguments[places[1]]);
    if (command == nullptr) {
        command = findCommand(arguments[places[0]]);
        if (command != nullptr && places.size() == kLongestName)
            refuseMistypedSecondWord(arguments[places[0]], arguments[places[1]]);
        places.erase(places.begin() + 1, places.end());
    }
    if (command == nullptr) {
        const std::string& word = arguments[places[0]];
        throw UsageError("unknown command " + word +
                         didYouMean(word, namesOfCommands(), "; for help: kavo-timing-cli --help"));
    }
    for (std::size_t i = places.size(); i-- > 0;)
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(places[i]));
    return {command, std::move(arguments)};
}

}  // namespace kavo
