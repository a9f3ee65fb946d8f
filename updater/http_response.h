// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kavo {

/// Reads the response to an HTTP/1.1 request from the bytes of its connection, as they come.
///
/// The client that Qt 6.4 brings takes a chunk header that it cannot read for the end of the body, and a
/// connection that was reset for one that was closed, without a word. Here a body has one good end for each
/// way of marking it; everything else is Broken. Interim responses (100 to 199) are skipped.
class HttpResponse final
{
public:
    enum class Stage { Head, Body, Complete, Broken };

    /// A body of more than `longestBody` bytes is Broken as soon as that is known.
    explicit HttpResponse(std::size_t longestBody) : m_longestBody(longestBody) {}

    /// The next bytes of the connection. What follows the end of the response is not looked at.
    void take(std::string_view bytes);

    /// The connection has ended.
    void takeEnd();

    [[nodiscard]] Stage stage() const;

    /// Whether the head has come, also of a response that is broken.
    [[nodiscard]] bool hasHead() const { return m_hasHead; }

    /// The status in the head.
    [[nodiscard]] int status() const { return m_status; }

    /// Value of a field of the head, its name in lower case; several are joined by ", ".
    [[nodiscard]] std::optional<std::string> field(std::string_view name) const;

    [[nodiscard]] const std::string& body() const { return m_body; }

    /// Whether the server has said where the body ends. Otherwise it goes on to the connection's end, whatever
    /// that was brought about by.
    [[nodiscard]] bool hasMarkedEnd() const { return m_hasMarkedEnd; }

private:
    /// What the next bytes are.
    enum class Part { StatusLine, Field, Sized, Unsized, ChunkSize, Chunk, ChunkEnd, Trailer, Complete, Broken };

    [[nodiscard]] bool takePart();
    [[nodiscard]] bool takeBody(Part next);
    [[nodiscard]] bool takeUnsizedBody();
    [[nodiscard]] std::optional<std::string_view> takeLine();
    [[nodiscard]] Part afterLine(std::string_view line);
    [[nodiscard]] Part afterStatusLine(std::string_view line);
    [[nodiscard]] Part afterField(std::string_view line);
    [[nodiscard]] Part afterHead();
    [[nodiscard]] Part afterChunkSize(std::string_view line);
    [[nodiscard]] Part afterTrailer() const;

    static constexpr std::size_t kLongestLines = 64 * 1024;

    std::size_t m_longestBody;
    Part m_part = Part::StatusLine;
    std::string m_bytes;                      ///< of the connection, not yet taken apart
    std::size_t m_position = 0;               ///< where what comes next begins in them
    std::size_t m_linesLeft = kLongestLines;  ///< bytes that the head, a chunk's line or the trailer may still have
    bool m_hasHead = false;
    int m_status = 0;
    std::vector<std::pair<std::string, std::string>> m_fields;
    std::optional<std::uint64_t> m_length;  ///< as announced
    std::uint64_t m_missing = 0;            ///< bytes of the sized body or of the chunk
    bool m_hasMarkedEnd = true;
    std::string m_body;
};

}  // namespace kavo
