// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"
#include "base/text_file.h"
#include "core/users.h"
#include "tests/support/command_line.h"
#include "tests/upgrades/released_version.h"

namespace {

using kavo::test::ReleasedVersion;
using kavo::test::runCommand;

/// What the present command line makes of the program folder of a released version.
class Upgrade : public testing::TestWithParam<ReleasedVersion>
{
protected:
    Upgrade() { GetParam().copyTo(folder); }

    [[nodiscard]] std::vector<std::string> nicks() const { return kavo::readUsers(folder.path()); }

    /// What the command prints for a user. Only reads: the folder stays as it was.
    [[nodiscard]] std::string printed(const std::string& nick, std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"--user", nick});
        const kavo::test::Outcome outcome = runCommand(folder, arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.error;
        return outcome.out;
    }

    kavo::test::TemporaryFolder folder;
};

TEST_P(Upgrade, KeepsEveryTable)
{
    ASSERT_FALSE(nicks().empty());
    for (const std::string& nick : nicks())
        GetParam().expectAsLeft(kavo::pathOf("tables/" + nick + ".json"), printed(nick, {"show", "--json"}));
}

TEST_P(Upgrade, KeepsEveryReport)
{
    const std::string form = (folder / "own.ett").string();
    for (const std::string& nick : nicks()) {
        GetParam().expectAsLeft(kavo::pathOf("reports/" + nick + ".txt"), printed(nick, {"export-text", "-"}));
        GetParam().expectAsLeft(kavo::pathOf("reports/" + nick + ".html"),
                                printed(nick, {"export-html", "--template", form, "-"}));
    }
}

TEST_P(Upgrade, ReadsWithoutWriting)
{
    for (const std::string& nick : nicks()) static_cast<void>(printed(nick, {"show"}));
    EXPECT_EQ(kavo::test::filesOf(folder.path()), kavo::test::filesOf(GetParam() / "folder"));
}

TEST_P(Upgrade, UpdatesTheTargetsToTheSameFiles)
{
    const auto outcome = runCommand(folder, {"update-targets", "--page", (GetParam() / "records_page.html").string()});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    auto files = kavo::test::filesOf(folder.path());
    std::erase_if(files, [](const auto& file) { return file.first.rfind("targets", 0) != 0; });
    GetParam().expectAllAsLeft("targets", files);
}

INSTANTIATE_TEST_SUITE_P(From, Upgrade, testing::ValuesIn(kavo::test::releasedVersions()), kavo::test::testNameOf);

}  // namespace
