// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kavo {

/// Reads a text from front to back, by whole lines or by free-format fields. Lines end with CR LF or a
/// bare LF. Every read moves on; a read at the end throws RunTimeError(InputPastEnd).
class TextCursor final
{
public:
    explicit TextCursor(std::string_view text) : m_text(text) {}

    [[nodiscard]] bool atEnd() const { return m_position >= m_text.size(); }

    /// The rest of the current line, without its end.
    std::string_view line();

    /// The next field: fields are separated by commas and by line ends alike; blanks around one are
    /// dropped. A field in double quotes is taken without them and may hold commas.
    std::string_view field();

private:
    void requireMore() const;
    void skipBlanks();
    std::string_view quotedField();
    /// Text up to the next separator of the given set, which is skipped.
    std::string_view upTo(std::string_view separators);

    std::string_view m_text;
    std::size_t m_position = 0;
};

}  // namespace kavo
