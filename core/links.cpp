// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/links.h"

#include "base/file_name.h"
#include "base/text_cursor.h"

namespace kavo {

Links parseLinks(std::string_view text)
{
    Links links;
    for (TextCursor lines(text); !lines.atEnd() && links.addresses.size() < kMostLinks;) {
        links.addresses.emplace_back(lines.line());
        if (!lines.atEnd()) links.descriptions.emplace_back(lines.line());
    }
    return links;
}

std::filesystem::path linksFile(const std::filesystem::path& programFolder)
{
    return locate(programFolder / "links.txt");
}

}  // namespace kavo
