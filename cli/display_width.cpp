// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/display_width.h"

#include "base/text.h"
#include "cli/printable.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <utf8proc.h>
#endif

namespace kavo {

namespace {

constexpr std::string_view kEllipsis = "…";

#ifdef _WIN32
/// Scripts of East Asia, of which Windows does not tell all: Chinese to Yi, and Korean.
bool isEastAsian(char32_t code)
{
    return (code >= 0x1100 && code < 0x1160) || (code >= 0x2E80 && code < 0xA4D0) || (code >= 0xAC00 && code < 0xD7A4);
}

/// By what Windows knows of its characters.
std::size_t widthOf(char32_t code)
{
    if (code > 0xFFFF) return 2;  // emoji, and Chinese that is seldom written
    const auto unit = static_cast<wchar_t>(code);
    WORD kind = 0;
    WORD form = 0;
    ::GetStringTypeW(CT_CTYPE1, &unit, 1, &kind);
    ::GetStringTypeW(CT_CTYPE3, &unit, 1, &form);
    const bool isAccent = (form & C3_NONSPACING) != 0 && (form & C3_ALPHA) == 0;  // an accented letter is both
    if ((kind & C1_CNTRL) != 0 || isAccent) return 0;
    if ((form & C3_HALFWIDTH) != 0) return 1;
    return (form & (C3_FULLWIDTH | C3_IDEOGRAPH)) != 0 || isEastAsian(code) ? 2 : 1;
}
#else
std::size_t widthOf(char32_t code)
{
    return static_cast<std::size_t>(utf8proc_charwidth(static_cast<utf8proc_int32_t>(code)));
}
#endif

std::size_t widthOfCharacter(std::string_view character)
{
    return character.size() == 1 ? 1 : widthOf(codePointOf(character));
}

/// As many characters as `width` columns have room for, with the accents of the last.
std::string_view beginningOf(std::string_view text, std::size_t width)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t length = characterLength(text, at);
        const std::size_t columns = widthOfCharacter(text.substr(at, length));
        if (columns > width) break;
        width -= columns;
        at += length;
    }
    return text.substr(0, at);
}

/// As few characters from the front as it takes to come down to `width` columns are left out.
std::string_view endOf(std::string_view text, std::size_t width)
{
    std::size_t columns = displayWidth(text);
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t length = characterLength(text, at);
        const std::size_t own = widthOfCharacter(text.substr(at, length));
        // An accent without its letter is left out, too.
        if (columns <= width && own > 0) break;
        columns -= own;
        at += length;
    }
    return text.substr(at);
}

}  // namespace

std::size_t displayWidth(std::string_view text)
{
    if (isPlain(text)) return text.size();
    std::size_t width = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = characterLength(text, at);
        width += widthOfCharacter(text.substr(at, length));
        at += length;
    }
    return width;
}

std::string cutEnd(std::string_view text, std::size_t width)
{
    if (displayWidth(text) <= width) return std::string(text);
    if (width == 0) return {};
    return std::string(beginningOf(text, width - 1)).append(kEllipsis);
}

std::string cutMiddle(std::string_view text, std::size_t width)
{
    if (displayWidth(text) <= width) return std::string(text);
    if (width == 0) return {};
    const std::size_t end = (width - 1) / 2;
    return std::string(beginningOf(text, width - 1 - end)).append(kEllipsis).append(endOf(text, end));
}

}  // namespace kavo
