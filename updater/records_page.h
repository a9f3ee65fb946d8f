// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/levels.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The world-records page: a table of 27 rows with two right-aligned cells each, level r on the left and
/// level r + 27 on the right (docs/records-page.md). Whatever a page holds, its parsing ends with 54 texts.
namespace kavo {

/// Host of the page unless the user names another.
inline constexpr std::string_view kRecordsHost = "records.example.com";

inline constexpr std::size_t kLargestPage = std::size_t{4} << 20U;  ///< bytes: far more than any page of records has

/// Address of the page on a host ("host" or "host:port"). A host that begins with http:// or https:// is
/// the address that the page's path is added to; without one it is the default host.
[[nodiscard]] std::string recordsPageAddress(std::string_view host);

using RecordTimes = OneBased<std::string, kLevels>;
using TargetRecords = OneBased<std::string, kTotalsRow>;

/// The 54 record times as the page writes them (12,34 or 1:23,45). Texts of a page in another form are
/// not checked: each is whatever stands where the time should.
[[nodiscard]] RecordTimes cutRecordTimes(std::string_view page);

/// Whether the page goes on beyond the last of its 54 times: one that was cut off before its end does not.
[[nodiscard]] bool holdsAllTimes(std::string_view page);

/// The times as MM:SS:HH, and their sum as record 55.
[[nodiscard]] TargetRecords worldRecords(const RecordTimes& times);

/// The levels whose record is no time of the form MM:SS:HH: the page was another one, or not whole.
[[nodiscard]] std::vector<int> levelsWithoutTime(const TargetRecords& records);

/// Content of `targets.txt`: each world record with the line of `fixedTargets` (55 lines of World Class,
/// Professional, Good, OK) that belongs to it. Throws RunTimeError(InputPastEnd) when lines are missing.
[[nodiscard]] std::string joinTargets(const TargetRecords& records, std::string_view fixedTargets);

/// Rewrites `targets.txt` from the records and `targets_old.txt`. Before that the former targets are kept as
/// `targets.bak`, unless they are no times and would replace a backup. Throws RunTimeError, with
/// `targets.txt` as it was: FileNotFound and InputPastEnd for `targets_old.txt`, and as reading and replacing
/// files does.
void rewriteTargets(const std::filesystem::path& programFolder, const TargetRecords& records);

/// Where the targets before the last good update are.
[[nodiscard]] std::filesystem::path targetsBackupFile(const std::filesystem::path& programFolder);

}  // namespace kavo
