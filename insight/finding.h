// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// What is wrong with a file, told so that the player can mend it.
namespace kavo {

enum class Severity {
    Error,    ///< a loading or an export ends there, or the results are wrong
    Warning,  ///< something is left out or will not work
    Note,     ///< nothing is wrong, but it may surprise
};

struct Finding
{
    Severity severity = Severity::Error;
    std::filesystem::path file{};
    std::size_t line = 0;    ///< from 1; 0 for the file as a whole
    std::size_t byte = 0;    ///< offset from the file's start, where a line is named
    std::string text{};      ///< what is wrong
    std::string expected{};  ///< what should stand there; may be empty
    std::string advice{};    ///< what to do
};

using Findings = std::vector<Finding>;

/// "error", "warning" or "note"
[[nodiscard]] std::string_view nameOf(Severity severity);

/// In one line: severity, file, line and byte, what is wrong, what is expected, what to do.
[[nodiscard]] std::string describe(const Finding& finding);

/// A line of a text, ended by CR LF or a bare LF.
struct TextLine
{
    std::size_t number = 0;  ///< from 1
    std::size_t byte = 0;    ///< of its beginning
    std::string_view text;   ///< without its end
    bool endsInCrLf = false;
    bool endsInLf = false;  ///< a bare one
};

[[nodiscard]] std::vector<TextLine> linesOf(std::string_view text);

/// The line that a byte belongs to; the end of the text belongs to its last line.
[[nodiscard]] TextLine lineAt(std::string_view text, std::size_t byte);

/// A finding at a byte of a text.
[[nodiscard]] Finding findingAt(std::string_view text, std::size_t byte, Finding finding);

/// A finding at the beginning of a line.
[[nodiscard]] Finding findingAt(const TextLine& line, Finding finding);

/// A text in a finding: in quotes, cut where it is long.
[[nodiscard]] std::string inQuotes(std::string_view text);

/// A note at the first name in a code page of 8 bits; none in a text that is UTF-8.
[[nodiscard]] Findings checkCodePage(std::string_view text);

}  // namespace kavo
