// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/loading.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "core/bug_times.h"
#include "core/colour_set.h"
#include "core/player_names.h"
#include "core/results_computation.h"
#include "core/row_colouring.h"
#include "core/settings.h"
#include "core/statistics_file.h"
#include "core/targets.h"
#include "core/users.h"
#include "core/version.h"
#include "core/window_layout.h"

#include <utility>

namespace fs = std::filesystem;

namespace kavo {

namespace {

/// Nothing of the loading before stays but the shared results state.
void startAnew(Session& session)
{
    session.table.clear();
    session.UserName.clear();
    session.userFolder.clear();
    session.caption = kProductName;
    session.colours = ColourSet{};
    session.fontSize = kDesignedFontSize;
    session.StatsPath.clear();
    session.comparedWith = CompareMethod::AnotherFile;
    session.CompPath.clear();
    session.CompCategory.clear();
    session.hasSettings = false;
}

void readLayout(const Session& session, LoadingHost& host)
{
    if (const auto text = readFileIfThere(layoutFile(session.userFolder))) host.applyLayout(parseLayoutValues(*text));
    host.layoutLoaded();
}

void readBugTimesOfPlayers(Session& session)
{
    const auto path = bugTimesFile(session.userFolder);
    if (!fileExists(path)) return;
    BugTimesByLevel times = parseFile(path, parseBugTimesByLevel);
    session.BugTimes1 = std::move(times.player1);
    session.BugTimes2 = std::move(times.player2);
}

/// Thrown through the steps of a loading that ends without an error.
struct EndOfLoading
{
    LoadingEnd end;
    fs::path wrongFile = {};
};

[[noreturn]] void endWithWrongFile(LoadingHost& host, const fs::path& file)
{
    host.showMessage({std::string(messages::kWrongFile)});
    static_cast<void>(host.openOptions());
    throw EndOfLoading{LoadingEnd::WrongFile, file};
}

void loadTargets(Session& session, LoadingHost& host)
{
    if (!LoadTargets(session.programFolder, session.state))
        host.showMessage({.text = std::string(messages::kMissingTargets), .icon = MessageIcon::Critical});
}

/// Player 2's times from the second file; returns whether there is such a file.
bool readSecondFile(Session& session, LoadingHost& host)
{
    const fs::path path = locateTyped(session.programFolder, session.CompPath);
    if (!fileExists(path)) return false;
    parseFile(path, [&session, &host, &path](std::string_view text) {
        // The saved previous results come from a file that was checked when it was player 1's.
        const bool isChecked = session.comparedWith != CompareMethod::PreviousResults;
        if (isChecked && !isSecondStatisticsFile(text)) endWithWrongFile(host, path);
        readTimesOfPlayer2(session, text);
    });
    return true;
}

void addSecondTotal(Session& session, const std::string& total)
{
    session.table.addRow("");
    session.table.setText(kTotalsRow, Column::Time2, total);
}

void fillSecondColumn(Session& session, LoadingHost& host, const std::string& total1)
{
    if (session.comparedWith == CompareMethod::Targets)
        addSecondTotal(session, fillWithTargets(session, total1));
    else if (readSecondFile(session, host))
        // Not in hours, unlike player 1's total: the column has always been shown this way.
        addSecondTotal(session, totalOf(session.table, Column::Time2));
}

void fillTable(Session& session, LoadingHost& host, const fs::path& statsPath)
{
    parseFile(statsPath, [&](std::string_view text) {
        if (!isStatisticsFile(text)) endWithWrongFile(host, statsPath);
        loadTargets(session, host);
        readTimesOfPlayer1(session, text);
    });
    for (const Grade& grade : grades())
        session.state.counter(Side::Team, grade.category) = session.state.counter(Side::Player2, grade.category);
    fillSecondColumn(session, host, addTotalsRow(session));
    compareColumns(session);
    Team2(session);
    for (int level = 1; level <= kLevels; ++level) session.table.setBold(level, Column::Team);
    TTColorTargets(session);
}

void runSteps(Session& session, LoadingHost& host, const LoadingOptions& options)
{
    session.UserName = options.user ? *options.user : readCurrentUser(session.programFolder);
    session.userFolder = userFolder(session.programFolder, session.UserName);
    if (options.makesFolders)
        makeColoursFolder(session.userFolder);
    else if (!folderExists(session.userFolder))
        throw RunTimeError(Failure::PathNotFound, session.userFolder);
    readLayout(session, host);
    session.state.resetCounters();
    session.BugTimes1.fill("");
    session.BugTimes2.fill("");
    session.caption = std::string(kProductName) + " " + std::string(kMajorMinor) + "  User: " + session.UserName;
    Init(session);
    session.colours = readTableColours(session.userFolder);
    readBugTimesOfPlayers(session);
    const fs::path statsPath = locateTyped(session.programFolder, session.StatsPath);
    if (fileExists(statsPath)) fillTable(session, host, statsPath);
    if (!fileExists(settingsFile(session.userFolder)) && host.openOptions() == AfterOptions::Abandon)
        throw EndOfLoading{LoadingEnd::Abandoned};
    // The row behind the totals. Without a second file there is none, and the totals row goes instead.
    session.table.removeLastRow();
    showNamesInHeaders(session);
}

}  // namespace

void Init(Session& session)
{
    const auto path = settingsFile(session.userFolder);
    if (fileExists(path)) {
        const Settings settings = parseFile(path, parseSettings);
        session.StatsPath = settings.statsPath;
        session.CompPath = settings.otherPath;
        session.CompCategory = settings.category;
        if (settings.fontSize && *settings.fontSize > 0) session.fontSize = *settings.fontSize;
        if (settings.compareMethod == static_cast<int>(CompareMethod::PreviousResults))
            session.CompPath = textOf(session.userFolder / kPreviousResultsName);
        if (settings.compareMethod == static_cast<int>(CompareMethod::Targets))
            session.CompPath = kCompareWithTargets;
        else
            session.CompCategory.clear();
    }
    if (session.StatsPath.empty()) session.StatsPath = textOf(session.programFolder / "stats.txt");
    if (session.CompPath.empty()) session.CompPath = session.StatsPath;
    session.comparedWith = methodOfPath(session.CompPath);
    readNames(session);
    session.hasSettings = true;
}

LoadingResult load(Session& session, LoadingHost& host, const LoadingOptions& options)
{
    startAnew(session);
    try {
        runSteps(session, host, options);
    } catch (const EndOfLoading& end) {
        return {.end = end.end, .wrongFile = end.wrongFile};
    } catch (const std::exception& error) {
        return {.end = LoadingEnd::Error, .error = inWords(error), .errorInFull = inFull(error)};
    }
    return {};
}

}  // namespace kavo
