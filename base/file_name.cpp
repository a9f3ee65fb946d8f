#include "base/file_name.h"

#include "base/text.h"

#include <algorithm>
#include <optional>

namespace fs = std::filesystem;

namespace kavo {

namespace {

bool isThere(const fs::path& path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

/// The entry of a folder whose name equals `name` but for case; the first in byte order if several do.
std::optional<fs::path> entryIgnoringCase(const fs::path& folder, const fs::path& name)
{
    const std::string wanted = foldCase(textOf(name));
    std::optional<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error), end; !error && entry != end;
         entry.increment(error)) {
        fs::path candidate = entry->path().filename();
        if (foldCase(textOf(candidate)) == wanted && (!found || candidate < *found)) found = std::move(candidate);
    }
    return found;
}

}  // namespace

fs::path pathOf(std::string_view text)
{
#ifdef _WIN32
    return {std::u8string(text.begin(), text.end())};
#else
    return {std::string(text)};
#endif
}

std::string textOf(const fs::path& path)
{
#ifdef _WIN32
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
#else
    return path.string();
#endif
}

fs::path locate(const fs::path& wanted)
{
    if (isThere(wanted)) return wanted;
    fs::path found = wanted.root_path();
    bool searching = true;
    for (const fs::path& component : wanted.relative_path()) {
        fs::path next = found / component;
        if (searching && !component.empty() && !isThere(next)) {
            const auto entry = entryIgnoringCase(found, component);
            searching = entry.has_value();
            if (entry) next = found / *entry;
        }
        found = std::move(next);
    }
    return found;
}

fs::path locateTyped(const fs::path& folder, std::string_view typed)
{
    fs::path asTyped = locate(folder / pathOf(typed));
    if (isThere(asTyped) || typed.find('\\') == std::string_view::npos) return asTyped;
    std::string slashed(typed);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    fs::path withSeparators = locate(folder / pathOf(slashed));
    return isThere(withSeparators) ? withSeparators : asTyped;
}

bool fileExists(const fs::path& path)
{
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

bool folderExists(const fs::path& path)
{
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

bool isPlainName(std::string_view text)
{
    constexpr std::string_view kForbidden{"/\\\0", 3};
    return text.find_first_of(kForbidden) == std::string_view::npos && text != "." && text != "..";
}

}  // namespace kavo
