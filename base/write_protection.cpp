// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/write_protection.h"

#include <cerrno>

#ifdef _WIN32
#include "base/file_name.h"

#include <io.h>
#include <string>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace kavo {

#ifdef _WIN32

namespace {

/// Who may write where is too long a story there for any question but a new file, which goes at once.
bool canHoldNewFile(const std::filesystem::path& folder)
{
    const auto probe = folder / pathOf(".kavo-timing-" + std::to_string(::GetCurrentProcessId()) + ".probe");
    const HANDLE file = ::CreateFileW(probe.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    ::CloseHandle(file);
    return true;
}

}  // namespace

#endif

std::error_code writeProtection(const std::filesystem::path& path)
{
    std::error_code ignored;
#ifdef _WIN32
    if (std::filesystem::is_directory(path, ignored))
        return canHoldNewFile(path) ? std::error_code() : std::make_error_code(std::errc::permission_denied);
    const bool isWritable = ::_waccess(path.c_str(), 2) == 0;
#else
    const int wanted = std::filesystem::is_directory(path, ignored) ? W_OK | X_OK : W_OK;
    const bool isWritable = ::access(path.c_str(), wanted) == 0;
#endif
    return isWritable ? std::error_code() : std::error_code(errno, std::generic_category());
}

}  // namespace kavo
