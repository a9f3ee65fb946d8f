// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/atomic_file.h"

#include "base/file_name.h"
#include "base/rename_over.h"
#include "base/run_time_error.h"
#include "base/write_protection.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::size_t kBufferSize = 1U << 16U;
constexpr int kMostAtOnce = 1000;  // programs that save one file at the same moment
constexpr std::string_view kTemporaryStart = ".kavo-";
constexpr std::string_view kTemporaryEnd = ".tmp";

/// The file at the end of a chain of symbolic links, whether it is there or not.
fs::path followLinks(fs::path path, std::error_code& error)
{
    constexpr int kLongestChain = 40;  // as systems have it
    for (int link = 0; link < kLongestChain; ++link) {
        if (!fs::is_symlink(fs::symlink_status(path, error))) {
            error.clear();  // what is not there is an answer, too
            return path;
        }
        const fs::path next = fs::read_symlink(path, error);
        if (error) return path;
        path = path.parent_path() / next;
    }
    error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    return path;
}

/// What the names of all temporary files of a target end with.
std::string endOfTemporaries(const fs::path& target)
{
    const auto hash = std::hash<std::string>{}(textOf(target.filename()));
    return "-" + std::to_string(hash).append(kTemporaryEnd);
}

fs::path temporaryBeside(const fs::path& target, int number)
{
    const std::string name = std::string(kTemporaryStart) + std::to_string(number) + endOfTemporaries(target);
    return target.parent_path() / pathOf(name);
}

bool isTemporary(std::string_view name, std::string_view end)
{
    if (name.size() <= kTemporaryStart.size() + end.size()) return false;
    if (!name.starts_with(kTemporaryStart) || !name.ends_with(end)) return false;
    name.remove_prefix(kTemporaryStart.size());
    name.remove_suffix(end.size());
    return name.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Deletes a temporary file whose lock nobody holds. Where there are no locks it stays: its writer may live.
void removeIfLeft(const fs::path& temporary)
{
    std::error_code ignored;
    if (!fs::is_regular_file(fs::symlink_status(temporary, ignored))) return;
    const OpenFile file = OpenFile::toLock(temporary, OpenFile::IfMissing::Fail, ignored);
    if (file.isOpen() && file.lock() == OpenFile::Lock::Held && file.isAt(temporary)) fs::remove(temporary, ignored);
}

/// Cleans up after programs that were killed while they saved this very target.
void removeLeftovers(const fs::path& target)
{
    const fs::path folder = target.parent_path();
    const std::string endOfNames = endOfTemporaries(target);
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error), end; !error && entry != end;
         entry.increment(error))
        if (isTemporary(textOf(entry->path().filename()), endOfNames)) removeIfLeft(entry->path());
}

}  // namespace

std::error_code flushFolder([[maybe_unused]] const fs::path& folder)
{
#ifdef _WIN32
    return {};
#else
    const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return {};  // one that may not be listed
    const bool isDone = ::fsync(descriptor) == 0 || (errno != EIO && errno != ENOSPC && errno != EDQUOT);
    const std::error_code error = isDone ? std::error_code() : std::error_code(errno, std::generic_category());
    ::close(descriptor);
    return error;
#endif
}

bool isTemporaryName(const fs::path& name)
{
    const std::string text = textOf(name.filename());
    return text.starts_with(kTemporaryStart) && text.ends_with(kTemporaryEnd);
}

AtomicFile::AtomicFile(fs::path path) : m_named(std::move(path))
{
    findTarget();
    openTemporary();
}

AtomicFile::~AtomicFile()
{
    m_file.close();
    std::error_code ignored;
    if (!m_temporary.empty()) fs::remove(m_temporary, ignored);
}

void AtomicFile::fail(const std::error_code& error)
{
    m_hasFailed = true;
    throw RunTimeError(error, m_named);
}

void AtomicFile::failIf(const std::error_code& error)
{
    if (error) fail(error);
}

/// Finds out what is to be written, and opens it where it is no file that can be replaced.
void AtomicFile::findTarget()
{
    std::error_code error;
    const fs::file_type type = fs::status(m_named, error).type();
    if (type == fs::file_type::none) fail(error);  // cannot be told: a loop of links, for one
    if (type == fs::file_type::character || type == fs::file_type::fifo) {
        m_file = OpenFile::device(m_named, error);
        failIf(error);
        return;
    }
    m_target = followLinks(m_named, error);
    failIf(error);
    const bool isThere = type != fs::file_type::not_found;
    // Folders, disks, sockets; or a file that is still open here and there without its name.
    const bool isReplaceable = !isThere || (type == fs::file_type::regular && fs::equivalent(m_named, m_target, error));
    if (isReplaceable && isThere) error = writeProtection(m_target);  // no file is replaced behind it
    if (type == fs::file_type::directory) error = std::make_error_code(std::errc::is_a_directory);
    if (!isReplaceable || error) throw RunTimeError(Failure::PathFileAccess, m_named, error);
    if (m_target.filename().empty()) throw RunTimeError(Failure::PathNotFound, m_named);
}

void AtomicFile::openTemporary()
{
    if (m_file.isOpen()) return;
    removeLeftovers(m_target);
    std::error_code error;
    for (int number = 0; number < kMostAtOnce && !m_file.isOpen(); ++number) {
        fs::path temporary = temporaryBeside(m_target, number);
        OpenFile file = OpenFile::newFile(temporary, error);
        if (error == std::errc::file_exists) continue;
        failIf(error);
        // Until it was locked another program could take it for a leftover.
        if (file.lock() == OpenFile::Lock::Busy) continue;
        if (!file.isAt(temporary)) {
            file.close();
            removeIfLeft(temporary);  // only where the system could not tell: nothing would come back for it
            continue;
        }
        m_temporary = std::move(temporary);
        m_file = std::move(file);
    }
    failIf(m_file.isOpen() ? std::error_code() : error);
    m_file.takePermissionsOf(m_target);
}

void AtomicFile::write(std::string_view bytes)
{
    m_buffer.append(bytes.substr(0, kBufferSize));
    if (m_buffer.size() < kBufferSize) return;
    writeBuffer();
    std::error_code error;
    m_file.write(bytes.substr(std::min(bytes.size(), kBufferSize)), error);
    failIf(error);
}

void AtomicFile::writeBuffer()
{
    std::error_code error;
    m_file.write(m_buffer, error);
    m_buffer.clear();
    failIf(error);
}

void AtomicFile::flush()
{
    writeBuffer();
    if (m_temporary.empty()) return;
    std::error_code error;
    m_file.flush(error);
    failIf(error);
}

void AtomicFile::commit(Flush flush)
{
    if (flush == Flush::ToDisk)
        this->flush();
    else
        writeBuffer();
    if (m_temporary.empty()) return;
#ifdef _WIN32
    m_file.close();  // nothing that is open can be renamed there
#endif
    // Elsewhere it is renamed while it is open: its lock keeps it from being taken for a leftover.
    failIf(renameOver(m_temporary, m_target, temporaryBeside(m_target, kMostAtOnce)));
    m_temporary.clear();
    m_file.close();
    if (flush == Flush::ToDisk) failIf(flushFolder(m_target.parent_path()));
}

}  // namespace kavo
