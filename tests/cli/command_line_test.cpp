// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/command_line.h"

#include "cli/command_table.h"

#include <gtest/gtest.h>

#include <csignal>
#include <set>
#include <sstream>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace kavo {

namespace {

using test::Outcome;
using test::runArguments;
using test::runCommand;
using test::TemporaryFolder;

/// A program folder with two users, of whom bob logged in last.
class CommandLine : public testing::Test
{
protected:
    CommandLine()
    {
        folder.write("users.dat", "bob\r\nann\r\n");
        folder.write("curUser.dat", "bob\r\n");
        for (const char* nick : {"bob", "ann"})
            folder.write(std::string(nick) + "/data.ini", "stats.txt\r\n 3 \r\n\r\nGood\r\n");
        folder.write("stats.txt", test::statisticsText({"00:10:00 Ann"}));
        folder.write("targets.txt", test::targetsText());
    }

    [[nodiscard]] Outcome run(const std::vector<std::string>& arguments) const { return runCommand(folder, arguments); }

    /// Runs a command whose standard output is `out`.
    [[nodiscard]] Outcome runInto(std::FILE* out, const char* command) const
    {
        const std::string path = folder.path().string();
        const std::vector<const char*> argv = {"kavo-timing-cli", "--program-folder", path.c_str(), command};
        const test::StreamFile error;
        const int status = runCommandLine(static_cast<int>(argv.size()), argv.data(),
                                          {.in = stdin, .out = out, .error = error.file(), .output = {}});
        return {status, "", error.content()};
    }

    TemporaryFolder folder;
};

TEST_F(CommandLine, AnswersVersion)
{
    for (const std::vector<std::string>& call :
         std::vector<std::vector<std::string>>{{"--version"}, {"show", "--version"}, {"export-text", "--version"}}) {
        const Outcome outcome = run(call);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, "Kavo Timing 2.1 build 73\n");
        EXPECT_EQ(outcome.error, "");
    }
}

TEST_F(CommandLine, HelpNamesEveryCommandInItsGroup)
{
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.error, "");
    EXPECT_EQ(run({"-h"}).out, help.out);
    std::size_t at = 0;
    for (const CommandInfo& command : commands()) {
        const std::size_t group = help.out.find("\n" + std::string(command.group) + ":\n");
        const std::size_t row = help.out.find("\n  " + std::string(command.name) + "  ", at);
        ASSERT_NE(group, std::string::npos) << command.group;
        ASSERT_NE(row, std::string::npos) << command.name;
        EXPECT_LT(group, row);
        at = row;
    }
    for (const char* part : {"--program-folder DIR", "--user NICK", "KAVO_PROGRAM_FOLDER", "\nExamples:\n",
                             "\nExit status:\n  0  done\n  1  ", "\n  2  a wrong call\n"})
        EXPECT_NE(help.out.find(part), std::string::npos) << part;
}

TEST_F(CommandLine, HelpOfACommandNamesItsOptionsAndExamples)
{
    const Outcome help = run({"show", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* part :
         {"Usage: kavo-timing-cli show [--json | --fit] [--filter1 NAME | --filter2 NAME]\n", "\n  --filter1 NAME ",
          "Victories", "--program-folder DIR", "\nExamples:\n  kavo-timing-cli show"})
        EXPECT_NE(help.out.find(part), std::string::npos) << part << help.out;
    EXPECT_EQ(run({"--help", "show"}).out, help.out);
    EXPECT_NE(run({"export-html", "-h"}).out.find("Usage: kavo-timing-cli export-html --template TEMPLATE.ett FILE\n"),
              std::string::npos);
}

TEST_F(CommandLine, HelpKeepsToEightyColumnsAndShowsAnExampleOfEveryCommand)
{
    std::vector<std::string> texts = {run({"--help"}).out};
    for (const CommandInfo& command : commands()) {
        texts.push_back(run({std::string(command.name), "--help"}).out);
        const std::string examples = texts.back().substr(texts.back().find("Examples:"));
        EXPECT_NE(examples.find("kavo-timing-cli " + std::string(command.name)), std::string::npos) << command.name;
    }
    for (const std::string& text : texts) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
    }
}

TEST_F(CommandLine, BareCallShowsTheHelpButIsAWrongCall)
{
    for (const Outcome& outcome : {runArguments({}), run({})}) {
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.error, runArguments({"--help"}).out);
    }
}

TEST_F(CommandLine, CommonOptionsStandBeforeOrBehindTheCommand)
{
    const std::string path = folder.path().string();
    const std::string expected = run({"show", "--json", "--user", "ann"}).out;
    EXPECT_NE(expected.find("User: ann"), std::string::npos);
    EXPECT_EQ(run({"--user", "ann", "show", "--json"}).out, expected);
    EXPECT_EQ(run({"--user=ann", "show", "--json"}).out, expected);
    EXPECT_EQ(runArguments({"show", "--user", "ann", "--json", "--program-folder", path}).out, expected);
    EXPECT_EQ(runArguments({"show", "--program-folder=" + path, "--json", "--user=ann"}).out, expected);
}

TEST_F(CommandLine, NickThatIsACommandIsNotTakenForOne)
{
    folder.write("users/data.ini", "stats.txt\r\n 3 \r\n\r\nGood\r\n");
    EXPECT_NE(run({"--user", "users", "show"}).out.find("TOTAL TIME:"), std::string::npos);
}

TEST_F(CommandLine, MistypedWordsAreToldWithTheNearestOnes)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"shwo"}, "unknown command shwo, did you mean show?"},
        {{"SHOW"}, "unknown command SHOW, did you mean show?"},
        {{"export"}, "unknown command export, did you mean export-text, export-html or export-sheet?"},
        {{"frobnicate"}, "unknown command frobnicate; for help: kavo-timing-cli --help"},
        {{"show", "--jsno"}, "unknown option --jsno, did you mean --json?"},
        {{"show", "--usr=x"}, "unknown option --usr, did you mean --user?"},
        {{"history", "svae"}, "unknown command history svae, did you mean history save?"},
        {{"history", "exp", "latest", "a.txt"}, "unknown command history exp, did you mean history export?"},
        {{"history", "latest"}, "unexpected argument latest; for help: kavo-timing-cli history --help"},
        {{"show", "--frobnicate"}, "unknown option --frobnicate; for help: kavo-timing-cli show --help"},
        {{"--json", "show"}, "unknown option --json before the command; the options of a command stand behind it"},
        {{"--usr", "ann", "show"}, "unknown option --usr before the command, did you mean --user?"},
        {{"show", "--filter1", "begginer"}, "--filter1: unknown value begginer, did you mean Beginner?"},
        {{"show", "--filter1", "No filter"},
         "--filter1: unknown value No filter; there are Beginner, OK, Good, Professional, World Class, World Record, "
         "Victories"},
        {{"export-html", "--tempalte", "x.ett", "report.html"}, "unknown option --tempalte, did you mean --template?"},
    };
    for (const auto& [call, message] : cases) {
        const Outcome outcome = run(call);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.error, "kavo-timing-cli: " + message + "\n");
    }
}

TEST_F(CommandLine, IncompleteCallsSayWhatIsMissing)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"show", "--user"}, "--user needs a value: NICK; for help: kavo-timing-cli show --help"},
        {{"show", "--user", ""}, "--user: NICK is empty"},
        {{"show", "--user", "a", "--user", "b"}, "--user stands there twice; for help: kavo-timing-cli show --help"},
        {{"show", "extra"}, "unexpected argument extra; for help: kavo-timing-cli show --help"},
        {{"show", "--", "--json"}, "unexpected argument --json; for help: kavo-timing-cli show --help"},
        {{"export-text"}, "FILE is required; for help: kavo-timing-cli export-text --help"},
        {{"export-text", ""}, "FILE: FILE is empty"},
        {{"show", "--filter1", "OK", "--filter2", "OK"},
         "--filter1 excludes --filter2; for help: kavo-timing-cli show --help"},
    };
    for (const auto& [call, message] : cases) {
        const Outcome outcome = run(call);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.error, "kavo-timing-cli: " + message + "\n");
    }
}

#ifndef _WIN32  // where there are no such devices and no such signal

TEST_F(CommandLine, FullDiskUnderStandardOutputIsTold)
{
    std::FILE* out = std::fopen("/dev/full", "w");
    const Outcome outcome = runInto(out, "show");
    std::fclose(out);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Disk full: standard output (No space left on device)\n");
}

TEST_F(CommandLine, ReaderThatLeftIsNoError)
{
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ::close(ends[0]);
    std::FILE* out = ::fdopen(ends[1], "w");
    const auto former = std::signal(SIGPIPE, SIG_IGN);
    const Outcome outcome = runInto(out, "show");
    std::fclose(out);
    std::signal(SIGPIPE, former);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "");
}

#endif

TEST_F(CommandLine, MissingProgramFolderIsAnError)
{
    const std::string missing = (folder / "no/such/folder").string();
    const Outcome outcome = runArguments({"--program-folder", missing, "show"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Path not found: " + missing +
                                 " (No such file or directory); --program-folder DIR or "
                                 "KAVO_PROGRAM_FOLDER name the program folder\n");
}

TEST_F(CommandLine, MessagesKeepControlCharactersFromTheTerminal)
{
    const Outcome outcome = run({"show", "a\x1b[31mb"});
    EXPECT_EQ(outcome.error, "kavo-timing-cli: unexpected argument a [31mb; for help: kavo-timing-cli show --help\n");
}

TEST(CommandTable, HoldsEachNameOnceAndGroupsTogether)
{
    std::set<std::string_view> names;
    std::vector<std::string_view> groups;
    for (const CommandInfo& command : commands()) {
        EXPECT_TRUE(names.insert(command.name).second) << command.name;
        EXPECT_EQ(findCommand(command.name), &command);
        EXPECT_NE(command.summary, "");
        EXPECT_NE(command.summary.back(), '.');
        if (groups.empty() || groups.back() != command.group) groups.push_back(command.group);
    }
    EXPECT_EQ(std::set<std::string_view>(groups.begin(), groups.end()).size(), groups.size());
    EXPECT_EQ(findCommand("sho"), nullptr);
}

TEST(CommandTable, TellsWhatTheValuesOfOptionsStandFor)
{
    const std::vector<OptionInfo> common = commonOptions();
    ASSERT_GE(common.size(), 2U);
    EXPECT_EQ(common[0].names, "--program-folder");
    EXPECT_EQ(common[0].value->kind, ValueKind::Folder);
    EXPECT_EQ(common[1].value->kind, ValueKind::Nick);
    const std::vector<OptionInfo> html = optionsOf(*findCommand("export-html"));
    ASSERT_EQ(html.size(), 2U);
    EXPECT_EQ(html[0].names, "--template");
    EXPECT_EQ(html[0].value->kind, ValueKind::File);
    EXPECT_TRUE(html[0].isRequired);
    EXPECT_TRUE(html[1].isArgument());
    EXPECT_EQ(html[1].value->name, "FILE");
    const std::vector<OptionInfo> show = optionsOf(*findCommand("show"));
    ASSERT_EQ(show.size(), 4U);
    ASSERT_TRUE(show[2].value);
    EXPECT_EQ(show[2].value->kind, ValueKind::Choice);
    EXPECT_EQ(show[2].value->choices.front(), "Beginner");
    EXPECT_FALSE(show[0].value);
}

}  // namespace

}  // namespace kavo
