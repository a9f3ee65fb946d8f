#include "base/write_protection.h"

#include <cerrno>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace kavo {

std::error_code writeProtection(const std::filesystem::path& path)
{
#ifdef _WIN32
    const bool isWritable = ::_waccess(path.c_str(), 2) == 0;
#else
    std::error_code ignored;
    const int wanted = std::filesystem::is_directory(path, ignored) ? W_OK | X_OK : W_OK;
    const bool isWritable = ::access(path.c_str(), wanted) == 0;
#endif
    return isWritable ? std::error_code() : std::error_code(errno, std::generic_category());
}

}  // namespace kavo
