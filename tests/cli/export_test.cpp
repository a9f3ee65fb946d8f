// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text_file.h"
#include "tests/support/command_line.h"
#include "tests/support/places.h"
#include "tests/support/plain_region.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using kavo::test::Outcome;
using kavo::test::TemporaryFolder;

namespace {

/// The demo folder, and the command line on it in a plain region.
class Export : public testing::Test
{
protected:
    Export() { kavo::test::copyDemo(folder); }

    Outcome run(std::vector<std::string> arguments, const std::string& user = "Marek")
    {
        arguments.insert(arguments.begin(), {"--user", user});
        return kavo::test::runCommand(folder, arguments);
    }

    [[nodiscard]] std::string path(std::string_view name) const { return (folder / name).string(); }

    static std::string sample(const std::string& name) { return kavo::readFile(kavo::test::sourceFolder() / name); }

    static std::string templatePath(const std::string& name)
    {
        return (kavo::test::sourceFolder() / "data/templates" / (name + ".ett")).string();
    }

    const kavo::test::PlainRegion plainRegion;
    TemporaryFolder folder;
};

}  // namespace

TEST_F(Export, TextReportsOfTheDemo)
{
    for (const auto& [user, golden] : {std::pair{"Marek", "marek"}, std::pair{"Жанна", "zhanna"}}) {
        const Outcome outcome = run({"export-text", path("report.txt")}, user);
        EXPECT_EQ(outcome.status, 0) << outcome.error;
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(folder.read("report.txt"), sample(std::string("tests/golden/") + golden + ".txt"));
    }
}

TEST_F(Export, TemplateReportsOfTheDemo)
{
    for (const auto& [user, golden] : {std::pair{"Marek", "marek"}, std::pair{"Жанна", "zhanna"}}) {
        for (const std::string name :
             {"plain-table.html", "responsive.html", "stream-overlay.html", "forum-bbcode.txt"}) {
            const std::string stem = name.substr(0, name.find('.'));
            const Outcome outcome = run({"export-html", "--template", templatePath(stem), path("report.html")}, user);
            EXPECT_EQ(outcome.status, 0) << outcome.error;
            EXPECT_EQ(folder.read("report.html"), sample(std::string("tests/golden/") + golden + "-" + name));
        }
    }
}

TEST_F(Export, HyphenIsStandardOutput)
{
    EXPECT_EQ(run({"export-text", "-"}).out, sample("tests/golden/marek.txt"));
    EXPECT_EQ(run({"export-html", "--template", templatePath("plain-table"), "-"}).out,
              sample("tests/golden/marek-plain-table.html"));
    EXPECT_FALSE(fs::exists("-"));
}

TEST_F(Export, ReportOfAnotherCaseIsReplaced)
{
    folder.write("Report.TXT", "old");
    EXPECT_EQ(run({"export-text", path("report.txt")}).status, 0);
    EXPECT_FALSE(folder.has("report.txt"));
    EXPECT_EQ(folder.read("Report.TXT"), sample("tests/golden/marek.txt"));
}

TEST_F(Export, LoadingThatEndedEarlyWritesNothing)
{
    folder.write("report.txt", "old");
    folder.write("Marek/data.ini", "wrong.txt\r\n 2 \r\n\r\n\r\n");
    folder.write("wrong.txt", "no statistics");
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"export-text"}, {"export-html", "--template", templatePath("plain-table")}}) {
        std::vector<std::string> arguments = command;
        arguments.push_back(path("report.txt"));
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.error,
                  "kavo-timing-cli: Wrong file! (" + path("wrong.txt") +
                      " is no statistics file of the game; the window's Options (F2) choose the file)\n");
        EXPECT_EQ(folder.read("report.txt"), "old");
    }
}

TEST_F(Export, MissingTemplateIsAnErrorAndWritesNothing)
{
    const Outcome outcome = run({"export-html", "--template", path("none.ett"), path("report.html")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: File not found: " + path("none.ett") + " (No such file or directory)\n");
    EXPECT_FALSE(folder.has("report.html"));
}

TEST_F(Export, TemplateThatCannotBeReadIsToldAndKeepsTheFormerReport)
{
    folder.write("report.html", "old");
    folder.enlarge("mine.ett");
    const Outcome outcome = run({"export-html", "--template", path("mine.ett"), path("report.html")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: File too large: " + path("mine.ett") + "\n");
    EXPECT_EQ(folder.read("report.html"), "old");
}

TEST_F(Export, DamagedTemplateIsExportedAsFarAsItWasRead)
{
    folder.write("short.ett", "first\r\n%template2%\r\nloop\r\n");
    const Outcome outcome = run({"export-html", "--template", path("short.ett"), "-"});
    EXPECT_EQ(outcome.status, 0);
    std::string expected =
        "<!-- Maden by prog Kavo Timing v.2.1 by Nurel. Download here: https://kavo-timing.example/ -->\r\n"
        "first\r\n\r\n";
    for (int level = 1; level <= 54; ++level) expected += "loop\r\n\r\n";
    EXPECT_EQ(outcome.out, expected + "\r\n\r\n");
}

TEST_F(Export, TextReportThatBreaksOffStaysAsFarAsItCame)
{
    std::string stats = kavo::test::statisticsText();
    const std::string header = "Level 2, Track";
    stats.replace(stats.find(header), header.size(), "Level 2, A name that is far too long");
    folder.write("stats.txt", stats);
    folder.write("Marek/data.ini", "stats.txt\r\n 2 \r\n\r\n\r\n");
    fs::remove(folder / "Marek/bugs.dat");
    const Outcome outcome = run({"export-text", path("report.txt")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Invalid procedure call or argument: " + path("report.txt") + "\n");
    const std::string report = folder.read("report.txt");
    EXPECT_NE(report.find("\r\n1, Track "), std::string::npos);
    EXPECT_TRUE(report.ends_with("\r\n\r\n"));
    EXPECT_EQ(report.find("2, A name"), std::string::npos);
    const Outcome printed = run({"export-text", "-"});
    EXPECT_EQ(printed.out, report);
    EXPECT_EQ(printed.error, "kavo-timing-cli: Invalid procedure call or argument\n");
}

TEST_F(Export, UnwritablePathIsAnError)
{
    for (std::vector<std::string> command :
         {std::vector<std::string>{"export-text"}, {"export-html", "--template", templatePath("plain-table")}}) {
        command.push_back(path("none/report"));
        const Outcome outcome = run(command);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.error,
                  "kavo-timing-cli: Path not found: " + path("none/report") + " (No such file or directory)\n");
    }
}

TEST_F(Export, MissingArgumentsAreUsageErrors)
{
    EXPECT_EQ(run({"export-text"}).status, 2);
    EXPECT_EQ(run({"export-html", path("report.html")}).status, 2);
    EXPECT_EQ(run({"export-html", "--template", templatePath("plain-table")}).status, 2);
}
