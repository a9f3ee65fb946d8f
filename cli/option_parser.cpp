// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/option_parser.h"

#include "base/text.h"
#include "cli/suggestion.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <type_traits>

namespace kavo {

namespace {

template <typename... Functions>
struct Overloaded : Functions...
{
    using Functions::operator()...;
};
template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

/// Replaces a value by the choice that it names in any case of letters; returns what is wrong with it.
std::string chooseAmong(const Value& value, std::string& typed)
{
    const auto sameWord = [&typed](std::string_view choice) { return equalIgnoringCase(choice, typed); };
    const auto chosen = std::find_if(value.choices.begin(), value.choices.end(), sameWord);
    if (chosen != value.choices.end()) {
        typed = *chosen;
        return {};
    }
    std::string all = "; there are ";
    for (std::size_t i = 0; i < value.choices.size(); ++i) all.append(i == 0 ? "" : ", ").append(value.choices[i]);
    return "unknown value " + typed + didYouMean(typed, value.choices, all);
}

template <typename Number>
std::string numberFault(const std::string& typed)
{
    Number number{};
    const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
    const bool isWhole = error == std::errc{} && end == typed.data() + typed.size();
    return isWhole ? "" : typed + (std::is_integral_v<Number> ? " is no whole number" : " is no number");
}

/// The parser would take a folder called "[a,b]" for a list of two. A NUL in front, which no argument can hold,
/// keeps it whole until asTyped() takes it away.
std::string keptWhole(std::string word)
{
    const std::size_t value = word.starts_with("--") ? word.find('=') + 1 : 0;
    if (word.substr(value).starts_with('[')) word.insert(value, 1, '\0');
    return word;
}

std::string asTyped(std::string word)
{
    std::erase(word, '\0');
    return word;
}

/// What is wrong with a value; empty when nothing is.
std::string faultOf(const Option& option, std::string& typed)
{
    const Value& value = *option.info.value;
    typed = asTyped(typed);
    if (typed.empty()) return std::string(value.name) + " is empty";
    if (value.kind == ValueKind::Choice) return chooseAmong(value, typed);
    if (std::holds_alternative<int*>(option.target)) return numberFault<int>(typed);
    if (std::holds_alternative<double*>(option.target)) return numberFault<double>(typed);
    return {};
}

/// The name by which the parser knows an option or an argument.
std::string keyOf(const OptionInfo& info)
{
    return std::string(info.isArgument() ? info.value->name : namesOf(info).front());
}

CLI::Option* addTo(CLI::App& app, const Option& option)
{
    const OptionInfo& info = option.info;
    const std::string names(info.isArgument() ? info.value->name : info.names);
    return std::visit(Overloaded{[&](Answer wanted) {
                                     return wanted == Answer::Help ? app.set_help_flag(names)
                                                                   : app.set_version_flag(names, "");
                                 },
                                 [&](bool* target) { return app.add_flag(names, *target); },
                                 [&](auto* target) { return app.add_option(names, *target); }},
                      option.target);
}

void addAll(CLI::App& app, const std::vector<Option>& options)
{
    app.set_help_flag();
    for (const Option& option : options) {
        CLI::Option* added = addTo(app, option);
        added->required(option.info.isRequired);
        if (option.info.value)
            added->transform(CLI::Validator([&option](std::string& typed) { return faultOf(option, typed); }, ""));
    }
    for (const Option& option : options) {
        CLI::Option* added = app.get_option(keyOf(option.info));
        for (const std::string_view name : option.info.excluded) added->excludes(app.get_option(std::string(name)));
        for (const std::string_view name : option.info.needed) added->needs(app.get_option(std::string(name)));
    }
}

bool isOption(const std::string& word)
{
    return word.starts_with('-') && word != "-";
}

/// The first word that nothing knows; an option rather than what may have been meant as its value.
std::optional<std::string> firstUnexpected(const CLI::App& app)
{
    std::vector<std::string> words = app.remaining();
    std::erase(words, "--");
    if (words.empty()) return std::nullopt;
    const auto option = std::find_if(words.begin(), words.end(), isOption);
    return asTyped(option != words.end() ? *option : words.front());
}

std::string unexpected(const std::string& word, const std::vector<Option>& options, std::string_view whereHelpIs)
{
    std::vector<std::string_view> names;
    for (const Option& option : options)
        for (const std::string_view name : namesOf(option.info)) names.push_back(name);
    const std::string name = word.substr(0, word.find('='));
    // Behind "--" an option's name is a word like any other.
    const bool isKnown = std::find(names.begin(), names.end(), name) != names.end();
    if (isKnown || !isOption(word)) return std::string("unexpected argument ").append(word).append(whereHelpIs);
    return "unknown option " + name + didYouMean(name, names, whereHelpIs);
}

/// An option that stands there too often, or without its value.
std::string mismatch(const CLI::App& app, const std::vector<Option>& options, const CLI::ArgumentMismatch& error)
{
    const std::string_view text = error.what();
    for (const Option& option : options) {
        const std::string key = keyOf(option.info);
        if (!text.starts_with(key + ":")) continue;
        if (app.get_option(key)->count() > 1) return key + " stands there twice";
        if (option.info.value) return key + " needs a value: " + std::string(option.info.value->name);
    }
    return std::string(text);
}

}  // namespace

Answer parseArguments(const std::vector<Option>& options, const std::vector<std::string>& arguments,
                      std::string_view whereHelpIs)
{
    CLI::App app;
    addAll(app, options);
    app.allow_extras();
    std::vector<std::string> words;  // the last first, as the parser takes them
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(words), keptWhole);
    try {
        app.parse(std::move(words));
    } catch (const CLI::CallForHelp&) {
        return Answer::Help;
    } catch (const CLI::CallForVersion&) {
        return Answer::Version;
    } catch (const CLI::ArgumentMismatch& error) {
        throw UsageError(mismatch(app, options, error).append(whereHelpIs));
    } catch (const CLI::ValidationError& error) {
        throw UsageError(error.what());
    } catch (const CLI::ParseError& error) {
        // A mistyped option is the cause of whatever is then missing.
        const auto word = firstUnexpected(app);
        throw UsageError(word ? unexpected(*word, options, whereHelpIs)
                              : std::string(error.what()).append(whereHelpIs));
    }
    if (const auto word = firstUnexpected(app)) throw UsageError(unexpected(*word, options, whereHelpIs));
    return Answer::None;
}

}  // namespace kavo
