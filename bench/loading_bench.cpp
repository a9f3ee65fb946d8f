// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text_file.h"
#include "core/loading.h"
#include "core/results_computation.h"
#include "core/row_colouring.h"
#include "core/statistics_file.h"
#include "core/targets.h"
#include "tests/support/program_folder_fixture.h"

#include <benchmark/benchmark.h>

/// The loading of a program folder: as a whole, its file reads alone, and what it does in memory.
namespace kavo {

namespace {

using test::HostRecord;
using test::TemporaryFolder;

void loadProgramFolder(benchmark::State& state)
{
    const TemporaryFolder folder;
    test::copyDemo(folder);
    Session session;
    session.programFolder = folder.path();
    HostRecord host;
    for (auto _ : state) {
        const LoadingResult result = load(session, host);
        if (result.end != LoadingEnd::Completed) state.SkipWithError("the demo does not load");
    }
}
BENCHMARK(loadProgramFolder)->Unit(benchmark::kMicrosecond);

void readFilesOfProgramFolder(benchmark::State& state)
{
    const TemporaryFolder folder;
    test::copyDemo(folder);
    for (auto _ : state) {
        for (const char* name : {"curUser.dat", "Marek/data.ini", "Marek/names.dat", "Marek/bugs.dat", "game/stats.txt",
                                 "friend/stats.txt", "targets.txt"})
            benchmark::DoNotOptimize(readFile(folder / name));
    }
}
BENCHMARK(readFilesOfProgramFolder)->Unit(benchmark::kMicrosecond);

/// The steps from the texts of the files to the finished table.
void fillTableFrom(Session& session, std::string_view stats, std::string_view other, std::string_view targets)
{
    session.table.clear();
    session.state.resetCounters();
    if (!isStatisticsFile(stats) || !isSecondStatisticsFile(other)) std::abort();
    parseTargets(targets, session.state);
    readTimesOfPlayer1(session, stats);
    addTotalsRow(session);
    readTimesOfPlayer2(session, other);
    session.table.addRow("");
    session.table.setText(kTotalsRow, Column::Time2, totalOf(session.table, Column::Time2));
    compareColumns(session);
    Team2(session);
    TTColorTargets(session);
}

void loadFromMemory(benchmark::State& state)
{
    const TemporaryFolder folder;
    test::copyDemo(folder);
    const std::string stats = folder.read("game/stats.txt");
    const std::string other = folder.read("friend/stats.txt");
    const std::string targets = folder.read("targets.txt");
    Session session;
    for (auto _ : state) fillTableFrom(session, stats, other, targets);
}
BENCHMARK(loadFromMemory)->Unit(benchmark::kMicrosecond);

/// A statistics file of about `bytes`: 54 levels with ever so many times each.
std::string statisticsOf(std::size_t bytes, std::string_view eighthLevel)
{
    const std::string line = "00:31:17 Somebody Else\r\n";
    std::string text = "Statistics of player Alice\r\n\r\n";
    for (int level = 1; level <= kLevels; ++level) {
        text += "Level " + std::to_string(level) + ", " + std::string(level == 8 ? eighthLevel : "Track") + "\r\n";
        for (std::size_t i = 0; i < bytes / kLevels / line.size() + 1; ++i) text += line;
        text += "\r\n";
    }
    return text;
}

void largeFile(benchmark::State& state)
{
    const std::string text = statisticsOf(static_cast<std::size_t>(state.range(0)), "Steppes");
    const std::string targets = test::targetsText();
    Session session;
    for (auto _ : state) fillTableFrom(session, text, text, targets);
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(largeFile)
    ->RangeMultiplier(10)
    ->Range(100'000, 100'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

/// The check has to go through the whole file when its last word is missing.
void largeFileWithoutSteppes(benchmark::State& state)
{
    const std::string text = statisticsOf(static_cast<std::size_t>(state.range(0)), "Prairie");
    for (auto _ : state) benchmark::DoNotOptimize(isSecondStatisticsFile(text));
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(largeFileWithoutSteppes)
    ->RangeMultiplier(10)
    ->Range(100'000, 100'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

/// One level after the other without an end: every line is a header.
void largeFileOfHeaders(benchmark::State& state)
{
    std::string text = "player ";
    while (text.size() < static_cast<std::size_t>(state.range(0))) text += "Level of the steppes\r\n";
    const std::string targets = test::targetsText();
    Session session;
    for (auto _ : state) fillTableFrom(session, text, text, targets);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(largeFileOfHeaders)->RangeMultiplier(10)->Range(100'000, 100'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace kavo

BENCHMARK_MAIN();
