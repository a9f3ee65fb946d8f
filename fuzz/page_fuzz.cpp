// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text.h"
#include "fuzz_input.h"
#include "insight/page/markup.h"

namespace {

/// What a browser makes of the few references that the escaping writes.
std::string unescaped(std::string text)
{
    for (const auto& [reference, character] :
         {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&#39;", "'"}, {"&amp;", "&"}})
        text = kavo::replaceAll(text, reference, character);
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using kavo::fuzz::require;
    const std::string_view text = kavo::fuzz::textOf(data, size);
    const std::string escaped = kavo::escaped(text);
    // Nothing in it can end an attribute or begin a tag, and no byte is left that would not be UTF-8.
    require(escaped.find_first_of(std::string_view("<>\"'\0\x1B\x7F\r", 8)) == std::string::npos);
    for (std::size_t at = 0; at < escaped.size();) {
        const std::size_t length = kavo::characterLength(escaped, at);
        require(length > 1 || static_cast<unsigned char>(escaped[at]) < 0x80);
        at += length;
    }
    // Nothing gets lost: the same text comes out again, but for what no page may hold.
    const std::string shown = unescaped(escaped);
    require(kavo::escaped(shown) == escaped);
    require(kavo::countCharacters(shown) == kavo::countCharacters(text));

    kavo::Markup page;
    page.open("p", {{"title", std::string(text)}}).text(text).close();
    require(page.written() == "<p title=\"" + escaped + "\">" + escaped + "</p>");
    return 0;
}
