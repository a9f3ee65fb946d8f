// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Texts are kept as the bytes that were read. A valid UTF-8 sequence is one character; any other byte
/// is a character of its own (players have years of files in the 8-bit code pages of their systems).
namespace kavo {

inline constexpr std::string_view kLineEnd = "\r\n";

/// The text and the end of its line.
[[nodiscard]] std::string asLine(std::string_view text);

/// Bytes of the character that starts at byte `position` (0-based): 1 to 4, or 0 at the end.
[[nodiscard]] std::size_t characterLength(std::string_view text, std::size_t position);

/// The number of a character of UTF-8 among all characters.
[[nodiscard]] char32_t codePointOf(std::string_view character);

/// Adds the character of that number in UTF-8.
void appendUtf8(std::string& text, char32_t value);

[[nodiscard]] std::size_t countCharacters(std::string_view text);

/// Byte position (0-based) of the character that stands `characters` after byte `from`; the text's
/// size when that is exactly its end, npos beyond.
[[nodiscard]] std::size_t advance(std::string_view text, std::size_t from, std::size_t characters);

[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count);
[[nodiscard]] std::string_view lastCharacters(std::string_view text, std::size_t count);

/// The text from character `first` (1-based) on; empty when it is shorter.
[[nodiscard]] std::string_view fromCharacter(std::string_view text, std::size_t first);

/// At most `count` characters from character `first` (1-based) on.
[[nodiscard]] std::string_view characters(std::string_view text, std::size_t first, std::size_t count);

/// Exactly `width` characters: cut, or filled up with blanks.
[[nodiscard]] std::string cutOrPad(std::string_view text, std::size_t width);

/// Without the blanks (spaces, nothing else) at both ends.
[[nodiscard]] std::string_view trimBlanks(std::string_view text);

/// Every occurrence from left to right; what was inserted is not looked at again.
[[nodiscard]] std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);

/// The number a text begins with (blanks skipped, sign, fraction and exponent allowed); 0 when none. One that
/// is too large is the largest there is, one that is too small is 0.
[[nodiscard]] double numberOf(std::string_view text);

/// numberOf rounded to a whole number (halves to even), held within the 32-bit range.
[[nodiscard]] std::int32_t integerOf(std::string_view text);

/// Whether a text is a number as a whole, blanks around it allowed; a sign, a fraction and an
/// exponent may be part of it.
[[nodiscard]] bool isNumeric(std::string_view text);

/// Plain decimal form without blanks: 8, 8.25, -3.
[[nodiscard]] std::string decimal(double number);

/// As numbers stand in settings files: a blank for the sign in front and a blank behind (" 3 ").
[[nodiscard]] std::string printedNumber(double number);

/// Lower case for comparing: Latin, Greek and Cyrillic letters; other characters stay.
[[nodiscard]] std::string foldCase(std::string_view text);

[[nodiscard]] bool equalIgnoringCase(std::string_view a, std::string_view b);

/// Whether `word` (lower-case ASCII letters, at least one) stands in the text in any case.
[[nodiscard]] bool containsIgnoringCase(std::string_view text, std::string_view word);

}  // namespace kavo
