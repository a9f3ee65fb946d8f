// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text_file.h"
#include "core/targets.h"
#include "insight/best_ever.h"
#include "insight/club_files.h"
#include "insight/club_part_file.h"
#include "insight/history_store.h"
#include "insight/state_name.h"
#include "tests/support/program_folder_fixture.h"

#include <benchmark/benchmark.h>

#include <fstream>

/// Remembered results and clubs at the sizes of years and leagues. Files come from the system's cache, as they
/// do for whoever looks at them twice.
namespace kavo {

namespace {

using test::TemporaryFolder;

/// A file of about 10 kB as the game writes it: ten times on each level, the best one by `number`.
std::string statisticsOf(int number)
{
    std::string text = "Statistics of player Zoe\r\n\r\n";
    for (int level = 1; level <= kLevels; ++level) {
        const std::string level2 = std::to_string(100 + level).substr(1);
        const std::string seconds = std::to_string(110 + (number * 7 + level * 13) % 80).substr(1);
        text += "Level " + std::to_string(level) + ", " + (level == 8 ? "Steppes" : "Track of many") + "\r\n";
        text += "00:" + seconds + ":" + level2 + " Player " + std::to_string(100000 + number) + "\r\n";
        for (int other = 1; other < 8; ++other)
            text += "01:" + seconds + ":0" + std::to_string(other) + " Somebody\r\n";
        text += "\r\n";
    }
    return text + "End of statistics\r\n";
}

/// Without the flush to the disk that the program does: it would be most of the preparation.
void write(const std::filesystem::path& file, const std::string& content)
{
    std::ofstream(file, std::ios::binary) << content;
}

HistoryStore historyOf(const TemporaryFolder& folder, int states)
{
    for (int i = 0; i < states; ++i) write(folder / stateName(1000 + i), statisticsOf(i));
    return HistoryStore(folder.path());
}

void listStates(benchmark::State& state)
{
    const TemporaryFolder folder;
    const HistoryStore history = historyOf(folder, static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(history.states());
    state.SetComplexityN(state.range(0));
}
BENCHMARK(listStates)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

void bestOfAllStates(benchmark::State& state)
{
    const TemporaryFolder folder;
    const HistoryStore history = historyOf(folder, static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(bestEverOf(history));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(bestOfAllStates)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Complexity(benchmark::oN);

/// The usual case: nothing has changed since the last time.
void rememberTheLatest(benchmark::State& state)
{
    const TemporaryFolder folder;
    const int states = static_cast<int>(state.range(0));
    HistoryStore history = historyOf(folder, states);
    const std::string text = statisticsOf(states - 1);
    for (auto _ : state) benchmark::DoNotOptimize(history.remember(text, 1'000'000));
}
BENCHMARK(rememberTheLatest)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A new state among others of the very same length, flush included.
void rememberANewState(benchmark::State& state)
{
    const TemporaryFolder folder;
    const int states = static_cast<int>(state.range(0));
    HistoryStore history = historyOf(folder, states);
    static_cast<void>(history.remember(statisticsOf(states), 1'000'000));  // makes the index
    int number = states;
    for (auto _ : state) benchmark::DoNotOptimize(history.remember(statisticsOf(++number), 1'000'000));
}
BENCHMARK(rememberANewState)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void readClubOfFiles(benchmark::State& state)
{
    const TemporaryFolder folder;
    for (int i = 0; i < state.range(0); ++i) write(folder / ("player" + std::to_string(i) + ".txt"), statisticsOf(i));
    ResultsState targets;
    parseTargets(test::targetsText(), targets);
    for (auto _ : state) benchmark::DoNotOptimize(readClub(clubFiles({folder.path()}), targets));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(readClubOfFiles)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Complexity(benchmark::oN);

void joinClubParts(benchmark::State& state)
{
    ResultsState targets;
    parseTargets(test::targetsText(), targets);
    std::vector<std::string> parts;
    for (int part = 0; part < 10; ++part) {
        ClubCollector collector(targets);
        for (int i = 0; i < state.range(0) / 10; ++i) collector.add(statisticsOf(part + 10 * i), std::to_string(i));
        parts.push_back(formatClubPart(collector.finish()));
    }
    for (auto _ : state) {
        ClubPart whole = parseClubPart(parts.front());
        for (std::size_t i = 1; i < parts.size(); ++i) whole = joined(std::move(whole), parseClubPart(parts[i]));
        benchmark::DoNotOptimize(formatClubPart(whole));
    }
}
BENCHMARK(joinClubParts)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace kavo

BENCHMARK_MAIN();
