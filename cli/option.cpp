// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/option.h"

#include <algorithm>
#include <utility>

namespace kavo {

namespace {

Option make(std::string_view names, std::string_view help, OptionTarget target)
{
    Option option;
    option.info.names = names;
    option.info.help = help;
    option.target = target;
    return option;
}

}  // namespace

Option Option::excluding(std::string_view name) &&
{
    info.excluded.push_back(name);
    return std::move(*this);
}

Option Option::needing(std::string_view name) &&
{
    info.needed.push_back(name);
    return std::move(*this);
}

Option flag(std::string_view names, bool& target, std::string_view help)
{
    return make(names, help, &target);
}

Option answer(std::string_view names, Answer answer, std::string_view help)
{
    return make(names, help, answer);
}

Option option(std::string_view names, Value value, OptionTarget target, std::string_view help)
{
    Option option = make(names, help, target);
    option.info.value = std::move(value);
    option.info.isRequired = std::holds_alternative<std::string*>(target);
    option.info.takesMany = std::holds_alternative<std::vector<std::string>*>(target);
    return option;
}

Option argument(Value value, OptionTarget target, std::string_view help)
{
    return option({}, std::move(value), target, help);
}

std::vector<std::string_view> namesOf(const OptionInfo& info)
{
    std::vector<std::string_view> names;
    for (std::string_view rest = info.names; !rest.empty();) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        names.push_back(rest.substr(0, comma));
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    return names;
}

}  // namespace kavo
