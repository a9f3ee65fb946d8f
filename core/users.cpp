// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/users.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_cursor.h"
#include "base/text_file.h"
#include "base/write_protection.h"

namespace fs = std::filesystem;

namespace kavo {

namespace {

constexpr std::size_t kLongestNick = 10;

fs::path usersFile(const fs::path& programFolder)
{
    return locate(programFolder / "users.dat");
}

fs::path currentUserFile(const fs::path& programFolder)
{
    return locate(programFolder / "curUser.dat");
}

fs::path autoLoginFile(const fs::path& programFolder)
{
    return locate(programFolder / "autolog.dat");
}

std::string firstLine(std::string_view text)
{
    return std::string(TextCursor(text).line());
}

/// Most logins are those of the time before: then nothing is written, and no disk is waited for. What could not be
/// written is an error all the same.
void update(const fs::path& path, std::string_view content)
{
    const bool isProtected = writeProtection(path) || writeProtection(path.parent_path());
    if (isProtected || readFileIfThere(path) != content) replaceFile(path, content);
}

}  // namespace

std::vector<std::string> readUsers(const fs::path& programFolder)
{
    std::vector<std::string> nicks;
    const std::string text = readFileIfThere(usersFile(programFolder)).value_or("");
    for (TextCursor cursor(text); !cursor.atEnd();) nicks.emplace_back(cursor.line());
    return nicks;
}

std::string readCurrentUser(const fs::path& programFolder)
{
    return parseFile(currentUserFile(programFolder), firstLine);
}

std::optional<std::string> readCurrentUserIfThere(const fs::path& programFolder)
{
    if (!fileExists(currentUserFile(programFolder))) return std::nullopt;
    return readCurrentUser(programFolder);
}

fs::path userFolder(const fs::path& programFolder, std::string_view nick)
{
    // Without a nick this would be the program folder itself.
    if (nick.empty() || !isPlainName(nick)) throw RunTimeError(Failure::PathNotFound, programFolder / pathOf(nick));
    return locate(programFolder / pathOf(nick));
}

bool isNickAllowed(std::string_view nick)
{
    return !trimBlanks(nick).empty() && countCharacters(nick) <= kLongestNick;
}

bool isNickForAutoLogin(std::string_view nick)
{
    return isNickAllowed(nick) && isPlainName(nick);
}

int readAutoLogin(const fs::path& programFolder)
{
    const auto text = readFileIfThere(autoLoginFile(programFolder));
    return text && !text->empty() ? integerOf(TextCursor(*text).field()) : 0;
}

void writeAutoLogin(const fs::path& programFolder, bool autoLogin)
{
    update(autoLoginFile(programFolder), asLine(printedNumber(autoLogin ? kAutoLogin : 0)));
}

void suspendAutoLogin(const fs::path& programFolder)
{
    replaceFile(autoLoginFile(programFolder), asLine("0"));
}

bool createUserIfNew(const fs::path& programFolder, std::string_view nick)
{
    if (nick.empty() || !isPlainName(nick)) return false;
    // A folder that is there cannot be made, an empty one no more than another: nothing is added.
    std::error_code error;
    if (!fs::create_directory(userFolder(programFolder, nick), error)) return false;
    try {
        appendLine(usersFile(programFolder), nick);
    } catch (const std::exception&) {
        return false;  // the login goes on without the rest of the new user's steps
    }
    return true;
}

void writeCurrentUser(const fs::path& programFolder, std::string_view nick)
{
    update(currentUserFile(programFolder), asLine(nick));
}

}  // namespace kavo
