// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/settings_check.h"

#include "base/file_name.h"
#include "base/text.h"
#include "core/bug_times.h"
#include "core/colour_set.h"
#include "core/levels.h"
#include "core/results_state.h"
#include "core/settings.h"
#include "core/users.h"
#include "core/window_layout.h"
#include "insight/exact_time.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

namespace kavo {

namespace {

constexpr const char* kSaveSettings = "open Settings (F2), choose what is missing and press Save";
constexpr const char* kSaveColours = "open View (F3) and press Save";

Finding atEnd(std::string_view text, Finding finding)
{
    return findingAt(text, text.size(), std::move(finding));
}

/// A field of a number alone on its line, with blanks or a comma behind it at most.
std::string_view numberField(const TextLine& line)
{
    return trimBlanks(line.text.substr(0, line.text.find(',')));
}

Findings checkMethod(const TextLine& line)
{
    const std::string_view field = numberField(line);
    if (isNumeric(field) && integerOf(field) >= 1 && integerOf(field) <= 3) return {};
    return {findingAt(line, {.severity = Severity::Warning,
                             .text = inQuotes(line.text) + " is no way of comparing",
                             .expected = "1 (previous results), 2 (another file) or 3 (targets)",
                             .advice = kSaveSettings})};
}

Findings checkCategory(const TextLine& method, const TextLine& category)
{
    if (integerOf(numberField(method)) != static_cast<int>(CompareMethod::Targets)) return {};
    const auto found = categoryNamed(category.text);
    if (found && gradeOf(*found).targets != nullptr) return {};
    return {findingAt(category, {.severity = Severity::Warning,
                                 .text = inQuotes(category.text) + " is no grade: the second column stays empty",
                                 .expected = "World Record, World Class, Professional, Good or OK",
                                 .advice = kSaveSettings})};
}

void append(Findings& all, const Findings& more)
{
    all.insert(all.end(), more.begin(), more.end());
}

Findings checkBugTime(const TextLine& line, std::set<int>& levels)
{
    constexpr std::size_t kTimeAt = 5;
    const int level = integerOf(firstCharacters(line.text, 2));
    if (level < 1 || level > kLevels)
        return {findingAt(line, {.severity = Severity::Error,
                                 .text = inQuotes(line.text) + " is for a level that does not exist "
                                                               "(\"Subscript out of range\")",
                                 .expected = "a level from 01 to 54",
                                 .advice = "open Bug times (Ctrl+B), remove the entry and press Save"})};
    Findings findings;
    if (!exactTime(fromCharacter(line.text, kTimeAt)))
        findings.push_back(findingAt(line, {.severity = Severity::Warning,
                                            .text = inQuotes(line.text) + " holds no time",
                                            .expected = "an entry like 07, 01:35:12",
                                            .advice = "open Bug times (Ctrl+B), enter it anew and press Save"}));
    if (!levels.insert(level).second)
        findings.push_back(findingAt(line, {.severity = Severity::Warning,
                                            .text = "level " + std::to_string(level) +
                                                    " has a bug-time already; this one counts, the one before does not",
                                            .expected = "one entry for a level",
                                            .advice = "open Bug times (Ctrl+B), remove one of them and press Save"}));
    return findings;
}

Findings checkNick(const TextLine& line)
{
    if (isNickAllowed(line.text) && isPlainName(line.text)) return {};
    return {findingAt(line, {.severity = Severity::Warning,
                             .text = inQuotes(line.text) + " cannot log in",
                             .expected = "a nick of one to ten characters, not only blanks, without / and \\",
                             .advice = "remove the line with an editor, and log in with another nick"})};
}

}  // namespace

Findings checkSettings(std::string_view text)
{
    constexpr std::size_t kNeededLines = 4;
    const std::vector<TextLine> lines = linesOf(text);
    if (lines.size() < kNeededLines)
        return {atEnd(text,
                      {.severity = Severity::Error,
                       .text = "it ends after " + std::to_string(lines.size()) + " lines (\"Input past end of file\")",
                       .expected = "four lines: path, way of comparing, second path, grade",
                       .advice = kSaveSettings})};
    Findings findings = checkMethod(lines[1]);
    append(findings, checkCategory(lines[1], lines[3]));
    if (lines.size() > kNeededLines && numberOf(lines[4].text) <= 0)
        findings.push_back(findingAt(lines[4], {.severity = Severity::Warning,
                                                .text = inQuotes(lines[4].text) + " is no font size",
                                                .expected = "the size in points, such as 8",
                                                .advice = "open View (F3) and press OK at \"Font size\""}));
    return findings;
}

Findings checkNames(std::string_view text)
{
    Findings findings;
    const std::size_t lines = linesOf(text).size();
    if (lines < 3)
        findings.push_back(atEnd(text, {.severity = Severity::Warning,
                                        .text = "it has " + std::to_string(lines) + (lines == 1 ? " name" : " names") +
                                                ", the others are not changed",
                                        .expected = "three lines: player 1, player 2, team",
                                        .advice = "click the header of a player's column and confirm the name"}));
    append(findings, checkCodePage(text));
    return findings;
}

Findings checkLayout(std::string_view text)
{
    const std::size_t values = parseLayoutValues(text).size();
    if (values >= kLayoutValues) return {};
    const std::vector<TextLine> lines = linesOf(text);
    const Finding finding{.severity = Severity::Warning,
                          .text = "after " + std::to_string(values) +
                                  " numbers it ends or goes on with something else; the rest of the window keeps its "
                                  "designed layout",
                          .expected = "ten numbers, one a line",
                          .advice = "move the window's edge once, or delete the file"};
    return {values < lines.size() ? findingAt(lines[values], finding) : atEnd(text, finding)};
}

Findings checkBugTimes(std::string_view text)
{
    const std::vector<TextLine> lines = linesOf(text);
    const Finding unended{.severity = Severity::Error,
                          .text = R"(no line "Player2" ends the entries of player 1 ("Input past end of file"))",
                          .expected = R"("Player1", entries, "Player2", entries)",
                          .advice = "open Bug times (Ctrl+B), enter them anew and press Save, or delete the file"};
    if (lines.empty()) return {atEnd(text, unended)};
    if (!equalIgnoringCase(lines.front().text, "Player1"))
        return {findingAt(lines.front(), {.severity = Severity::Warning,
                                          .text = inQuotes(lines.front().text) + " stands at its beginning: the whole "
                                                                                 "file is passed over",
                                          .expected = "\"Player1\"",
                                          .advice = unended.advice})};
    Findings findings;
    std::set<int> levels;
    bool isPlayer2 = false;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (!isPlayer2 && equalIgnoringCase(lines[i].text, "Player2")) {
            isPlayer2 = true;
            levels.clear();
        } else {
            append(findings, checkBugTime(lines[i], levels));
        }
    }
    if (!isPlayer2) findings.push_back(atEnd(text, unended));
    return findings;
}

Findings checkColours(std::string_view text)
{
    constexpr std::size_t kShortest = 10;  // bytes
    constexpr Colour kWhite = rgb(255, 255, 255);
    const std::size_t count = static_cast<std::size_t>(parseColours(text).count);
    const std::vector<TextLine> lines = linesOf(text);
    if (text.size() < kShortest)
        return {atEnd(text, {.severity = Severity::Warning,
                             .text = "it is too short to hold colours, and is not used for the table",
                             .expected = "nine numbers, one a line",
                             .advice = kSaveColours})};
    if (count < kColours) {
        const bool isOfOlderKind = count == kWindowColours && lines.size() <= kWindowColours;
        const Finding finding{.severity = isOfOlderKind ? Severity::Note : Severity::Warning,
                              .text = isOfOlderKind ? "it is of the older kind, without colours for the grades"
                                                    : "after " + std::to_string(count) +
                                                          " numbers it ends or goes on with something else; the other "
                                                          "colours are the designed ones",
                              .expected = "nine numbers, one a line",
                              .advice = isOfOlderKind ? "open View (F3) once, which adds them" : kSaveColours};
        return {count < lines.size() ? findingAt(lines[count], finding) : atEnd(text, finding)};
    }
    Findings findings;
    for (std::size_t i = 0; i < std::min<std::size_t>(lines.size(), kColours); ++i) {
        const Colour colour = integerOf(numberField(lines[i]));
        if (colour < 0 || colour > kWhite)
            findings.push_back(findingAt(lines[i], {.severity = Severity::Warning,
                                                    .text = inQuotes(trimBlanks(lines[i].text)) + " is no colour",
                                                    .expected = "a number from 0 to 16777215",
                                                    .advice = kSaveColours}));
    }
    return findings;
}

Findings checkUsers(std::string_view text)
{
    Findings findings;
    std::set<std::string> seen;
    for (const TextLine& line : linesOf(text)) {
        append(findings, checkNick(line));
        if (!seen.insert(foldCase(line.text)).second)
            findings.push_back(findingAt(line, {.severity = Severity::Warning,
                                                .text = inQuotes(line.text) + " stands in the list already",
                                                .expected = "each nick once; capital and small letters are the same",
                                                .advice = "remove the line with an editor"}));
    }
    append(findings, checkCodePage(text));
    return findings;
}

Findings checkCurrentUser(std::string_view text)
{
    if (text.empty())
        return {{.severity = Severity::Error,
                 .text = "it is empty (\"Input past end of file\")",
                 .expected = "the nick of who logged in last",
                 .advice = "log in once"}};
    Findings findings = checkNick(linesOf(text).front());
    for (Finding& finding : findings) {
        finding.severity = Severity::Error;
        finding.advice = "log in once with another nick";
    }
    return findings;
}

Findings checkAutoLogin(std::string_view text)
{
    const std::vector<TextLine> lines = linesOf(text);
    if (!lines.empty() && isNumeric(numberField(lines.front()))) return {};
    return {{.severity = Severity::Warning,
             .line = lines.empty() ? std::size_t{0} : std::size_t{1},
             .text = "it does not begin with a number, so the login window waits",
             .expected = "1 for logging in automatically, else 0",
             .advice = "log in once with \"Auto-login\" as you want it"}};
}

Findings checkLinks(std::string_view text)
{
    if (linesOf(text).size() % 2 == 0) return {};
    return {atEnd(text, {.severity = Severity::Warning,
                         .text = "its last address has no line behind it (\"Input past end of file\")",
                         .expected = "two lines for each link: the address, and what is found there",
                         .advice = "add the missing line with an editor"})};
}

Findings checkTemplate(std::string_view text)
{
    constexpr std::array<std::string_view, 3> kSeparators = {"%template2%", "%template3%", "%template4%"};
    std::size_t found = 0;
    bool hasEnding = false;
    for (const TextLine& line : linesOf(text)) {
        hasEnding = found == kSeparators.size();
        if (!hasEnding && trimBlanks(line.text) == kSeparators.at(found)) ++found;
    }
    const std::string what = found < kSeparators.size()
                                 ? "the line " + std::string(kSeparators.at(found)) + " is missing"
                                 : "nothing stands behind the line %template4%";
    if (hasEnding) return {};
    return {
        atEnd(text, {.severity = Severity::Error,
                     .text = what + ": the template is loaded only so far",
                     .expected = "four sections with the lines %template2%, %template3% and %template4% between them",
                     .advice = "put the line in with an editor, or save the template anew (Ctrl+H)"})};
}

}  // namespace kavo
