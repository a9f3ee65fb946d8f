// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/doctor.h"

#include "base/file_name.h"
#include "base/open_file.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/bug_times.h"
#include "core/colour_set.h"
#include "core/links.h"
#include "core/loading.h"
#include "core/settings.h"
#include "core/targets.h"
#include "core/users.h"
#include "core/window_layout.h"
#include "insight/file_check.h"
#include "insight/settings_check.h"
#include "insight/statistics_check.h"
#include "insight/targets_check.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace kavo {

namespace {

using Check = Findings (*)(std::string_view text);

/// The files of a folder whose names end so, in any case, in the order of their names.
std::vector<fs::path> filesEnding(const fs::path& folder, std::string_view ending)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (equalIgnoringCase(textOf(entry->path().extension()), ending)) files.push_back(entry->path());
    std::sort(files.begin(), files.end());
    return files;
}

/// One look around a program folder.
class Examination final
{
public:
    explicit Examination(fs::path programFolder) : m_folder(std::move(programFolder)) {}

    Findings run()
    {
        lookAtFolder();
        lookAtTargets();
        lookAtSuppliedFiles();
        const std::vector<std::string> nicks = lookAtUsers();
        for (const std::string& nick : nicks) {
            try {
                lookAtUser(nick);
            } catch (const RunTimeError& error) {
                add(m_folder / pathOf(nick), Severity::Error,
                    std::string("it cannot be looked into (\"") + error.what() + "\")",
                    "give yourself the right to read this folder");
            }
        }
        return std::move(m_findings);
    }

private:
    void add(const fs::path& file, Findings findings)
    {
        for (Finding& finding : findings) {
            if (finding.file.empty()) finding.file = file;
            // Users may share files, and a file may be compared with itself.
            if (m_told.insert(describe(finding)).second) m_findings.push_back(std::move(finding));
        }
    }

    void add(const fs::path& file, Severity severity, std::string text, std::string advice)
    {
        add(file, {{.severity = severity, .text = std::move(text), .advice = std::move(advice)}});
    }

    /// Looks at a file and, when it can be read, at what is in it. Returns its content.
    std::optional<std::string> lookInto(const fs::path& file, FileUse use, Check check)
    {
        FileLook look = lookAt(file, use);
        add(file, std::move(look.findings));
        if (look.content && check != nullptr) add(file, check(*look.content));
        return std::move(look.content);
    }

    static bool isThere(const fs::path& file)
    {
        std::error_code ignored;
        return fs::exists(fs::symlink_status(file, ignored));
    }

    void lookAtFolder()
    {
        add(m_folder, checkFolder(m_folder));
        std::error_code error;
        const fs::space_info space = fs::space(m_folder, error);
        if (!error) add(m_folder, checkSpace(m_folder, space.available));
        const fs::path lock = m_folder / "kavo-timing.lock";
        const OpenFile lockFile = OpenFile::toLock(lock, OpenFile::IfMissing::Fail, error);
        if (lockFile.isOpen() && lockFile.lock() == OpenFile::Lock::Busy)
            add(lock, Severity::Note, "the window is open on this folder", "close it before you change files by hand");
    }

    void lookAtTargets()
    {
        const fs::path file = targetsFile(m_folder);
        lookInto(file, FileUse::Rewritten, checkTargets);
        const fs::path backup = locate(m_folder / "targets.bak");
        if (!isThere(file))
            add(file, Severity::Error, "it is missing: every level is graded Beginner",
                fileExists(backup) ? "copy " + textOf(backup) + " to this name, or run \"Update targets\" (Ctrl+R)"
                                   : "run \"Update targets\" (Ctrl+R), or copy the file that came with the program");
        const fs::path fixed = locate(m_folder / "targets_old.txt");
        lookInto(fixed, FileUse::Read, checkFixedTargets);
        if (!isThere(fixed))
            add(fixed, Severity::Warning, "it is missing: an update of the targets ends with \"File not found\"",
                "copy the file that came with the program");
    }

    void lookAtSuppliedFiles()
    {
        for (const fs::path& file : {locate(m_folder / "history.txt"), linksFile(m_folder)}) {
            lookInto(file, FileUse::Read, file == linksFile(m_folder) ? checkLinks : nullptr);
            if (!isThere(file))
                add(file, Severity::Warning, "it is missing: the window that shows it reports \"File not found\"",
                    "copy the file that came with the program");
        }
        for (const fs::path& folder : {m_folder, locate(m_folder / "templates")})
            for (const fs::path& file : filesEnding(folder, ".ett")) lookInto(file, FileUse::Read, checkTemplate);
    }

    /// The nicks that there are, the current one first.
    std::vector<std::string> lookAtUsers()
    {
        std::vector<std::string> nicks;
        const fs::path list = locate(m_folder / "users.dat");
        const fs::path current = locate(m_folder / "curUser.dat");
        const auto listed = lookInto(list, FileUse::Rewritten, checkUsers);
        const auto last = lookInto(current, FileUse::Rewritten, checkCurrentUser);
        lookInto(locate(m_folder / "autolog.dat"), FileUse::Rewritten, checkAutoLogin);
        if (!isThere(current))
            add(current, Severity::Note, "it is missing: nobody has logged in yet", "start the window and log in");
        if (last && !last->empty()) nicks.emplace_back(linesOf(*last).front().text);
        if (listed)
            for (const TextLine& line : linesOf(*listed)) addNick(nicks, line.text);
        noteUnlisted(list, nicks);
        return nicks;
    }

    static void addNick(std::vector<std::string>& nicks, std::string_view nick)
    {
        const auto isSame = [nick](const std::string& other) { return equalIgnoringCase(other, nick); };
        if (std::none_of(nicks.begin(), nicks.end(), isSame)) nicks.emplace_back(nick);
    }

    /// Other people's folders, which may not be looked into, do not.
    static bool looksLikeUsers(const fs::path& folder)
    {
        try {
            return fileExists(settingsFile(folder));
        } catch (const RunTimeError&) {
            return false;
        }
    }

    /// Folders that look like a user's without being in the list.
    void noteUnlisted(const fs::path& list, const std::vector<std::string>& nicks)
    {
        std::vector<std::string> unlisted;
        std::error_code error;
        for (fs::directory_iterator entry(m_folder, error), end; !error && entry != end; entry.increment(error)) {
            const std::string name = textOf(entry->path().filename());
            const auto isSame = [&name](const std::string& nick) { return equalIgnoringCase(nick, name); };
            const bool isListed = std::any_of(nicks.begin(), nicks.end(), isSame);
            if (!isListed && looksLikeUsers(entry->path())) unlisted.push_back(name);
        }
        std::sort(unlisted.begin(), unlisted.end());
        for (const std::string& name : unlisted)
            add(list, Severity::Note, "the folder " + inQuotes(name) + " looks like a user's, who is not in the list",
                "type the nick into the login window, if it is yours");
    }

    void lookAtUser(const std::string& nick)
    {
        if (!isPlainName(nick) || nick.empty()) return;  // told where it stands
        const fs::path folder = userFolder(m_folder, nick);
        if (!isThere(folder)) {
            add(folder, Severity::Warning, "the user " + inQuotes(nick) + " has no folder (\"Path not found\")",
                "log in with this nick, which makes it, or remove it from users.dat");
            return;
        }
        add(folder, checkFolder(folder));
        if (!folderExists(folder)) return;
        const auto settings = lookInto(settingsFile(folder), FileUse::Rewritten, checkSettings);
        lookInto(namesFile(folder), FileUse::Rewritten, checkNames);
        lookInto(layoutFile(folder), FileUse::Rewritten, checkLayout);
        lookInto(bugTimesFile(folder), FileUse::Rewritten, checkBugTimes);
        lookAtColours(folder);
        if (settings || !isThere(settingsFile(folder))) lookAtStatistics(folder);
    }

    void lookAtColours(const fs::path& folder)
    {
        const fs::path colours = coloursFolder(folder);
        add(colours, checkFolder(colours));
        lookInto(coloursFile(folder), FileUse::Rewritten, checkColours);
        for (const fs::path& file : filesEnding(colours, ".ini")) lookInto(file, FileUse::Rewritten, checkColours);
    }

    void lookAtStatistics(const fs::path& folder)
    {
        Session session;
        session.programFolder = m_folder;
        session.userFolder = folder;
        try {
            Init(session);
        } catch (const RunTimeError&) {
            return;  // told where the settings were looked at
        }
        const fs::path stats = locateTyped(m_folder, session.StatsPath);
        const auto content = lookInto(stats, FileUse::Read, nullptr);
        if (content) add(stats, checkStatistics(*content, StatisticsUse::Player1));
        if (!isThere(stats)) tellMissingStatistics(folder, stats);
        if (content) lookAtSecondFile(folder, session);
    }

    void tellMissingStatistics(const fs::path& folder, const fs::path& stats)
    {
        const bool isFirstRun = !fileExists(settingsFile(folder));
        add(isFirstRun ? folder : settingsFile(folder), isFirstRun ? Severity::Note : Severity::Error,
            "the statistics file " + textOf(stats) + " is not there: the table stays empty",
            "open Settings (F2) and choose the game's stats.txt");
    }

    /// A copy that the program has made, whatever the file was: nothing in it is mended by hand.
    static Findings checkPreviousResults(std::string_view text)
    {
        Findings findings = checkStatistics(text, StatisticsUse::PreviousResults);
        for (Finding& finding : findings)
            if (finding.severity == Severity::Error)
                finding.advice = "press Clear and then Save in Settings (F2), which keeps today's results in its place";
        return findings;
    }

    void lookAtSecondFile(const fs::path& folder, const Session& session)
    {
        const CompareMethod method = methodOfPath(session.CompPath);
        if (method == CompareMethod::Targets) return;
        const fs::path file = locateTyped(m_folder, session.CompPath);
        const bool isPrevious = method == CompareMethod::PreviousResults;
        const auto content = lookInto(file, FileUse::Read, nullptr);
        if (content)
            add(file,
                isPrevious ? checkPreviousResults(*content) : checkStatistics(*content, StatisticsUse::SecondFile));
        if (isThere(file)) return;
        add(settingsFile(folder), Severity::Warning,
            "the file compared with, " + textOf(file) +
                ", is not there: the second column and the totals row are missing",
            isPrevious ? "open Settings (F2) and press Save, which keeps today's results for comparing"
                       : "open Settings (F2) and choose the second file");
    }

    fs::path m_folder;
    Findings m_findings;
    std::set<std::string> m_told;
};

}  // namespace

Findings examine(const fs::path& programFolder)
{
    return Examination(programFolder).run();
}

}  // namespace kavo
