// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/option.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace kavo {

/// A wrong call; what() tells the user.
class UsageError final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Fills the options' targets from the arguments. When help or the version is asked for, nothing is missed
/// among them. Throws UsageError; `whereHelpIs` follows an error that suggests nothing.
[[nodiscard]] Answer parseArguments(const std::vector<Option>& options, const std::vector<std::string>& arguments,
                                    std::string_view whereHelpIs);

}  // namespace kavo
