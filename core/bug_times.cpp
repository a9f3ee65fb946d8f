// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/bug_times.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_cursor.h"
#include "base/text_file.h"

#include <algorithm>
#include <array>

namespace kavo {

namespace {

constexpr std::string_view kPlayer1Marker = "Player1";
constexpr std::string_view kPlayer2Marker = "Player2";
constexpr std::size_t kEntryLength = 12;
constexpr std::size_t kLevelDigits = 2;
constexpr std::size_t kTimeAt = 5;
constexpr std::array<std::size_t, 4> kNumberPositions = {1, 5, 8, 11};

/// Reads entry by entry, so that the first fault of a file is the one reported.
template <typename Take1, typename Take2>
void forEachEntry(std::string_view text, Take1 takeOfPlayer1, Take2 takeOfPlayer2)
{
    TextCursor cursor(text);
    if (!equalIgnoringCase(cursor.line(), kPlayer1Marker)) return;
    for (std::string_view line = cursor.line(); !equalIgnoringCase(line, kPlayer2Marker); line = cursor.line())
        takeOfPlayer1(line);
    while (!cursor.atEnd()) takeOfPlayer2(cursor.line());
}

void store(BugTimes& times, std::string_view entry)
{
    const int level = integerOf(firstCharacters(entry, kLevelDigits));
    if (level < 1 || level > kLevels) throw RunTimeError(Failure::SubscriptOutOfRange);
    times[level] = fromCharacter(entry, kTimeAt);
}

}  // namespace

BugTimeEntries parseBugTimes(std::string_view text)
{
    BugTimeEntries entries;
    forEachEntry(
        text, [&entries](std::string_view entry) { entries.player1.emplace_back(entry); },
        [&entries](std::string_view entry) { entries.player2.emplace_back(entry); });
    return entries;
}

BugTimesByLevel parseBugTimesByLevel(std::string_view text)
{
    BugTimesByLevel times;
    forEachEntry(
        text, [&times](std::string_view entry) { store(times.player1, entry); },
        [&times](std::string_view entry) { store(times.player2, entry); });
    return times;
}

std::string formatBugTimes(const BugTimeEntries& entries)
{
    std::string text;
    const auto add = [&text](std::string_view line) { text.append(asLine(line)); };
    add(kPlayer1Marker);
    for (const std::string& entry : entries.player1) add(entry);
    add(kPlayer2Marker);
    for (const std::string& entry : entries.player2) add(entry);
    return text;
}

bool isBugTimeEntry(std::string_view text)
{
    // Lenient on purpose: players have entries with other separators in their files.
    if (countCharacters(text) != kEntryLength) return false;
    return std::all_of(kNumberPositions.begin(), kNumberPositions.end(),
                       [text](std::size_t position) { return isNumeric(characters(text, position, 2)); });
}

std::filesystem::path bugTimesFile(const std::filesystem::path& userFolder)
{
    return locate(userFolder / "bugs.dat");
}

BugTimeEntries readBugTimes(const std::filesystem::path& userFolder)
{
    const auto path = bugTimesFile(userFolder);
    return fileExists(path) ? parseFile(path, parseBugTimes) : BugTimeEntries{};
}

void saveBugTimes(const std::filesystem::path& userFolder, const BugTimeEntries& entries)
{
    const auto path = bugTimesFile(userFolder);
    if (entries.player1.empty() && entries.player2.empty())
        deleteFile(path);
    else
        replaceFile(path, formatBugTimes(entries));
}

}  // namespace kavo
