// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/history_place.h"

#include "base/environment.h"
#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/shown_text.h"
#include "base/text.h"
#include "insight/fingerprint.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::size_t kLongestNick = 32;  // characters of it in a folder's name

/// The nick as part of a name that every file system takes.
std::string safeName(std::string_view nick)
{
    // Always in the same code page: the history must not depend on how names are shown.
    std::string safe = toUtf8(nick, windows1252());
    const auto isUnsafe = [](char c) {
        return static_cast<unsigned char>(c) <= ' ' ||
               std::string_view("<>:\"/\\|?*.~\x7F").find(c) != std::string::npos;
    };
    std::replace_if(safe.begin(), safe.end(), isUnsafe, '_');
    return std::string(firstCharacters(safe, kLongestNick));
}

/// Says the same of a folder whatever way leads to it.
std::string identityOf(const fs::path& folder)
{
    std::error_code error;
    fs::path canonical = fs::weakly_canonical(folder, error);
    if (error) canonical = fs::absolute(folder, error).lexically_normal();
#ifdef _WIN32
    return foldCase(textOf(canonical));
#else
    return textOf(canonical);
#endif
}

/// Begins with the nick; the rest stands for the place of the user's folder.
std::string nameFor(const fs::path& userFolder)
{
    return safeName(textOf(userFolder.filename())) + "-" + hexadecimal(fingerprint(identityOf(userFolder)));
}

/// One of the folders for what the program keeps without being asked.
fs::path stateFolder(const HistorySources& sources, const fs::path& name)
{
    constexpr const char* kProgram = "kavo-timing";
    if (sources.stateHome && pathOf(*sources.stateHome).is_absolute())
        return pathOf(*sources.stateHome) / kProgram / name;
    if (sources.home) return pathOf(*sources.home) / ".local" / "state" / kProgram / name;
    throw RunTimeError(Failure::PathNotFound, name);
}

}  // namespace

HistorySources historySources()
{
#ifdef _WIN32
    return {environmentValue("KAVO_HISTORY"), environmentValue("LOCALAPPDATA"), std::nullopt};
#else
    return {environmentValue("KAVO_HISTORY"), environmentValue("XDG_STATE_HOME"), environmentValue("HOME")};
#endif
}

bool isHistoryWanted(const HistorySources& sources)
{
    return !sources.wanted || !equalIgnoringCase(*sources.wanted, "off");
}

fs::path historyRoot(const HistorySources& sources)
{
    return stateFolder(sources, "history");
}

fs::path historyFolder(const fs::path& root, const fs::path& userFolder)
{
    return root / pathOf(nameFor(userFolder));
}

fs::path dashboardFile(const HistorySources& sources, const fs::path& userFolder)
{
    return stateFolder(sources, "dashboard") / pathOf(nameFor(userFolder) + ".html");
}

}  // namespace kavo
