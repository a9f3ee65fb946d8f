// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/targets.h"

#include "base/file_name.h"
#include "base/text_cursor.h"
#include "base/text_file.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kavo {

namespace {

/// Whether a text is MM:SS:HH or, as totals may be, H:MM:SS:HH: two digits of seconds and of hundredths.
bool isTime(std::string_view text)
{
    constexpr std::size_t kMostParts = 4;
    constexpr std::size_t kTwoDigits = 2;
    std::array<std::size_t, kMostParts> digits{};
    std::size_t last = 0;  // part
    for (const char c : text) {
        const bool isDigit = c >= '0' && c <= '9';
        const bool isSeparator = c == ':' || c == '.';
        if (!isDigit && (!isSeparator || ++last == kMostParts)) return false;
        if (isDigit) ++digits.at(last);
    }
    if (last < 2 || digits.at(last) != kTwoDigits || digits.at(last - 1) != kTwoDigits) return false;
    return std::count(digits.begin(), digits.begin() + static_cast<std::ptrdiff_t>(last), 0U) == 0;
}

}  // namespace

void parseTargets(std::string_view text, ResultsState& state)
{
    TextCursor cursor(text);
    for (int record = 1; record <= kTotalsRow; ++record) {
        for (const Grade& grade : grades())
            if (grade.targets != nullptr) (state.*grade.targets)[record] = cursor.field();
        for (const Grade& grade : grades()) {
            if (grade.targets == nullptr) continue;
            std::string& time = (state.*grade.targets)[record];
            std::replace(time.begin(), time.end(), '.', ':');
        }
    }
}

bool holdsAllTargets(std::string_view text)
{
    TextCursor cursor(text);
    for (int record = 1; record <= kTotalsRow; ++record) {
        for (const Grade& grade : grades()) {
            if (grade.targets == nullptr) continue;
            if (cursor.atEnd()) return false;
            const std::string_view field = cursor.field();
            const bool mayBeEmpty = grade.category != TargetCategory::WorldRecord;
            if (!isTime(field) && !(mayBeEmpty && field.empty())) return false;
        }
    }
    return true;
}

std::filesystem::path targetsFile(const std::filesystem::path& programFolder)
{
    return locate(programFolder / "targets.txt");
}

bool LoadTargets(const std::filesystem::path& programFolder, ResultsState& state)
{
    const auto path = targetsFile(programFolder);
    if (!fileExists(path)) return false;
    parseFile(path, [&state](std::string_view text) { parseTargets(text, state); });
    return true;
}

}  // namespace kavo
