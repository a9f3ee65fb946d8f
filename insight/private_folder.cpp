// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/private_folder.h"

#include "base/file_name.h"
#include "base/run_time_error.h"

namespace fs = std::filesystem;

namespace kavo {

void makePrivateFolder(const fs::path& folder)
{
    if (folderExists(folder)) return;
    std::error_code error;
    const bool isNew = fs::create_directories(folder, error);
    if (error) throw RunTimeError(error, folder);
    if (isNew) fs::permissions(folder, fs::perms::owner_all, error);
}

}  // namespace kavo
