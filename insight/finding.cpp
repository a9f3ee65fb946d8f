// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/finding.h"

#include "base/file_name.h"
#include "base/text.h"

#include <algorithm>

namespace kavo {

namespace {

/// Offset of the first byte that is part of no UTF-8 character; the text's size when there is none.
std::size_t firstForeignByte(std::string_view text)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t length = characterLength(text, at);
        if (length == 1 && static_cast<unsigned char>(text[at]) >= 0x80U) break;
        at += length;
    }
    return at;
}

}  // namespace

std::string_view nameOf(Severity severity)
{
    switch (severity) {
    case Severity::Error: return "error";
    case Severity::Warning: return "warning";
    case Severity::Note: return "note";
    }
    return {};
}

std::string describe(const Finding& finding)
{
    std::string line(nameOf(finding.severity));
    line.append(": ").append(textOf(finding.file));
    if (finding.line > 0)
        line.append(", line " + std::to_string(finding.line) + ", byte " + std::to_string(finding.byte));
    line.append(": ").append(finding.text).append(".");
    if (!finding.expected.empty()) line.append(" Expected: ").append(finding.expected).append(".");
    return line.append(" What to do: ").append(finding.advice).append(".");
}

std::vector<TextLine> linesOf(std::string_view text)
{
    std::vector<TextLine> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        TextLine line{lines.size() + 1, start, text.substr(start, end - start)};
        const bool hasEnd = end < text.size();
        line.endsInCrLf = hasEnd && line.text.ends_with('\r');
        line.endsInLf = hasEnd && !line.endsInCrLf;
        if (line.endsInCrLf) line.text.remove_suffix(1);
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

TextLine lineAt(std::string_view text, std::size_t byte)
{
    const std::string_view before = text.substr(0, std::min(byte, text.size()));
    const std::size_t start = before.rfind('\n') + 1;  // of the text when there is none
    TextLine line;
    const auto rest = linesOf(text.substr(start, std::min(text.find('\n', start), text.size()) - start + 1));
    if (!rest.empty()) line = rest.front();
    line.number = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
    line.byte = start;
    return line;
}

Finding findingAt(std::string_view text, std::size_t byte, Finding finding)
{
    finding.line = lineAt(text, byte).number;
    finding.byte = std::min(byte, text.size());
    return finding;
}

Finding findingAt(const TextLine& line, Finding finding)
{
    finding.line = line.number;
    finding.byte = line.byte;
    return finding;
}

std::string inQuotes(std::string_view text)
{
    constexpr std::size_t kLongest = 60;  // characters
    const std::string_view shown = firstCharacters(text, kLongest);
    return "\"" + std::string(shown) + (shown.size() < text.size() ? "...\"" : "\"");
}

Findings checkCodePage(std::string_view text)
{
    const std::size_t byte = firstForeignByte(text);
    if (byte == text.size()) return {};
    const Finding note{.severity = Severity::Note,
                       .text = inQuotes(lineAt(text, byte).text) + " is written in a code page of 8 bits",
                       .expected = "UTF-8; the bytes are kept either way",
                       .advice = "name the code page with --code-page (1251 for Cyrillic) if it reads wrongly"};
    return {findingAt(text, byte, note)};
}

}  // namespace kavo
