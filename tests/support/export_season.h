// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/loading.h"
#include "tests/support/program_folder_fixture.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace kavo::test {

/// Two players whose times meet every case of an export: a record, a tie, either one the faster, one or
/// both without a time. On levels 8 to 54 Alice drives 00:30:00 and Bob 00:40:00.
class ExportSeason final
{
public:
    ExportSeason()
    {
        const std::string levels = targetsText();
        const std::size_t lastRecord = levels.rfind('\n', levels.size() - 2) + 1;
        m_folder.write("targets.txt", levels.substr(0, lastRecord) + kTotalTargets);
        m_folder.write("alice.txt", statisticsText({"00:09:00 Alice", "00:15:00 Alice", "00:30:00 Alice",
                                                    "00:35:00 Alice", "00:50:00 Alice", "01:00:00 Alice", ""}));
        m_folder.write("bob.txt", statisticsText(timesOfBob()));
        m_folder.write("Zoe/1res.old", statisticsText(timesOfBob()));
        m_folder.write("Zoe/names.dat", "Alice\r\nBob\r\nDust Devils\r\n");
    }

    /// Loads with lines 2 to 4 of `data.ini`: the method, the other file, the category.
    void load(const std::string& method, const std::string& otherFile = "", const std::string& category = "")
    {
        m_folder.write("Zoe/data.ini", "alice.txt\r\n" + method + "\r\n" + otherFile + "\r\n" + category + "\r\n");
        session.programFolder = m_folder.path();
        HostRecord host;
        const LoadingResult result = kavo::load(session, host, {.user = "Zoe", .makesFolders = true});
        if (result.end != LoadingEnd::Completed) throw std::runtime_error("the loading ended early: " + result.error);
    }

    Session session;

private:
    static constexpr const char* kTotalTargets = "20:00:00,25:00:00,30:00:00,40:00:00,50:00:00\r\n";

    static std::vector<std::string> timesOfBob()
    {
        std::vector<std::string> times = {
            "00:10:00 Bob", "00:15:00 Bob", "00:25:00 Bob", "00:45:00 Bob", "", "01:00:00 Bob", ""};
        times.resize(kLevels, "00:40:00 Bob");
        return times;
    }

    TemporaryFolder m_folder;
};

}  // namespace kavo::test
