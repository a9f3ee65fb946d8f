// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/printable.h"

#include "base/shown_text.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace kavo {

namespace {

struct Range
{
    char32_t first;
    char32_t last;
};

constexpr std::array<Range, 5> kActing = {{
    {0x00, 0x1F},
    {0x7F, 0x7F},
    {0x80, 0x9F},      // the second set of control characters
    {0x2028, 0x202E},  // separators of lines and paragraphs; embedded and overridden directions
    {0x2066, 0x2069},  // isolated directions
}};

bool actsOnTerminal(std::string_view character)
{
    const char32_t value = codePointOf(character);
    return std::any_of(kActing.begin(), kActing.end(),
                       [value](const Range& range) { return value >= range.first && value <= range.last; });
}

/// The text in UTF-8 with what `instead` makes of each character that acts, which is told where it stands.
template <typename Instead>
std::string replaceActing(std::string_view text, Instead instead)
{
    const std::string whole = toUtf8(text);
    const std::string_view all = whole;
    std::string result;
    result.reserve(all.size());
    for (std::size_t at = 0; at < all.size();) {
        const std::string_view character = all.substr(at, characterLength(all, at));
        if (actsOnTerminal(character))
            result.append(instead(all, at));
        else
            result.append(character);
        at += character.size();
    }
    return result;
}

std::string escaped(std::string_view character)
{
    std::array<char, 8> text{};
    const int length =
        std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(codePointOf(character)));
    return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace

bool isPlain(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

std::string printable(std::string_view text)
{
    return replaceActing(text, [](std::string_view, std::size_t) { return " "; });
}

void makePrintable(std::string& text)
{
    if (!isPlain(text)) text = printable(text);
}

std::string printableLines(std::string_view text)
{
    return replaceActing(text, [](std::string_view all, std::size_t at) {
        const bool endsLine = all[at] == '\n' || all.substr(at, 2) == "\r\n";
        return endsLine || all[at] == '\t' ? all.substr(at, 1) : " ";
    });
}

std::string printableJson(std::string_view json)
{
    return replaceActing(json, [](std::string_view all, std::size_t at) {
        return all[at] == '\n' ? std::string("\n") : escaped(all.substr(at, characterLength(all, at)));
    });
}

}  // namespace kavo
