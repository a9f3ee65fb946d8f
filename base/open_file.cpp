// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/open_file.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

#ifdef _WIN32
#include <io.h>
#include <share.h>
#include <windows.h>
#else
#include <sys/file.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::size_t kLargestTransfer = 1U << 30U;  // bytes that every system moves in one call

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

/// Repeats a call of the system as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

#ifdef _WIN32

constexpr int kRead = _O_RDONLY;
constexpr int kWriteNew = _O_WRONLY | _O_CREAT | _O_EXCL;
constexpr int kWriteDevice = _O_WRONLY;
constexpr int kLock = _O_RDWR;
constexpr int kLockReadOnly = _O_RDONLY;
constexpr int kMake = _O_CREAT;

int openDescriptor(const fs::path& path, int flags, std::error_code& error)
{
    int descriptor = -1;
    const int failed =
        ::_wsopen_s(&descriptor, path.c_str(), flags | _O_BINARY | _O_NOINHERIT, _SH_DENYNO, _S_IREAD | _S_IWRITE);
    error = std::error_code(failed, std::generic_category());
    return descriptor;
}

auto readSome(int descriptor, char* buffer, std::size_t size)
{
    return ::_read(descriptor, buffer, static_cast<unsigned>(size));
}

auto writeSome(int descriptor, const char* bytes, std::size_t size)
{
    return ::_write(descriptor, bytes, static_cast<unsigned>(size));
}

#else

constexpr int kRead = O_RDONLY;
constexpr int kWriteNew = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;
constexpr int kWriteDevice = O_WRONLY;
constexpr int kLock = O_RDWR;
constexpr int kLockReadOnly = O_RDONLY;
constexpr int kMake = O_CREAT;

int openDescriptor(const fs::path& path, int flags, std::error_code& error)
{
    constexpr mode_t kAsTheUserLikes = 0666;
    const int descriptor =
        uninterrupted([&] { return ::open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, kAsTheUserLikes); });
    error = descriptor < 0 ? lastError() : std::error_code();
    return descriptor;
}

auto readSome(int descriptor, char* buffer, std::size_t size)
{
    return ::read(descriptor, buffer, size);
}

auto writeSome(int descriptor, const char* bytes, std::size_t size)
{
    return ::write(descriptor, bytes, size);
}

#endif

}  // namespace

OpenFile::OpenFile(OpenFile&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept
{
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

OpenFile::~OpenFile()
{
    close();
}

OpenFile OpenFile::toRead(const fs::path& path, std::error_code& error)
{
    return OpenFile(openDescriptor(path, kRead, error));
}

OpenFile OpenFile::newFile(const fs::path& path, std::error_code& error)
{
    return OpenFile(openDescriptor(path, kWriteNew, error));
}

OpenFile OpenFile::device(const fs::path& path, std::error_code& error)
{
    OpenFile file(openDescriptor(path, kWriteDevice, error));
#ifndef _WIN32
    // Only the opening must not wait: a reader may well be slower than the writer.
    if (file.isOpen()) ::fcntl(file.m_descriptor, F_SETFL, O_WRONLY);
#endif
    return file;
}

OpenFile OpenFile::toLock(const fs::path& path, IfMissing ifMissing, std::error_code& error)
{
    OpenFile file(openDescriptor(path, ifMissing == IfMissing::Make ? kLock | kMake : kLock, error));
    return file.isOpen() ? std::move(file) : OpenFile(openDescriptor(path, kLockReadOnly, error));
}

std::size_t OpenFile::read(char* buffer, std::size_t size, std::error_code& error) const
{
    const auto got = uninterrupted([&] { return readSome(m_descriptor, buffer, std::min(size, kLargestTransfer)); });
    error = got < 0 ? lastError() : std::error_code();
    return got < 0 ? 0 : static_cast<std::size_t>(got);
}

void OpenFile::write(std::string_view bytes, std::error_code& error) const
{
    error.clear();
    while (!bytes.empty() && !error) {
        const auto put = uninterrupted(
            [&] { return writeSome(m_descriptor, bytes.data(), std::min(bytes.size(), kLargestTransfer)); });
        if (put < 0)
            error = lastError();
        else
            bytes.remove_prefix(static_cast<std::size_t>(put));
    }
}

#ifdef _WIN32

std::optional<std::uintmax_t> OpenFile::ordinarySize() const
{
    struct _stat64 status
    {
    };
    if (::_fstat64(m_descriptor, &status) != 0 || (status.st_mode & _S_IFMT) != _S_IFREG) return std::nullopt;
    return static_cast<std::uintmax_t>(status.st_size);
}

void OpenFile::flush(std::error_code& error) const
{
    error = ::_commit(m_descriptor) == 0 ? std::error_code() : lastError();
}

void OpenFile::takePermissionsOf([[maybe_unused]] const fs::path& other) const {}

OpenFile::Lock OpenFile::lock() const
{
    OVERLAPPED place{};
    place.OffsetHigh = 1U << 30U;  // far behind the end: here a lock keeps others from the bytes themselves
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(m_descriptor));
    if (::LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0)
        return Lock::Held;
    return ::GetLastError() == ERROR_LOCK_VIOLATION ? Lock::Busy : Lock::Unavailable;
}

bool OpenFile::isAt([[maybe_unused]] const fs::path& path) const
{
    return true;  // nothing that is open can be removed or replaced there
}

void OpenFile::close() noexcept
{
    if (isOpen()) ::_close(std::exchange(m_descriptor, -1));
}

#else

std::optional<std::uintmax_t> OpenFile::ordinarySize() const
{
    struct stat status
    {
    };
    if (::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return static_cast<std::uintmax_t>(status.st_size);
}

void OpenFile::flush(std::error_code& error) const
{
    const int result = uninterrupted([&] { return ::fsync(m_descriptor); });
    // Some file systems have no such operation, and nothing that could be waited for.
    const bool isDone = result == 0 || errno == EINVAL || errno == EROFS || errno == ENOTSUP;
    error = isDone ? std::error_code() : lastError();
}

void OpenFile::takePermissionsOf(const fs::path& other) const
{
    constexpr mode_t kPermissions = 07777;
    struct stat status
    {
    };
    if (::stat(other.c_str(), &status) != 0) return;
    // The owner first: changing it may take permissions away. Only an administrator can, and need not.
    [[maybe_unused]] const int owned = ::fchown(m_descriptor, status.st_uid, status.st_gid);
    ::fchmod(m_descriptor, status.st_mode & kPermissions);
}

OpenFile::Lock OpenFile::lock() const
{
    if (uninterrupted([&] { return ::flock(m_descriptor, LOCK_EX | LOCK_NB); }) == 0) return Lock::Held;
    return errno == EWOULDBLOCK ? Lock::Busy : Lock::Unavailable;
}

bool OpenFile::isAt(const fs::path& path) const
{
    struct stat mine
    {
    };
    struct stat there
    {
    };
    return ::fstat(m_descriptor, &mine) == 0 && ::stat(path.c_str(), &there) == 0 && mine.st_dev == there.st_dev &&
           mine.st_ino == there.st_ino;
}

void OpenFile::close() noexcept
{
    if (isOpen()) ::close(std::exchange(m_descriptor, -1));
}

#endif

}  // namespace kavo
