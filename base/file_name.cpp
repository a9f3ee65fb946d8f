// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"

#include "base/run_time_error.h"
#include "base/shown_text.h"
#include "base/text.h"
#include "base/windows_name.h"

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

/// Errors after which it is certain that no file of that path can be found.
bool cannotBeThere(const std::error_code& error)
{
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory ||
           error == std::errc::filename_too_long || error == std::errc::too_many_symbolic_link_levels;
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
    // A folder that may be entered but not listed shows its entries to those who know their spelling.
    const bool isAnswer = !error || cannotBeThere(error) || error == std::errc::permission_denied;
    if (!isAnswer) throw RunTimeError(error, folder / name);
    return found;
}

fs::file_type typeAt(const fs::path& path)
{
    std::error_code error;
    const fs::file_type type = fs::status(path, error).type();
    if (type == fs::file_type::none && !cannotBeThere(error)) throw RunTimeError(error, path);
    return type;
}

}  // namespace

fs::path pathOf(std::string_view text)
{
#ifdef _WIN32
    const std::string utf8 = toUtf8(text);  // a path in an 8-bit code page is meant as it is shown
    return {std::u8string(utf8.begin(), utf8.end())};
#else
    return {std::string(text)};
#endif
}

std::string textOf(const fs::path& path)
{
#ifdef _WIN32
    try {
        const std::u8string text = path.u8string();
        return std::string(text.begin(), text.end());
    } catch (const std::system_error&) {
        // A name that is no text, which only other programs make: none of ours is spelled so.
        std::string text;
        for (const wchar_t unit : path.native()) text.push_back(unit < 0x80 ? static_cast<char>(unit) : '?');
        return text;
    }
#else
    return path.string();
#endif
}

fs::path locate(const fs::path& wanted)
{
    if (isThere(wanted)) return wanted;
    // What is missing is nearly always a file in a folder that is there as it is spelled.
    const fs::path folder = wanted.parent_path();
    if (const fs::path name = wanted.filename(); !name.empty() && isThere(folder))
        return folder / entryIgnoringCase(folder, name).value_or(name);
    fs::path found = wanted.root_path();
    fs::path::string_type rest;  // what is not there; put together here, as a path takes longer the longer it gets
    for (const fs::path& component : wanted.relative_path()) {
        if (!rest.empty()) {
            rest.append(1, fs::path::preferred_separator).append(component.native());
        } else if (component.empty() || isThere(found / component)) {
            found /= component;
        } else if (const auto entry = entryIgnoringCase(found, component)) {
            found /= *entry;
        } else {
            rest = component.native();
        }
    }
    if (rest.empty()) return found;
    found /= fs::path();  // a separator, if it needs one
    return found += rest;
}

fs::path locateTyped(const fs::path& folder, std::string_view typed)
{
#ifdef _WIN32
    if (!isWindowsPath(typed)) throw RunTimeError(Failure::PathNotFound, pathOf(typed));
#endif
    fs::path asTyped = locate(folder / pathOf(typed));
    if (isThere(asTyped) || typed.find('\\') == std::string_view::npos) return asTyped;
    std::string slashed(typed);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    fs::path withSeparators = locate(folder / pathOf(slashed));
    return isThere(withSeparators) ? withSeparators : asTyped;
}

bool fileExists(const fs::path& path)
{
    return typeAt(path) == fs::file_type::regular;
}

bool folderExists(const fs::path& path)
{
    return typeAt(path) == fs::file_type::directory;
}

bool isPlainName(std::string_view text)
{
#ifdef _WIN32
    if (!text.empty() && !isWindowsName(text)) return false;
#endif
    constexpr std::string_view kForbidden{"/\\\0", 3};
    return text.find_first_of(kForbidden) == std::string_view::npos && text != "." && text != "..";
}

}  // namespace kavo
