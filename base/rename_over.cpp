// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/rename_over.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace fs = std::filesystem;

namespace kavo {

#ifdef _WIN32

namespace {

/// Another program may have it open for a moment, as those do that look through every new file.
bool isInUse(DWORD error)
{
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
           error == ERROR_USER_MAPPED_FILE;
}

/// Takes the place also of a file that is open, if whoever opened it allows that.
bool replaceOpened(const fs::path& file, const fs::path& target, const fs::path& spare)
{
    constexpr DWORD kContentOnly = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
    // Without a spare name a failure half-way would leave no target.
    const bool isDone =
        ::ReplaceFileW(target.c_str(), file.c_str(), spare.c_str(), kContentOnly, nullptr, nullptr) != 0;
    if (!isDone && ::GetLastError() == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2)
        ::MoveFileExW(spare.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH);
    if (isDone) ::DeleteFileW(spare.c_str());
    return isDone;
}

}  // namespace

std::error_code renameOver(const fs::path& file, const fs::path& target, const fs::path& spare)
{
    constexpr int kTimes = 20;
    constexpr DWORD kPause = 50;  // milliseconds
    DWORD error = ERROR_SUCCESS;
    for (int time = 0; time < kTimes; ++time) {
        if (time > 0) ::Sleep(kPause);
        if (::MoveFileExW(file.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
            return {};
        error = ::GetLastError();
        if (!isInUse(error)) break;
        if (replaceOpened(file, target, spare)) return {};
    }
    return {static_cast<int>(error), std::system_category()};
}

#else

std::error_code renameOver(const fs::path& file, const fs::path& target, const fs::path& /*spare*/)
{
    std::error_code error;
    fs::rename(file, target, error);
    return error;
}

#endif

}  // namespace kavo
