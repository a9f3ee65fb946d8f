// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/shown_text.h"

#include "base/text.h"

#include <algorithm>

namespace kavo {

namespace {

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80U;
}

bool isUtf8(std::string_view word)
{
    for (std::size_t at = 0; at < word.size();) {
        const std::size_t length = characterLength(word, at);
        if (length == 1) return false;
        at += length;
    }
    return true;
}

}  // namespace

bool mayMixInWords(const CodePage& codePage)
{
    return codePage.name() == windows1252().name();
}

ShownCharacters::ShownCharacters(std::string_view text) : ShownCharacters(text, codePageInForce()) {}

ShownCharacters::ShownCharacters(std::string_view text, const CodePage& codePage)
    : m_text(text), m_mayMix(mayMixInWords(codePage))
{
}

std::string_view ShownCharacters::next()
{
    const std::size_t start = m_position;
    if (start >= m_wordEnd && !isAscii(m_text[start])) enterWord();
    const bool isByteOfCodePage = start < m_wordEnd && !m_isUtf8 && !m_mayMix;
    m_position += isByteOfCodePage ? 1 : characterLength(m_text, start);
    return m_text.substr(start, m_position - start);
}

void ShownCharacters::enterWord()
{
    const std::string_view rest = m_text.substr(m_position);
    const auto length = static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), isAscii) - rest.begin());
    m_wordEnd = m_position + length;
    m_isUtf8 = m_mayMix || isUtf8(rest.substr(0, length));
}

std::string toUtf8(std::string_view text)
{
    return toUtf8(text, codePageInForce());
}

std::string toUtf8(std::string_view text, const CodePage& codePage)
{
    std::string result;
    result.reserve(text.size());
    for (ShownCharacters characters(text, codePage); !characters.atEnd();) {
        const std::string_view character = characters.next();
        if (character.size() == 1)
            appendUtf8(result, codePage.character(static_cast<unsigned char>(character.front())));
        else
            result.append(character);
    }
    return result;
}

}  // namespace kavo
