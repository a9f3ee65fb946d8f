// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

/// Texts that come from files, on their way to a terminal: none of their characters may act on it. That are the
/// control characters, also those beyond ASCII, and what turns the direction or breaks the line of a text.
namespace kavo {

/// Whether a text consists of printable ASCII alone, as nearly every one does.
[[nodiscard]] bool isPlain(std::string_view text);

/// The text in UTF-8 with a blank for every character that would act on a terminal instead of being shown.
[[nodiscard]] std::string printable(std::string_view text);

/// The same in place; nearly every text is printable already.
void makePrintable(std::string& text);

/// The same for a text of several lines: its line ends and tabs stay.
[[nodiscard]] std::string printableLines(std::string_view text);

/// JSON of the same value, in which such characters are escaped.
[[nodiscard]] std::string printableJson(std::string_view json);

}  // namespace kavo
