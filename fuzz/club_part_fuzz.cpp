// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fuzz_input.h"
#include "insight/club_part_file.h"
#include "insight/fingerprint.h"

namespace {

using kavo::fuzz::require;

/// Whether the text is a part; one that is must be written as it was read.
bool isPart(std::string_view text)
{
    try {
        const kavo::ClubPart part = kavo::parseClubPart(text);
        require(kavo::formatClubPart(part) == text);
        require(kavo::joined(part, part) == part);
        for (int level = 1; level <= kavo::kLevels; ++level)
            require(kavo::winnersOf(part, level).size() <= part.players.size());
        static_cast<void>(kavo::teamOf(part));
        return true;
    } catch (const kavo::ClubError&) {
        return false;
    }
}

std::size_t countOf(std::string_view text, std::string_view what)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, at + 1)) ++count;
    return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = kavo::fuzz::textOf(data, size);
    static_cast<void>(isPart(text));
    // With the end that belongs to it, or nothing but that end would ever be looked at.
    const std::string body(text.substr(0, text.rfind("end\t")));
    static_cast<void>(isPart(body + "end\t" + std::to_string(countOf(body, "\nplayer\t")) + "\t" +
                             kavo::hexadecimal(kavo::fingerprint(body)) + "\n"));
    return 0;
}
