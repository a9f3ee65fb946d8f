// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updater/http_response.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>

namespace kavo {

namespace {

constexpr int kSwitchingProtocols = 101;
constexpr int kNoContent = 204;
constexpr int kNotModified = 304;

std::string_view withoutWhitespace(std::string_view text)
{
    constexpr std::string_view kWhitespace = " \t";
    const auto first = text.find_first_not_of(kWhitespace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kWhitespace) - first + 1);
}

/// The number that a text begins with, which is cut off; nothing when there is none or too large a one.
std::optional<std::uint64_t> takeNumber(std::string_view& text, int base)
{
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

/// The length that one or more Content-Length fields announce; nothing unless they agree.
std::optional<std::uint64_t> announcedLength(std::string_view list)
{
    std::optional<std::uint64_t> length;
    for (bool isLast = false; !isLast;) {
        const auto comma = list.find(',');
        isLast = comma == std::string_view::npos;
        std::string_view text = withoutWhitespace(list.substr(0, comma));
        const auto number = takeNumber(text, 10);
        if (!number || !text.empty() || (length && length != number)) return std::nullopt;
        length = number;
        if (!isLast) list.remove_prefix(comma + 1);
    }
    return length;
}

}  // namespace

void HttpResponse::take(std::string_view bytes)
{
    m_bytes.append(bytes);
    while (takePart()) {
    }
    m_bytes.erase(0, m_position);
    m_position = 0;
}

void HttpResponse::takeEnd()
{
    if (m_part == Part::Unsized) m_part = Part::Complete;
    if (m_part != Part::Complete) m_part = Part::Broken;
}

HttpResponse::Stage HttpResponse::stage() const
{
    switch (m_part) {
    case Part::StatusLine:
    case Part::Field: return Stage::Head;
    case Part::Complete: return Stage::Complete;
    case Part::Broken: return Stage::Broken;
    case Part::Sized:
    case Part::Unsized:
    case Part::ChunkSize:
    case Part::Chunk:
    case Part::ChunkEnd:
    case Part::Trailer: break;
    }
    return Stage::Body;
}

std::optional<std::string> HttpResponse::field(std::string_view name) const
{
    std::optional<std::string> value;
    for (const auto& [fieldName, fieldValue] : m_fields)
        if (fieldName == name) value = value ? *value + ", " + fieldValue : fieldValue;
    return value;
}

/// False when the bytes that are there have been taken.
bool HttpResponse::takePart()
{
    switch (m_part) {
    case Part::Sized: return takeBody(Part::Complete);
    case Part::Chunk: return takeBody(Part::ChunkEnd);
    case Part::Unsized: return takeUnsizedBody();
    case Part::Complete:
    case Part::Broken: m_position = m_bytes.size(); return false;
    case Part::StatusLine:
    case Part::Field:
    case Part::ChunkSize:
    case Part::ChunkEnd:
    case Part::Trailer: break;
    }
    const auto line = takeLine();
    if (line) m_part = afterLine(*line);
    return line.has_value() || m_part == Part::Broken;
}

bool HttpResponse::takeBody(Part next)
{
    const std::size_t count = std::min<std::uint64_t>(m_missing, m_bytes.size() - m_position);
    m_body.append(m_bytes, m_position, count);
    m_position += count;
    m_missing -= count;
    if (m_missing > 0) return false;
    m_part = next;
    return true;
}

bool HttpResponse::takeUnsizedBody()
{
    m_body.append(m_bytes, m_position);
    m_position = m_bytes.size();
    if (m_body.size() > m_longestBody) m_part = Part::Broken;
    return false;
}

/// The next line without its end, CR LF or a bare LF; nothing until it is there.
std::optional<std::string_view> HttpResponse::takeLine()
{
    const std::size_t end = m_bytes.find('\n', m_position);
    const std::size_t length = (end == std::string::npos ? m_bytes.size() : end + 1) - m_position;
    if (length > m_linesLeft) m_part = Part::Broken;
    if (end == std::string::npos || m_part == Part::Broken) return std::nullopt;
    std::string_view line(m_bytes.data() + m_position, length - 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    m_position += length;
    m_linesLeft -= length;
    return line;
}

HttpResponse::Part HttpResponse::afterLine(std::string_view line)
{
    switch (m_part) {
    case Part::StatusLine: return afterStatusLine(line);
    case Part::Field: return line.empty() ? afterHead() : afterField(line);
    case Part::ChunkSize: return afterChunkSize(line);
    case Part::ChunkEnd: return line.empty() ? Part::ChunkSize : Part::Broken;
    case Part::Trailer: return line.empty() ? afterTrailer() : Part::Trailer;
    case Part::Sized:
    case Part::Unsized:
    case Part::Chunk:
    case Part::Complete:
    case Part::Broken: break;
    }
    return Part::Broken;
}

/// "HTTP/1.1 200 OK"; the reason may be missing.
HttpResponse::Part HttpResponse::afterStatusLine(std::string_view line)
{
    constexpr std::string_view kForm = "HTTP/1.d ddd";
    const auto fits = [](char character, char form) {
        return form == 'd' ? character >= '0' && character <= '9' : character == form;
    };
    const std::string_view start = line.substr(0, kForm.size());
    const std::string_view reason = line.substr(start.size());
    if (!std::equal(start.begin(), start.end(), kForm.begin(), kForm.end(), fits)) return Part::Broken;
    if (!reason.empty() && !reason.starts_with(' ')) return Part::Broken;
    m_status = integerOf(start.substr(start.size() - 3));
    return Part::Field;
}

HttpResponse::Part HttpResponse::afterField(std::string_view line)
{
    const auto colon = line.find(':');
    if (line.starts_with(' ') || line.starts_with('\t')) {  // the rest of the field before
        if (!m_fields.empty()) m_fields.back().second.append(" ").append(withoutWhitespace(line));
    } else if (colon != std::string_view::npos) {
        m_fields.emplace_back(foldCase(withoutWhitespace(line.substr(0, colon))),
                              withoutWhitespace(line.substr(colon + 1)));
    }
    return Part::Field;
}

HttpResponse::Part HttpResponse::afterHead()
{
    const bool isInterim = m_status / 100 == 1 && m_status != kSwitchingProtocols;
    if (isInterim) {
        m_fields.clear();
        return Part::StatusLine;
    }
    m_hasHead = true;
    if (m_status == kSwitchingProtocols) return Part::Broken;  // nobody has asked for another protocol
    m_linesLeft = kLongestLines;
    if (m_status == kNoContent || m_status == kNotModified) return Part::Complete;
    if (const auto length = field("content-length")) {
        m_length = announcedLength(*length);
        if (!m_length || *m_length > m_longestBody) return Part::Broken;
        m_missing = *m_length;
    }
    if (const auto coding = field("transfer-encoding"))
        return equalIgnoringCase(*coding, "chunked") ? Part::ChunkSize : Part::Broken;
    m_hasMarkedEnd = m_length.has_value();
    return m_hasMarkedEnd ? Part::Sized : Part::Unsized;
}

/// "1f" in hexadecimal, with extensions behind a semicolon, which nobody has agreed on.
HttpResponse::Part HttpResponse::afterChunkSize(std::string_view line)
{
    const auto size = takeNumber(line, 16);
    line = withoutWhitespace(line);
    if (!size || (!line.empty() && !line.starts_with(';'))) return Part::Broken;
    if (*size > m_longestBody - m_body.size()) return Part::Broken;
    m_linesLeft = kLongestLines;
    m_missing = *size;
    return *size > 0 ? Part::Chunk : Part::Trailer;
}

HttpResponse::Part HttpResponse::afterTrailer() const
{
    // The chunks count, but a length beside them that is another one speaks of another body.
    return !m_length || *m_length == m_body.size() ? Part::Complete : Part::Broken;
}

}  // namespace kavo
