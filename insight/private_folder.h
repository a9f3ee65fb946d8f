#pragma once

#include <filesystem>

namespace kavo {

/// Makes a folder with those on the way to it. It is for the user alone. Throws RunTimeError: PathFileAccess,
/// DiskFull.
void makePrivateFolder(const std::filesystem::path& folder);

}  // namespace kavo
