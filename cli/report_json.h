// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/loading.h"

#include <string>
#include <vector>

namespace kavo {

/// What a loading left, for `show --json`.
struct LoadingReport
{
    const Session& session;
    const LoadingResult& result;
    const std::vector<std::string>& messages;  ///< texts of the boxes that a window would have shown
};

/// One object in UTF-8, ended by a line feed.
[[nodiscard]] std::string formatJson(const LoadingReport& report);

}  // namespace kavo
