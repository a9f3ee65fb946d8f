// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/user_advice.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "cli/suggestion.h"
#include "core/users.h"

#include <algorithm>

namespace kavo {

namespace {

bool hasFolder(const std::filesystem::path& programFolder, std::string_view nick)
{
    try {
        return !nick.empty() && folderExists(userFolder(programFolder, nick));
    } catch (const RunTimeError&) {
        return false;  // no name for a folder
    }
}

std::vector<std::string> listedNicks(const std::filesystem::path& programFolder)
{
    try {
        return readUsers(programFolder);
    } catch (const RunTimeError&) {
        return {};  // there is an error to be told already
    }
}

/// The users of the list, each once, without those who have no folder any more.
std::vector<std::string> usersOf(const std::filesystem::path& programFolder)
{
    constexpr std::size_t kMost = 1000;  // advice must not cost time
    std::vector<std::string> users;
    for (const std::string& nick : listedNicks(programFolder)) {
        if (users.size() == kMost) break;
        const bool isThere = std::find(users.begin(), users.end(), nick) != users.end();
        if (!isThere && hasFolder(programFolder, nick)) users.push_back(nick);
    }
    return users;
}

/// "; there are Marek, Жанна"
std::string thereAre(const std::vector<std::string>& users)
{
    constexpr std::size_t kMost = 12;
    if (users.empty()) return "; there are no users yet, the window makes one at the first login";
    std::string text = "; there are ";
    for (std::size_t i = 0; i < std::min(users.size(), kMost); ++i) text.append(i == 0 ? "" : ", ").append(users[i]);
    return users.size() > kMost ? text.append(", ... (kavo-timing-cli users)") : text;
}

/// Whether the file that says who it was tells so, by its absence or an empty line; not when it cannot be read.
bool hasNobodyLoggedIn(const std::filesystem::path& programFolder)
{
    try {
        return readCurrentUser(programFolder).empty();
    } catch (const RunTimeError& error) {
        return error.failure() == Failure::FileNotFound;
    }
}

}  // namespace

std::string adviceOnUser(const Session& session)
{
    const std::string& nick = session.UserName;
    if (hasFolder(session.programFolder, nick)) return {};
    const std::vector<std::string> users = usersOf(session.programFolder);
    const std::string all = thereAre(users);
    if (nick.empty())
        return (hasNobodyLoggedIn(session.programFolder) ? ": nobody has logged in last" : "") +
               ("; --user NICK names a user" + all);
    return ": no user " + nick + didYouMean(nick, {users.begin(), users.end()}, all);
}

}  // namespace kavo
