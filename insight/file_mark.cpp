// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/file_mark.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/stat.h>
#endif

namespace kavo {

#ifdef _WIN32

std::optional<FileMark> markOf(const std::filesystem::path& file)
{
    const auto whole = [](DWORD high, DWORD low) { return (std::uint64_t{high} << 32U) | low; };
    constexpr DWORD kNoFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DEVICE;
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (::GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data) == 0) return std::nullopt;
    if ((data.dwFileAttributes & kNoFile) != 0) return std::nullopt;
    const FILETIME& written = data.ftLastWriteTime;
    return FileMark{whole(data.nFileSizeHigh, data.nFileSizeLow),
                    static_cast<std::int64_t>(whole(written.dwHighDateTime, written.dwLowDateTime))};
}

#else

std::optional<FileMark> markOf(const std::filesystem::path& file)
{
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    struct stat facts = {};
    if (::lstat(file.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
    return FileMark{static_cast<std::uintmax_t>(facts.st_size),
                    facts.st_mtim.tv_sec * kNanoseconds + facts.st_mtim.tv_nsec};
}

#endif

}  // namespace kavo
