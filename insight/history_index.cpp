// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/history_index.h"

#include "insight/fingerprint.h"
#include "insight/state_name.h"

#include <charconv>

namespace kavo {

namespace {

/// Takes the text up to the next blank off a line.
std::string_view takeWord(std::string_view& line)
{
    const std::size_t end = std::min(line.find(' '), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

template <typename Number>
std::optional<Number> wholeNumber(std::string_view word)
{
    Number number{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc{} || end != word.data() + word.size()) return std::nullopt;
    return number;
}

}  // namespace

HistoryIndex HistoryIndex::parse(std::string_view text)
{
    HistoryIndex index;
    // Whatever stands behind the last line end was never finished.
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        const std::string_view state = takeWord(line);
        const auto size = wholeNumber<std::uintmax_t>(takeWord(line));
        const auto modified = wholeNumber<std::int64_t>(takeWord(line));
        const auto fingerprint = parseHexadecimal(line);
        if (momentOfState(state) && size && modified && fingerprint)
            index.m_entries.insert_or_assign(std::string(state), Entry{{*size, *modified}, *fingerprint});
    }
    return index;
}

std::optional<std::uint64_t> HistoryIndex::find(std::string_view state, const FileMark& mark) const
{
    const auto found = m_entries.find(state);
    if (found == m_entries.end() || found->second.mark != mark) return std::nullopt;
    return found->second.fingerprint;
}

std::string HistoryIndex::line(std::string_view state, const FileMark& mark, std::uint64_t fingerprint)
{
    return std::string(state) + " " + std::to_string(mark.size) + " " + std::to_string(mark.modified) + " " +
           hexadecimal(fingerprint) + "\n";
}

}  // namespace kavo
