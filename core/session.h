#pragma once

#include "core/bug_times.h"
#include "core/colour_set.h"
#include "core/results_state.h"
#include "core/results_table.h"

#include <filesystem>
#include <string>

namespace kavo {

inline constexpr double kDesignedFontSize = 8;  ///< of the results table, in points

/// What comparing with targets puts in place of a second file's path.
inline constexpr std::string_view kCompareWithTargets = "compwith";

/// One run of the program: the program folder, the current user, the shared results state and the
/// table. There is one, handed on by reference. Everything below the table is set anew by each loading.
struct Session
{
    std::filesystem::path programFolder;
    std::string recordsHost;  ///< where the world-records page is fetched; empty for the default host
    ResultsState state;

    /// From the opening of a template report until it is closed. One that breaks off is never closed, and
    /// no other can then be written in this run.
    bool isHtmlReportOpen = false;

    /// Where templates were last loaded from or saved to in this run; empty before.
    std::filesystem::path lastTemplateFolder;

    ResultsTable table;
    std::string UserName;
    std::filesystem::path userFolder;
    std::string caption;
    ColourSet colours;
    double fontSize = kDesignedFontSize;
    std::string StatsPath;     ///< player 1's statistics file, as typed
    std::string CompPath;      ///< the file compared with, or kCompareWithTargets
    std::string CompCategory;  ///< the grade compared with; empty when comparing with a file
    BugTimes BugTimes1;
    BugTimes BugTimes2;
};

}  // namespace kavo
