// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text_file.h"

#include "base/file_name.h"
#include "base/open_file.h"
#include "base/text.h"

#include <algorithm>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace fs = std::filesystem;

namespace kavo {

namespace {

/// Opens an ordinary file. Anything else is not even opened: a program that waits to write into a pipe
/// would take that for its reader.
OpenFile openOrdinary(const fs::path& path)
{
    std::error_code error;
    const fs::file_type type = fs::status(path, error).type();
    const bool isElse = type != fs::file_type::regular && type != fs::file_type::not_found;
    if (type == fs::file_type::directory) error = std::make_error_code(std::errc::is_a_directory);
    if (isElse) throw RunTimeError(Failure::PathFileAccess, path, error);
    OpenFile file = OpenFile::toRead(path, error);
    if (error == std::errc::no_such_file_or_directory) throw RunTimeError(Failure::FileNotFound, path, error);
    if (error) throw RunTimeError(error, path);
    return file;
}

/// A buffer that the system may make of its largest pages: reading 100 MB then takes 32 ms, not 54.
std::unique_ptr<char[]> newBuffer(std::size_t size)
{
    auto buffer = std::make_unique_for_overwrite<char[]>(size);
#ifdef MADV_HUGEPAGE
    constexpr std::size_t kLargestPage = 1U << 21U;
    void* whole = buffer.get();
    std::size_t left = size;
    if (size > kLargestPage && std::align(kLargestPage, kLargestPage, whole, left) != nullptr)
        ::madvise(whole, left, MADV_HUGEPAGE);
#endif
    return buffer;
}

/// A larger buffer that begins with what is in the smaller one.
FileContent::Bytes enlarged(const FileContent::Bytes& buffer, std::size_t length, std::size_t size)
{
    auto larger = newBuffer(size);
    std::copy_n(buffer.get(), length, larger.get());
    return larger;
}

/// Reads to the end, wherever that is by then: the game may be writing, and some files of the system do not
/// tell their size.
FileContent readToEnd(const OpenFile& file, const fs::path& path, std::uintmax_t largest)
{
    constexpr std::size_t kLeast = 4096;
    const auto told = file.ordinarySize();
    if (!told) throw RunTimeError(Failure::PathFileAccess, path);
    if (*told > largest) throw RunTimeError(Failure::FileTooLarge, path);
    // One byte more than there should be, so that the end is met without a larger buffer.
    std::size_t size = std::max(kLeast, static_cast<std::size_t>(*told) + 1);
    auto buffer = newBuffer(size);
    std::size_t length = 0;
    std::error_code error;
    while (const std::size_t got = file.read(buffer.get() + length, size - length, error)) {
        length += got;
        if (length > largest) throw RunTimeError(Failure::FileTooLarge, path);
        if (length < size) continue;
        size += size / 2;
        buffer = enlarged(buffer, length, size);
    }
    if (error) throw RunTimeError(error, path);
    return {std::move(buffer), length};
}

}  // namespace

FileContent readContent(const fs::path& path, std::uintmax_t largest)
{
    try {
        return readToEnd(openOrdinary(path), path, largest);
    } catch (const std::bad_alloc&) {
        throw RunTimeError(Failure::OutOfMemory, path);
    }
}

std::string readFile(const fs::path& path)
{
    return parseFile(path, [](std::string_view content) { return std::string(content); });
}

std::optional<std::string> readFileIfThere(const fs::path& path)
{
    if (!fileExists(path)) return std::nullopt;
    return readFile(path);
}

void replaceFile(const fs::path& path, std::string_view content, Flush flush)
{
    AtomicFile file(path);
    file.write(content);
    file.commit(flush);
}

void appendLine(const fs::path& path, std::string_view line)
{
    std::string content = readFileIfThere(path).value_or("");
    // A last line that a text editor left unended must not run into the new one.
    if (!content.empty() && content.back() != '\n') content.append(kLineEnd);
    replaceFile(path, content.append(line).append(kLineEnd));
}

void copyFile(const fs::path& from, const fs::path& to)
{
    if (!fileExists(from)) throw RunTimeError(Failure::FileNotFound, from);
    replaceFile(to, readContent(from).view());
}

void deleteFile(const fs::path& path)
{
    std::error_code error;
    if (fs::is_directory(fs::symlink_status(path, error))) throw RunTimeError(Failure::PathFileAccess, path);
    fs::remove(path, error);
    if (error) throw RunTimeError(Failure::PathFileAccess, path, error);
}

}  // namespace kavo
