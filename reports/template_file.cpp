// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/template_file.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_cursor.h"
#include "base/text_file.h"

namespace kavo {

namespace {

constexpr std::string_view kLoopFollows = "%template2%";
constexpr std::string_view kTotalFollows = "%template3%";
constexpr std::string_view kEndingFollows = "%template4%";
constexpr std::size_t kLineEndCharacters = 2;

void appendLine(std::string& section, std::string_view line)
{
    section.append(line).append(kLineEnd);
}

void appendUntil(std::string_view separator, TextCursor& cursor, std::string& section)
{
    for (std::string_view line = cursor.line(); trimBlanks(line) != separator; line = cursor.line())
        appendLine(section, line);
}

void appendTemplate(TemplateSections& sections, std::string_view text)
{
    TextCursor cursor(text);
    appendUntil(kLoopFollows, cursor, sections.beginning);
    appendUntil(kTotalFollows, cursor, sections.loop);
    appendUntil(kEndingFollows, cursor, sections.total);
    appendLine(sections.ending, cursor.line());
    while (!cursor.atEnd()) appendLine(sections.ending, cursor.line());
}

/// Takes back the line end that loading has put behind the last line of each section.
void cutLineEnds(TemplateSections& sections)
{
    for (std::string* section : {&sections.beginning, &sections.loop, &sections.total, &sections.ending}) {
        if (section->empty()) continue;
        const std::size_t length = countCharacters(*section);
        if (length < kLineEndCharacters) throw RunTimeError(Failure::InvalidCall);
        section->resize(firstCharacters(*section, length - kLineEndCharacters).size());
    }
}

}  // namespace

std::string formatTemplate(const TemplateSections& sections)
{
    std::string text;
    for (const std::string_view part :
         {std::string_view(sections.beginning), kLoopFollows, std::string_view(sections.loop), kTotalFollows,
          std::string_view(sections.total), kEndingFollows, std::string_view(sections.ending)})
        appendLine(text, part);
    return text;
}

TemplateSections loadTemplate(TemplateSections sections, std::string_view text)
{
    try {
        appendTemplate(sections, text);
        cutLineEnds(sections);
    } catch (const std::exception&) {
        // Silent on purpose: a damaged template shows in the sections, as far as it could be read.
    }
    return sections;
}

TemplateSections loadTemplateFile(TemplateSections sections, const std::filesystem::path& path)
{
    try {
        if (fileExists(path)) appendTemplate(sections, readFile(path));
        // Also when nothing was read, on purpose.
        cutLineEnds(sections);
    } catch (const std::exception&) {
        // Silent on purpose, as above.
    }
    return sections;
}

}  // namespace kavo
