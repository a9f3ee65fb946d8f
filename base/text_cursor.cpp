// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text_cursor.h"

#include "base/run_time_error.h"
#include "base/text.h"

#include <algorithm>

namespace kavo {

void TextCursor::requireMore() const
{
    if (atEnd()) throw RunTimeError(Failure::InputPastEnd);
}

std::string_view TextCursor::upTo(std::string_view separators)
{
    const std::size_t start = m_position;
    std::size_t end = start;
    // find_first_of would search the separators for each byte, which takes half of the reading of targets.
    while (end < m_text.size() && m_text[end] != separators.front() && m_text[end] != separators.back()) ++end;
    m_position = end + 1;
    const bool endsLine = end < m_text.size() && m_text[end] == '\n';
    const bool hasReturn = endsLine && end > start && m_text[end - 1] == '\r';
    return m_text.substr(start, end - start - (hasReturn ? 1 : 0));
}

void TextCursor::skipBlanks()
{
    m_position = std::min(m_text.find_first_not_of(' ', m_position), m_text.size());
}

std::string_view TextCursor::line()
{
    requireMore();
    return upTo("\n");
}

std::string_view TextCursor::quotedField()
{
    const std::size_t start = m_position + 1;
    const std::size_t end = std::min(m_text.find('"', start), m_text.size());
    m_position = std::min(end + 1, m_text.size());
    upTo(",\n");
    return m_text.substr(std::min(start, m_text.size()), end - start);
}

std::string_view TextCursor::field()
{
    requireMore();
    skipBlanks();
    if (!atEnd() && m_text[m_position] == '"') return quotedField();
    return trimBlanks(upTo(",\n"));
}

}  // namespace kavo
