// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/state_name.h"
#include "tests/support/bobs_folder.h"
#include "tests/support/command_line.h"
#include "tests/support/history_home.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>

namespace fs = std::filesystem;

namespace kavo {
namespace {

using test::Outcome;
using test::statisticsText;
using test::TemporaryFolder;
using namespace std::chrono_literals;
using std::chrono::milliseconds;

/// Something that happens at a moment of a scripted watch.
struct Event
{
    milliseconds at;
    std::function<void()> happen;
};

/// A clock that moves by what is waited for. Before it passes a moment, that moment's events happen.
class ScriptedWaiting final : public Waiting
{
public:
    ScriptedWaiting(std::vector<Event>& events, milliseconds end, std::vector<milliseconds>& looks)
        : m_events(events), m_end(end), m_looks(looks)
    {
    }

    bool waitFor(milliseconds time) override
    {
        m_now += time;
        while (!m_events.empty() && m_events.front().at <= m_now) {
            m_events.front().happen();
            m_events.erase(m_events.begin());
        }
        return m_now <= m_end;
    }

    [[nodiscard]] milliseconds now() const override
    {
        m_looks.push_back(m_now);
        return m_now;
    }

private:
    std::vector<Event>& m_events;
    milliseconds m_end;
    std::vector<milliseconds>& m_looks;
    milliseconds m_now{0};
};

const std::string kFirst = statisticsText({"00:21:05 Zoe"});
const std::string kSecond = statisticsText({"00:19:88 Zoe"});
const std::string kThird = statisticsText({"00:09:00 Zoe"});
const std::string kFirstLine =
    "Level 1, Track: 00:21:05 → 00:19:88, Professional → World Class, 9.88 s to World Record\n";
const std::string kSecondLine = "Level 1, Track: 00:19:88 → 00:09:00, World Class → World Record\n";

class WatchCommand : public testing::Test
{
protected:
    WatchCommand() { test::compareBobWithTargets(folder, kFirst); }

    void at(milliseconds moment, std::function<void()> happen) { events.push_back({moment, std::move(happen)}); }

    void writeAt(milliseconds moment, std::string content)
    {
        at(moment, [this, content = std::move(content)] { folder.write("stats.txt", content); });
    }

    /// Runs the command until the user has enough at `end`.
    Outcome watch(milliseconds end, const std::vector<std::string>& options = {})
    {
        const std::string path = folder.path().string();
        std::vector<const char*> argv = {"kavo-timing-cli", "--program-folder", path.c_str(), "watch"};
        for (const std::string& option : options) argv.push_back(option.c_str());
        const test::StreamFile out;
        const test::StreamFile error;
        looks.clear();
        const int status =
            runCommandLine(static_cast<int>(argv.size()), argv.data(),
                           {.in = stdin,
                            .out = out.file(),
                            .error = error.file(),
                            .output = {},
                            .now = [] { return test::reportMoment(); },
                            .startWaiting = [&] { return std::make_unique<ScriptedWaiting>(events, end, looks); }});
        return {status, out.content(), error.content()};
    }

    [[nodiscard]] int statesRemembered() const
    {
        int states = 0;
        for (const auto& entry : fs::recursive_directory_iterator(home.folder().path()))
            states += static_cast<int>(entry.path().extension() == ".txt");
        return states;
    }

    TemporaryFolder folder;
    test::HistoryHome home;
    std::vector<Event> events;
    std::vector<milliseconds> looks;  ///< moments at which the command looked at the clock
};

TEST_F(WatchCommand, TellsEachImprovementOnce)
{
    writeAt(5s, kSecond);
    writeAt(9s, kThird);
    const Outcome outcome = watch(20s);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, kFirstLine + kSecondLine);
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(statesRemembered(), 3);
}

TEST_F(WatchCommand, SaysNothingOfWhatHasBecomeWorse)
{
    writeAt(5s, statisticsText({"00:22:00 Zoe"}));
    EXPECT_EQ(watch(20s).out, "");
}

TEST_F(WatchCommand, WaitsForAFileThatIsNotThereOrNotWhole)
{
    fs::remove(folder / "stats.txt");
    writeAt(3s, kFirst.substr(0, 400));
    writeAt(6s, kFirst);
    at(10s, [this] { fs::remove(folder / "stats.txt"); });
    writeAt(11s, kSecond.substr(0, kSecond.size() - 1));
    writeAt(14s, kSecond);
    const Outcome outcome = watch(20s);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, kFirstLine);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Waiting for " + (folder / "stats.txt").string() + "\n");
    EXPECT_EQ(statesRemembered(), 2);
}

TEST_F(WatchCommand, SaysOnceWhyNothingHappens)
{
    folder.write("stats.txt", "a picture, say");
    writeAt(60'000ms, kFirst);
    writeAt(90'000ms, kSecond);
    const Outcome outcome = watch(120s);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: " + (folder / "stats.txt").string() +
                                 " is not whole, or still being written: kavo-timing-cli doctor tells more\n");
    EXPECT_EQ(outcome.out, kFirstLine);
    folder.write("stats.txt", kFirst.substr(0, 400));
    writeAt(5000ms, kFirst);
    EXPECT_EQ(watch(30s).error, "");
}

TEST_F(WatchCommand, TakesAFileThatIsReplacedUnderOtherCapitalLetters)
{
    at(5s, [this] {
        folder.write("new", kSecond);
        fs::remove(folder / "stats.txt");
        fs::rename(folder / "new", folder / "STATS.TXT");
    });
    EXPECT_EQ(watch(20s).out, kFirstLine);
}

TEST_F(WatchCommand, WakesUpOncePerIntervalWhileNothingHappens)
{
    const Outcome outcome = watch(100s, {"--interval", "2"});
    EXPECT_EQ(outcome.status, 0);
    // The start; at 0 s, 0.3 s at rest, then every 2 s up to 98.3 s: the wake-up at 100.3 s is the end.
    ASSERT_EQ(looks.size(), 1U + 2U + 49U);
    EXPECT_EQ(looks[2], 300ms);
    EXPECT_EQ(looks[3], 2300ms);
    EXPECT_EQ(looks.back(), 98300ms);
}

TEST_F(WatchCommand, DoesNotHurryForAFileThatStaysHalf)
{
    folder.write("stats.txt", kFirst.substr(0, 400));
    EXPECT_EQ(watch(100s, {"--interval", "2"}).status, 0);
    EXPECT_LE(looks.size(), 53U);
}

TEST_F(WatchCommand, RendersATemplateAnewEachTime)
{
    folder.write("overlay.ett", "\r\n[%t1time1%]\r\n%template2%\r\n\r\n%template3%\r\n\r\n%template4%\r\n\r\n");
    const std::vector<std::string> options = {"--template", (folder / "overlay.ett").string(), "--output",
                                              (folder / "overlay.html").string()};
    ASSERT_EQ(test::runCommand(folder, {"export-html", "--template", options[1], (folder / "first").string()}).status,
              0);
    folder.write("stats.txt", kSecond);
    ASSERT_EQ(test::runCommand(folder, {"export-html", "--template", options[1], (folder / "second").string()}).status,
              0);
    folder.write("stats.txt", kFirst);
    std::vector<std::string> seen;
    const auto see = [&] { seen.push_back(folder.has("overlay.html") ? folder.read("overlay.html") : "none"); };
    at(0ms, see);
    at(4s, see);
    writeAt(5s, kSecond);
    at(10s, see);
    EXPECT_EQ(watch(20s, options).error, "");
    EXPECT_EQ(seen, std::vector<std::string>({"none", folder.read("first"), folder.read("second")}));
}

TEST_F(WatchCommand, RendersAtTheNextLookWhatCouldNotBeRenderedYet)
{
    folder.write("overlay.ett", "\r\nReport\r\n%template2%\r\n\r\n%template3%\r\n\r\n%template4%\r\n\r\n");
    fs::create_directory(folder / "overlay.html");
    at(5s, [this] { fs::remove(folder / "overlay.html"); });
    const Outcome outcome =
        watch(8s, {"--template", (folder / "overlay.ett").string(), "--output", (folder / "overlay.html").string()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error.find("kavo-timing-cli: Path/File access error: "), 0U) << outcome.error;
    EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1);
    EXPECT_TRUE(fs::is_regular_file(folder / "overlay.html"));
}

TEST_F(WatchCommand, KeepsTheFormerReportWhileTheTemplateCannotBeRead)
{
    const std::string report = "\r\nReport\r\n%template2%\r\n\r\n%template3%\r\n\r\n%template4%\r\n\r\n";
    folder.write("overlay.html", "old");
    folder.enlarge("overlay.ett");
    std::string meanwhile;
    at(5s, [&] {
        meanwhile = folder.read("overlay.html");
        folder.write("overlay.ett", report);
    });
    const Outcome outcome =
        watch(8s, {"--template", (folder / "overlay.ett").string(), "--output", (folder / "overlay.html").string()});
    EXPECT_EQ(meanwhile, "old");
    EXPECT_EQ(outcome.error, "kavo-timing-cli: File too large: overlay.ett\n");
    EXPECT_NE(folder.read("overlay.html").find("Report\r\n"), std::string::npos);
}

TEST_F(WatchCommand, RendersTheDashboardAnewEachTime)
{
    const std::vector<std::string> options = {"--dashboard", (folder / "page.html").string()};
    std::vector<std::string> seen;
    const auto see = [&] { seen.push_back(folder.has("page.html") ? folder.read("page.html") : "none"); };
    at(0ms, see);
    at(4s, see);
    writeAt(5s, kSecond);
    at(10s, see);
    EXPECT_EQ(watch(20s, options).error, "");
    ASSERT_EQ(seen.size(), 3U);
    EXPECT_EQ(seen[0], "none");
    EXPECT_NE(seen[1].find("00:21:05"), std::string::npos);
    EXPECT_EQ(seen[1].find("00:19:88"), std::string::npos);
    // What has just been remembered is on it, too.
    EXPECT_NE(seen[2].find("00:21:05 → 00:19:88"), std::string::npos);
    EXPECT_EQ(seen[2], test::runCommand(folder, {"dashboard", "--output", "-"}).out);
}

TEST_F(WatchCommand, RendersOneFileWhileAnotherCannotBeWritten)
{
    folder.write("overlay.ett", "\r\nReport\r\n%template2%\r\n\r\n%template3%\r\n\r\n%template4%\r\n\r\n");
    fs::create_directory(folder / "overlay.html");
    const Outcome outcome =
        watch(8s, {"--template", (folder / "overlay.ett").string(), "--output", (folder / "overlay.html").string(),
                   "--dashboard", (folder / "page.html").string()});
    EXPECT_EQ(outcome.error.find("kavo-timing-cli: Path/File access error: "), 0U) << outcome.error;
    EXPECT_TRUE(folder.has("page.html"));
}

TEST_F(WatchCommand, RemembersNothingWhenToldSo)
{
    EXPECT_EQ(watch(5s, {"--no-history"}).status, 0);
    EXPECT_EQ(statesRemembered(), 0);
    const test::EnvironmentValue off("KAVO_HISTORY", "off");
    EXPECT_EQ(watch(5s).status, 0);
    EXPECT_EQ(statesRemembered(), 0);
}

TEST_F(WatchCommand, GoesOnWhereItCannotRemember)
{
    home.folder().write("kavo-timing", "no folder");
    writeAt(5s, kSecond);
    const Outcome outcome = watch(20s);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, kFirstLine);
    EXPECT_EQ(outcome.error.find("kavo-timing-cli: The results are not remembered: Path"), 0U) << outcome.error;
    EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1);
}

TEST_F(WatchCommand, OnceTellsWhatIsBetterThanTheLatestRememberedResults)
{
    EXPECT_EQ(watch(1h, {"--once"}).out, "");  // nothing was remembered before
    EXPECT_EQ(statesRemembered(), 1);
    folder.write("stats.txt", kSecond);
    const Outcome outcome = watch(1h, {"--once", "--interval", "60"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, kFirstLine);
    EXPECT_EQ(looks.back(), 300ms);
    EXPECT_EQ(statesRemembered(), 2);
    EXPECT_EQ(watch(1h, {"--once"}).out, "");
}

TEST_F(WatchCommand, OnceDoesNotWaitForever)
{
    folder.write("stats.txt", kFirst.substr(0, 400));
    const Outcome half = watch(1h, {"--once"});
    EXPECT_EQ(half.status, 1);
    EXPECT_EQ(half.error, "kavo-timing-cli: " + (folder / "stats.txt").string() +
                              " is not whole, or still being written: kavo-timing-cli doctor tells more\n");
    EXPECT_LE(looks.back(), 10300ms);
    fs::remove(folder / "stats.txt");
    const Outcome missing = watch(1h, {"--once"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.error.find("kavo-timing-cli: File not found: "), 0U) << missing.error;
    EXPECT_NE(missing.error.find("stats.txt"), std::string::npos) << missing.error;
}

TEST_F(WatchCommand, RefusesWrongCalls)
{
    for (const char* interval : {"0", "0.05", "-1", "nan", "3601", "often"})
        EXPECT_EQ(watch(1s, {"--interval", interval}).status, 2) << interval;
    EXPECT_EQ(watch(1s, {"--template", "overlay.ett"}).status, 2);
    EXPECT_EQ(watch(1s, {"--output", "overlay.html"}).status, 2);
    const Outcome outcome = watch(1s, {"--template", "/nowhere/overlay.ett", "--output", "overlay.html"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error.find("kavo-timing-cli: File not found: "), 0U) << outcome.error;
    EXPECT_EQ(watch(1s, {"--user", "nobody"}).status, 1);
}

#ifndef _WIN32  // whose console tells all of its programs of the end, the one that started the tests, too

TEST(Waiting, EndsAtOnceWhenTheUserWantsTheEnd)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto inherited = std::signal(signal, SIG_DFL);  // a shell has what runs behind it ignore SIGINT
        {
            const auto waiting = startWaiting();
            EXPECT_TRUE(waiting->waitFor(1ms));
            ::raise(signal);
            const milliseconds before = waiting->now();
            EXPECT_FALSE(waiting->waitFor(1min));
            EXPECT_LT(waiting->now() - before, 30s);
        }
        static_cast<void>(std::signal(signal, inherited));
    }
}

TEST(Waiting, LeavesAnIgnoredSignalIgnored)
{
    const auto before = std::signal(SIGHUP, SIG_IGN);
    {
        const auto waiting = startWaiting();
        ::raise(SIGHUP);
        EXPECT_TRUE(waiting->waitFor(1ms));
    }
    static_cast<void>(std::signal(SIGHUP, before));
}

#endif

}  // namespace
}  // namespace kavo
