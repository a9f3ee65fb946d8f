// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/finding.h"

#include <string_view>

/// The small files of a program folder, each by its text. Where a file is and whether it can be read is looked
/// at elsewhere.
namespace kavo {

[[nodiscard]] Findings checkSettings(std::string_view text);     ///< `data.ini`
[[nodiscard]] Findings checkNames(std::string_view text);        ///< `names.dat`
[[nodiscard]] Findings checkLayout(std::string_view text);       ///< `view.dat`
[[nodiscard]] Findings checkBugTimes(std::string_view text);     ///< `bugs.dat`
[[nodiscard]] Findings checkColours(std::string_view text);      ///< `colors.ini` and the schemes
[[nodiscard]] Findings checkUsers(std::string_view text);        ///< `users.dat`
[[nodiscard]] Findings checkCurrentUser(std::string_view text);  ///< `curUser.dat`
[[nodiscard]] Findings checkAutoLogin(std::string_view text);    ///< `autolog.dat`
[[nodiscard]] Findings checkLinks(std::string_view text);        ///< `links.txt`
[[nodiscard]] Findings checkTemplate(std::string_view text);     ///< `.ett`

}  // namespace kavo
