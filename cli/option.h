// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace kavo {

/// What a value stands for: shells complete by it.
enum class ValueKind { Text, Number, File, Folder, Nick, Choice };

/// A value behind an option, or an argument.
struct Value
{
    std::string_view name;  ///< as help names it: FILE
    ValueKind kind = ValueKind::Text;
    std::vector<std::string_view> choices = {};  ///< of a Choice; typed in any case of letters
};

/// An option or an argument as the user sees it. Names and texts are literals.
struct OptionInfo
{
    std::string_view names;      ///< "--json" or "-h,--help"; empty for an argument
    std::optional<Value> value;  ///< none for a flag
    std::string_view help;
    std::vector<std::string_view> excluded;  ///< names of options that cannot stand beside it
    std::vector<std::string_view> needed;    ///< names of options that must stand beside it
    bool isRequired = false;
    bool takesMany = false;  ///< values up to the next option

    [[nodiscard]] bool isArgument() const { return names.empty(); }
};

/// Options that are answered in place of running the command.
enum class Answer { None, Help, Version };

/// Where the value goes. A std::string must be given, anything else may be left out and keeps its value.
using OptionTarget =
    std::variant<Answer, bool*, std::string*, std::optional<std::string>*, std::vector<std::string>*, int*, double*>;

/// An option or an argument of a command, with the place for its value.
struct Option
{
    OptionInfo info;
    OptionTarget target;

    [[nodiscard]] Option excluding(std::string_view name) &&;
    [[nodiscard]] Option needing(std::string_view name) &&;
};

[[nodiscard]] Option flag(std::string_view names, bool& target, std::string_view help);
[[nodiscard]] Option answer(std::string_view names, Answer answer, std::string_view help);
[[nodiscard]] Option option(std::string_view names, Value value, OptionTarget target, std::string_view help);
[[nodiscard]] Option argument(Value value, OptionTarget target, std::string_view help);

/// The names one by one: "-h,--help" gives "-h" and "--help".
[[nodiscard]] std::vector<std::string_view> namesOf(const OptionInfo& info);

}  // namespace kavo
