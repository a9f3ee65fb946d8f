// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// A whole loading from a folder of random files. What it leaves goes through every report.

#include "base/run_time_error.h"
#include "core/filters.h"
#include "random_folder.h"
#include "reports/level_statistics.h"
#include "reports/statistics.h"
#include "reports/text_export.h"

namespace {

class QuietHost final : public kavo::LoadingHost
{
public:
    void showMessage(const kavo::Message&) override {}
    kavo::AfterOptions openOptions() override { return kavo::AfterOptions::GoOn; }
    void applyLayout(const std::vector<double>&) override {}
    void layoutLoaded() override {}
};

class DroppedLines final : public kavo::ReportLines
{
public:
    void write(std::string_view) override {}
};

void report(kavo::Session& session)
{
    DroppedLines lines;
    try {
        kavo::writeTextReport(session, lines);
    } catch (const kavo::RunTimeError& error) {
        kavo::fuzz::require(error.failure() == kavo::Failure::InvalidCall);
    }
    kavo::BarPlaces places;
    for (int level = 1; level <= kavo::kTotalsRow; ++level) {
        const kavo::LevelBars bars = kavo::barsOfLevel(session, level);
        for (const kavo::LevelBar& bar : bars.bars)
            kavo::fuzz::require(bar.length >= 0 && bar.length <= bars.maximum && bars.maximum > 0);
        places.AutoSwap(bars);
    }
    static_cast<void>(kavo::statisticsText(session.state, kavo::Side::Team));
    kavo::applyFilter(session.table, kavo::FilterSide::Player2, kavo::kVictories);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const kavo::fuzz::RandomFolder folder;
    folder.fill(kavo::fuzz::textOf(data, size));
    kavo::Session session;
    session.programFolder = folder.path();
    QuietHost host;
    const auto result = kavo::load(session, host, {.user = folder.kUser, .makesFolders = false});
    kavo::fuzz::require(result.error.empty() == (result.end != kavo::LoadingEnd::Error));
    kavo::fuzz::require(session.table.rowCount() <= kavo::kTotalsRow + 1);
    report(session);
    return 0;
}
