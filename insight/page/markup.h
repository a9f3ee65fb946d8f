// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kavo {

/// A text as it may stand in a page, between tags or in the quotes of an attribute: valid UTF-8, without
/// characters that mean something there, and with U+FFFD in place of those that no page may hold.
[[nodiscard]] std::string escaped(std::string_view text);

/// Writes HTML with drawings in it. Every text and every value of an attribute is escaped here and nowhere else;
/// names of elements and attributes are those that the program itself has thought of.
class Markup final
{
public:
    struct Attribute
    {
        std::string_view name;
        std::string value;
    };
    using Attributes = std::vector<Attribute>;

    Markup& open(std::string_view element, const Attributes& attributes = {});
    Markup& close();

    /// An element with nothing in it.
    Markup& empty(std::string_view element, const Attributes& attributes = {});

    /// An element with a text in it.
    Markup& element(std::string_view name, std::string_view text);
    Markup& element(std::string_view name, const Attributes& attributes, std::string_view text);

    Markup& text(std::string_view text);

    /// A name that somebody has chosen: whatever direction its letters run in, the texts around it stay.
    Markup& name(std::string_view text);

    /// A line end, for those who read the source.
    Markup& line();

    /// What the program brings along: the style sheet, the script.
    Markup& verbatim(std::string_view text);

    /// The page, once everything is closed.
    [[nodiscard]] const std::string& written() const { return m_written; }

private:
    void tag(std::string_view element, const Attributes& attributes);

    std::string m_written;
    std::vector<std::string_view> m_open;
};

}  // namespace kavo
