// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/statistics_file.h"

#include "base/run_time_error.h"
#include "base/text.h"

namespace kavo {

namespace {

constexpr std::string_view kLevelWord = "Level";
constexpr std::string_view kLevelPrefix = "Level ";
constexpr std::size_t kTimeLength = 8;
constexpr std::size_t kDriverAt = 10;

/// Position (1-based) of `what` at or after byte offset `from`; 0 when there is none.
std::size_t find(std::string_view text, std::string_view what, std::size_t from)
{
    const std::size_t at = text.find(what, from);
    return at == std::string_view::npos ? 0 : at + 1;
}

/// The bytes from position `first` up to, not including, position `last` (both 1-based).
std::string_view between(std::string_view text, std::size_t first, std::size_t last)
{
    if (first == 0 || last < first) throw RunTimeError(Failure::InvalidCall);
    return text.substr(first - 1, last - first);
}

}  // namespace

std::size_t nLine(std::string_view text, std::size_t start)
{
    return find(text, kLineEnd, start);
}

bool isStatisticsFile(std::string_view text)
{
    return containsIgnoringCase(text, "player") && containsIgnoringCase(text, "level");
}

bool isSecondStatisticsFile(std::string_view text)
{
    return isStatisticsFile(text) && containsIgnoringCase(text, "steppes");
}

std::string StatisticsReader::header()
{
    m_scanPos = find(m_statsText, kLevelWord, m_scanPos);
    m_lineEnd = nLine(m_statsText, m_scanPos);
    return replaceAll(between(m_statsText, m_scanPos, m_lineEnd), kLevelPrefix, "");
}

std::optional<BestTime> StatisticsReader::bestTime() const
{
    // The search for the end begins two characters into the next line, so that after an empty line (or
    // one of a single character) the time line takes in the line behind it as well. That is how a level
    // without a time is told from one with a time: do not turn this into a loop over lines.
    constexpr std::size_t kIntoNextLine = 4;  // CR, LF and two characters
    const std::size_t from = advance(m_statsText, m_lineEnd - 1, kIntoNextLine);
    const std::size_t end = nLine(m_statsText, from);  // none where the text is at its end
    const std::string joined = replaceAll(between(m_statsText, m_lineEnd, end), kLineEnd, "");
    const std::string_view line = trimBlanks(joined);
    if (line.empty() || line.find(kLevelWord) != std::string_view::npos) return std::nullopt;
    return BestTime{std::string(firstCharacters(line, kTimeLength)),
                    std::string(trimBlanks(fromCharacter(line, kDriverAt)))};
}

}  // namespace kavo
