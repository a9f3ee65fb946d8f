// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/loaded_folder.h"

namespace kavo::test {

LoadedFolder::LoadedFolder()
{
    folder.write("curUser.dat", "bob\r\n");
    std::filesystem::create_directory(folder / "bob");
    session.programFolder = folder.path();
}

void LoadedFolder::writeAll(int method, std::string_view category)
{
    folder.write("stats.txt", statisticsText());
    folder.write("targets.txt", targetsText());
    folder.write("bob/data.ini", "stats.txt\r\n " + std::to_string(method) + " \r\nother.txt\r\n" +
                                     std::string(category) + "\r\n 8 \r\n");
}

void LoadedFolder::run(const LoadingOptions& options)
{
    const AfterOptions answer = host.afterOptions;
    host = HostRecord{};
    host.afterOptions = answer;
    result = load(session, host, options);
}

std::string LoadedFolder::victories() const
{
    return std::to_string(session.state.Victories1) + " " + std::to_string(session.state.Victories2);
}

std::string LoadedFolder::messages() const
{
    std::string texts;
    for (const Message& message : host.messages) texts += message.text + "|";
    return texts;
}

}  // namespace kavo::test
