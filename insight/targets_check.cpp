// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/targets_check.h"

#include "base/text_cursor.h"
#include "core/levels.h"
#include "insight/exact_time.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kavo {

namespace {

constexpr std::size_t kGradesWithTarget = 5;
constexpr std::size_t kFixedGrades = 4;
constexpr const char* kFiveTimes = "five times: World Record, World Class, Professional, Good, OK";
constexpr const char* kFourTimes = "four times: World Class, Professional, Good, OK";
constexpr const char* kUpdate = "run \"Update targets\" (Ctrl+R), or copy the file that came with the program";

std::vector<std::string> fieldsOf(std::string_view line)
{
    std::vector<std::string> fields;
    for (TextCursor cursor(line); !cursor.atEnd();) fields.emplace_back(cursor.field());
    return fields;
}

/// A time as the file may write it, a total with more digits of minutes.
bool isTarget(std::string time, bool isTotal)
{
    std::replace(time.begin(), time.end(), '.', ':');
    if (exactTime(time)) return time[2] == ':' && time[5] == ':';
    return isTotal && time.size() == 9 && time[0] >= '0' && time[0] <= '9' && isTarget(time.substr(1), false);
}

Findings checkTimes(const TextLine& line, const std::vector<std::string>& fields, std::size_t record)
{
    Findings findings;
    for (const std::string& field : fields) {
        if (isTarget(field, record == kTotalsRow)) continue;
        findings.push_back(
            findingAt(line, {.severity = Severity::Warning,
                             .text = inQuotes(field) + " is no time, and nobody's time is compared with it "
                                                       "rightly",
                             .expected = "MM:SS:HH",
                             .advice = kUpdate}));
    }
    return findings;
}

/// Whether each grade's target is slower than that of the grade before.
bool areInOrder(std::vector<std::string> fields)
{
    for (std::string& field : fields) std::replace(field.begin(), field.end(), '.', ':');
    return std::is_sorted(fields.begin(), fields.end());
}

Findings checkRecord(const TextLine& line, std::size_t record, std::size_t grades, const char* expected)
{
    const std::vector<std::string> fields = fieldsOf(line.text);
    if (fields.size() != grades)
        return {findingAt(line, {.severity = Severity::Error,
                                 .text = "record " + std::to_string(record) + " has " + std::to_string(fields.size()) +
                                         (fields.size() == 1 ? " field" : " fields") +
                                         ": all times behind it belong to other grades and levels",
                                 .expected = expected,
                                 .advice = kUpdate})};
    Findings findings = checkTimes(line, fields, record);
    if (findings.empty() && record < kTotalsRow && !areInOrder(fields))
        findings.push_back(findingAt(
            line, {.severity = Severity::Warning,
                   .text = "the times of level " + std::to_string(record) + " are not in the order of the grades",
                   .expected = "the better grade's time first",
                   .advice = kUpdate}));
    return findings;
}

Findings checkRecords(const std::vector<TextLine>& lines, std::size_t grades, const char* expected)
{
    Findings findings;
    const std::size_t records = std::min<std::size_t>(lines.size(), kTotalsRow);
    for (std::size_t i = 0; i < records; ++i) {
        const Findings ofRecord = checkRecord(lines[i], i + 1, grades, expected);
        findings.insert(findings.end(), ofRecord.begin(), ofRecord.end());
        // What follows a record of another length is read askew, and saying so for each line helps nobody.
        if (!ofRecord.empty() && ofRecord.front().severity == Severity::Error) break;
    }
    return findings;
}

Finding tooFew(std::string_view text, const std::string& what, const std::string& expected)
{
    return findingAt(text, text.size(),
                     {.severity = Severity::Error,
                      .text = "only " + what + " in it (\"Input past end of file\")",
                      .expected = expected,
                      .advice = kUpdate});
}

bool isOneFieldALine(const std::vector<TextLine>& lines)
{
    return std::all_of(lines.begin(), lines.end(),
                       [](const TextLine& line) { return fieldsOf(line.text).size() <= 1; });
}

}  // namespace

Findings checkTargets(std::string_view text)
{
    std::size_t fields = 0;
    for (TextCursor cursor(text); !cursor.atEnd(); ++fields) static_cast<void>(cursor.field());
    const std::size_t wanted = kTotalsRow * kGradesWithTarget;
    Findings findings;
    // The reader counts fields only, so a time a line is as good; what stands where is then not told.
    const std::vector<TextLine> lines = linesOf(text);
    if (!isOneFieldALine(lines)) findings = checkRecords(lines, kGradesWithTarget, kFiveTimes);
    if (fields < wanted)
        findings.push_back(
            tooFew(text, std::to_string(fields) + " times are", "55 records of " + std::string(kFiveTimes)));
    return findings;
}

Findings checkFixedTargets(std::string_view text)
{
    const std::vector<TextLine> lines = linesOf(text);
    Findings findings = checkRecords(lines, kFixedGrades, kFourTimes);
    if (lines.size() < kTotalsRow)
        findings.push_back(
            tooFew(text, std::to_string(lines.size()) + " lines are", "55 lines of " + std::string(kFourTimes)));
    // Nothing but an update of the targets reads this file.
    for (Finding& finding : findings) {
        finding.severity = Severity::Warning;
        finding.advice = "copy the file that came with the program; until then do not update the targets";
    }
    return findings;
}

}  // namespace kavo
