// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/markup.h"

#include "base/shown_text.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace kavo {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Elements of HTML that have no end tag.
constexpr std::array<std::string_view, 2> kWithoutEnd = {"meta", "link"};

bool isControl(std::string_view character)
{
    const auto first = static_cast<unsigned char>(character.front());
    if (character.size() == 1) return (first < 0x20 && first != '\n' && first != '\t') || first == 0x7F;
    // U+0080 to U+009F
    return character.size() == 2 && first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
}

std::string_view escapedCharacter(std::string_view character)
{
    if (isControl(character)) return kReplacement;
    switch (character.front()) {
    case '&': return "&amp;";
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '"': return "&quot;";
    case '\'': return "&#39;";
    default: return character;
    }
}

}  // namespace

std::string escaped(std::string_view text)
{
    const std::string utf8 = toUtf8(text);
    std::string result;
    result.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t length = characterLength(utf8, at);
        result.append(escapedCharacter(std::string_view(utf8).substr(at, length)));
        at += length;
    }
    return result;
}

Markup& Markup::open(std::string_view element, const Attributes& attributes)
{
    tag(element, attributes);
    m_written += ">";
    m_open.push_back(element);
    return *this;
}

Markup& Markup::close()
{
    m_written.append("</").append(m_open.back()).append(">");
    m_open.pop_back();
    return *this;
}

Markup& Markup::empty(std::string_view element, const Attributes& attributes)
{
    tag(element, attributes);
    const bool hasNoEnd = std::find(kWithoutEnd.begin(), kWithoutEnd.end(), element) != kWithoutEnd.end();
    m_written += hasNoEnd ? ">" : "/>";
    return *this;
}

Markup& Markup::element(std::string_view name, std::string_view text)
{
    return element(name, {}, text);
}

Markup& Markup::element(std::string_view name, const Attributes& attributes, std::string_view text)
{
    return open(name, attributes).text(text).close();
}

Markup& Markup::text(std::string_view text)
{
    m_written += escaped(text);
    return *this;
}

Markup& Markup::name(std::string_view text)
{
    return element("bdi", text);
}

Markup& Markup::line()
{
    m_written += "\n";
    return *this;
}

Markup& Markup::verbatim(std::string_view text)
{
    m_written += text;
    return *this;
}

void Markup::tag(std::string_view element, const Attributes& attributes)
{
    m_written.append("<").append(element);
    for (const Attribute& attribute : attributes)
        m_written.append(" ").append(attribute.name).append("=\"").append(escaped(attribute.value)).append("\"");
}

}  // namespace kavo
