// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/atomic_file.h"
#include "base/run_time_error.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kavo {

inline constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 31U;  ///< bytes read at most: 2 GiB

/// The bytes of a file, read in one piece: a statistics file may be large. Not mapped into memory: the game
/// may shorten it at any moment.
class FileContent final
{
public:
    using Bytes = std::unique_ptr<char[]>;  // NOLINT(modernize-avoid-c-arrays): unlike others never filled with zeros

    FileContent(Bytes bytes, std::size_t length) : m_bytes(std::move(bytes)), m_length(length) {}

    [[nodiscard]] std::string_view view() const { return {m_bytes.get(), m_length}; }

private:
    Bytes m_bytes;
    std::size_t m_length;
};

/// The whole content of an ordinary file, byte for byte. Never waits for anybody: folders, pipes and devices
/// are an error at once. Throws RunTimeError: FileNotFound, PathFileAccess, FileTooLarge, OutOfMemory.
[[nodiscard]] FileContent readContent(const std::filesystem::path& path, std::uintmax_t largest = kLargestFile);

/// The same as a text of its own.
[[nodiscard]] std::string readFile(const std::filesystem::path& path);

/// The content, or nothing when no ordinary file stands there. Throws where the system cannot tell: what is
/// only out of reach must not be taken for missing and be written anew.
[[nodiscard]] std::optional<std::string> readFileIfThere(const std::filesystem::path& path);

/// Reads and parses a file; a failure of the parser, want of memory included, is reported with the file's
/// name.
template <typename Parser>
auto parseFile(const std::filesystem::path& path, Parser parse)
{
    const FileContent content = readContent(path);
    try {
        return parse(content.view());
    } catch (const RunTimeError& error) {
        throw error.about(path);
    } catch (const std::bad_alloc&) {
        throw RunTimeError(Failure::OutOfMemory, path);
    }
}

/// Replaces a file by `content`, atomically and, unless told otherwise, durably. Throws as AtomicFile does.
void replaceFile(const std::filesystem::path& path, std::string_view content, Flush flush = Flush::ToDisk);

/// Adds a line at the end of a file, which is made when missing. Throws as reading and replacing do.
void appendLine(const std::filesystem::path& path, std::string_view line);

/// Copies a file byte for byte, atomically. Throws FileNotFound when there is no source.
void copyFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Deletes a file, or a link, if it is there. Throws PathFileAccess.
void deleteFile(const std::filesystem::path& path);

}  // namespace kavo
