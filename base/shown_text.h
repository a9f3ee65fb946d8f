// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/code_page.h"

#include <cstddef>
#include <string>
#include <string_view>

/// Texts on their way to people: what is valid UTF-8 is shown as it is, any other byte as its character in a code
/// page.
namespace kavo {

/// Whether a word, the bytes from one ASCII character to the next, may hold UTF-8 and bytes of the code page side by
/// side. In some alphabets two letters of a word are by chance UTF-8 for a third one, so there a word is all UTF-8 or
/// not at all. In Windows-1252 they are a letter and a sign, which stand in no word.
[[nodiscard]] bool mayMixInWords(const CodePage& codePage);

/// The text as valid UTF-8, in the code page in force.
[[nodiscard]] std::string toUtf8(std::string_view text);
[[nodiscard]] std::string toUtf8(std::string_view text, const CodePage& codePage);

/// Walks over the characters of a text as toUtf8 shows them.
class ShownCharacters final
{
public:
    explicit ShownCharacters(std::string_view text);
    ShownCharacters(std::string_view text, const CodePage& codePage);

    [[nodiscard]] bool atEnd() const { return m_position >= m_text.size(); }
    [[nodiscard]] std::size_t position() const { return m_position; }

    /// Moves behind the next character and returns its bytes: UTF-8, or one byte of the code page.
    std::string_view next();

private:
    void enterWord();

    std::string_view m_text;
    bool m_mayMix;
    std::size_t m_position = 0;
    std::size_t m_wordEnd = 0;  ///< of the word at the position: bytes that are no ASCII
    bool m_isUtf8 = true;       ///< that word
};

}  // namespace kavo
