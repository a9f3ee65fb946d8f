// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/file_mark.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace kavo {

/// Fingerprints of remembered states, kept in a file so that a new state is not compared with all others
/// byte by byte. It only ever saves work: an entry counts as long as size and time of the state are still
/// those it was made for, and one that is missing, damaged or lost is made again.
class HistoryIndex final
{
public:
    /// Lines that are no entries are passed over.
    [[nodiscard]] static HistoryIndex parse(std::string_view text);

    [[nodiscard]] std::optional<std::uint64_t> find(std::string_view state, const FileMark& mark) const;

    /// The entry as a line of the file.
    [[nodiscard]] static std::string line(std::string_view state, const FileMark& mark, std::uint64_t fingerprint);

private:
    struct Entry
    {
        FileMark mark;
        std::uint64_t fingerprint = 0;
    };

    std::map<std::string, Entry, std::less<>> m_entries;
};

}  // namespace kavo
