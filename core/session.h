// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/bug_times.h"
#include "core/colour_set.h"
#include "core/results_state.h"
#include "core/results_table.h"
#include "core/settings.h"

#include <filesystem>
#include <string>

namespace kavo {

inline constexpr double kDesignedFontSize = 8;  ///< of the results table, in points

/// One run of the program: the program folder, the current user, the shared results state and the
/// table. There is one, handed on by reference. Everything below the table is set anew by each loading.
struct Session
{
    std::filesystem::path programFolder;
    ResultsState state;

    /// Where templates were last loaded from or saved to in this run; empty before.
    std::filesystem::path lastTemplateFolder;

    ResultsTable table;
    std::string UserName;
    std::filesystem::path userFolder;
    std::string caption;
    ColourSet colours;
    double fontSize = kDesignedFontSize;
    std::string StatsPath;  ///< player 1's statistics file, as typed
    CompareMethod comparedWith = CompareMethod::AnotherFile;
    std::string CompPath;      ///< the file compared with, as typed, or kCompareWithTargets
    std::string CompCategory;  ///< the grade compared with; empty when comparing with a file
    bool hasSettings = false;  ///< the loading has come past the user's settings and names
    BugTimes BugTimes1;
    BugTimes BugTimes2;
};

}  // namespace kavo
