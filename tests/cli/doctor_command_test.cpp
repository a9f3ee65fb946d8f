// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/command_line.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>

namespace kavo {
namespace {

using test::Outcome;
using test::TemporaryFolder;
using Json = nlohmann::json;

TEST(DoctorCommand, HasNothingToSayOfTheDemo)
{
    const TemporaryFolder folder;
    test::copyDemo(folder);
    const Outcome outcome = test::runCommand(folder, {"doctor"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(Json::parse(test::runCommand(folder, {"doctor", "--json"}).out), Json::parse(R"({"findings": []})"));
}

TEST(DoctorCommand, PrintsALineForEachFinding)
{
    const TemporaryFolder folder;
    test::copyDemo(folder);
    folder.write("Marek/bugs.dat", "Player1\r\n00, 00:19:05\r\nPlayer2\r\n");
    std::filesystem::remove(folder / "targets_old.txt");
    const Outcome outcome = test::runCommand(folder, {"doctor"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out.find("warning: " + (folder / "targets_old.txt").string() + ": it is missing"), 0U);
    const std::string where = "\nerror: " + (folder / "Marek/bugs.dat").string() + ", line 2, byte 9: ";
    EXPECT_NE(outcome.out.find(where), std::string::npos) << outcome.out;
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 2);
    const Outcome json = test::runCommand(folder, {"doctor", "--json"});
    EXPECT_EQ(json.status, 1);
    const Json findings = Json::parse(json.out)["findings"];
    ASSERT_EQ(findings.size(), 2U);
    EXPECT_EQ(findings[0]["severity"], "warning");
    EXPECT_TRUE(findings[0]["line"].is_null());
    EXPECT_EQ(findings[1]["file"], (folder / "Marek/bugs.dat").string());
    EXPECT_EQ(findings[1]["line"], 2);
    EXPECT_EQ(findings[1]["byte"], 9);
    EXPECT_NE(findings[1]["advice"], "");
}

}  // namespace
}  // namespace kavo
