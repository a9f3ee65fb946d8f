// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/windows_name.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <string>

namespace kavo {

namespace {

constexpr char kSeparator = '\\';

/// COM1 to COM9 and LPT1 to LPT9; the raised digits of Windows-1252 count like the others.
bool isPort(std::string_view name)
{
    constexpr std::array<std::string_view, 2> kPorts = {"com", "lpt"};
    constexpr std::array<std::string_view, 12> kNumbers = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "¹", "²", "³"};
    return std::any_of(kPorts.begin(), kPorts.end(), [&](std::string_view port) {
        return name.starts_with(port) &&
               std::find(kNumbers.begin(), kNumbers.end(), name.substr(port.size())) != kNumbers.end();
    });
}

bool isDevice(std::string_view text)
{
    constexpr std::array<std::string_view, 6> kDevices = {"con", "prn", "aux", "nul", "conin$", "conout$"};
    // A device stays one with an extension, and with blanks before that.
    std::string name = foldCase(text.substr(0, text.find('.')));
    name.erase(name.find_last_not_of(' ') + 1);
    return isPort(name) || std::find(kDevices.begin(), kDevices.end(), name) != kDevices.end();
}

/// Without the drive of a whole path; behind it, and in any other path, stand names.
std::string_view withoutDrive(std::string_view path)
{
    const bool hasDrive = path.size() >= 3 && path[1] == ':' && path[2] == kSeparator;
    const char letter = hasDrive ? path[0] : '\0';
    const bool isLetter = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
    return path.substr(isLetter ? 2 : 0);
}

}  // namespace

bool isWindowsName(std::string_view text)
{
    constexpr std::string_view kForbidden = R"(<>:"/\|?*)";
    const bool hasForbidden = std::any_of(text.begin(), text.end(), [&](char c) {
        return static_cast<unsigned char>(c) < ' ' || kForbidden.find(c) != std::string_view::npos;
    });
    const std::size_t last = text.find_last_not_of(' ');
    return !hasForbidden && last != std::string_view::npos && text[last] != '.' && !isDevice(text);
}

bool isWindowsPath(std::string_view text)
{
    constexpr std::string_view kDevices = R"(\\.\)";
    constexpr std::string_view kLongPath = R"(\\?\)";
    std::string path(text);
    std::replace(path.begin(), path.end(), '/', kSeparator);
    if (path.starts_with(kDevices)) return false;
    std::string_view rest = path;
    if (rest.starts_with(kLongPath)) rest.remove_prefix(kLongPath.size());
    rest = withoutDrive(rest);
    while (!rest.empty()) {
        const std::string_view name = rest.substr(0, rest.find(kSeparator));
        rest.remove_prefix(std::min(rest.size(), name.size() + 1));
        const bool isStep = name.empty() || name == "." || name == "..";
        if (!isStep && !isWindowsName(name)) return false;
    }
    return true;
}

}  // namespace kavo
