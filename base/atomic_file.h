// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/open_file.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace kavo {

/// When a new file has to be on the disk itself, not only in the system's memory.
enum class Flush {
    ToDisk,  ///< before it takes the old one's place, so that a pulled plug leaves one of the two
    Later,   ///< a crash of the program loses nothing; a pulled plug may leave an empty file
};

/// A file that is replaced as a whole: what is written goes into a new file beside it, which takes its
/// place at commit(). Without a commit the old file stays as it was. Symbolic links are written through,
/// also to a file that is not there yet. A device, or a pipe that somebody reads from, is written directly.
class AtomicFile final
{
public:
    /// Throws RunTimeError: PathNotFound, PathFileAccess, DiskFull.
    explicit AtomicFile(std::filesystem::path path);
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    void write(std::string_view bytes);

    /// The new file is on the disk with all that was written; the old one is still in place.
    void flush();

    void commit(Flush flush = Flush::ToDisk);

    /// Whether the disk has refused something: the error that a caller sees may then be a consequence.
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

private:
    [[noreturn]] void fail(const std::error_code& error);
    void failIf(const std::error_code& error);
    void findTarget();
    void openTemporary();
    void writeBuffer();

    std::filesystem::path m_named;      ///< as asked for: named in failures
    std::filesystem::path m_target;     ///< the file that is replaced, symbolic links followed
    std::filesystem::path m_temporary;  ///< empty when the target is written directly, and once it is in place
    OpenFile m_file;
    std::string m_buffer;  ///< written, but not handed to the system yet
    bool m_hasFailed = false;
};

/// Makes a rename inside the folder survive a power cut, where the file system can do it.
[[nodiscard]] std::error_code flushFolder(const std::filesystem::path& folder);

/// Whether a file of that name is a new one on its way, or was left behind by a program that was killed.
[[nodiscard]] bool isTemporaryName(const std::filesystem::path& name);

}  // namespace kavo
