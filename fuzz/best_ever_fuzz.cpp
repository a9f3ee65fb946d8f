// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/statistics_file.h"
#include "fuzz_input.h"
#include "insight/best_ever.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using kavo::fuzz::require;
    const std::string_view text = kavo::fuzz::textOf(data, size);
    if (!kavo::isWholeStatisticsFile(text)) return 0;
    kavo::BestEver best;
    kavo::takeState(best, kavo::parseStatisticsTimes(text), "state");
    const std::string written = kavo::formatBestEver(best);
    require(kavo::isSecondStatisticsFile(written));
    const kavo::StatisticsTimes read = kavo::parseStatisticsTimes(written);
    kavo::BestEver again;
    kavo::takeState(again, read, "state");
    for (int level = 1; level <= kavo::kLevels; ++level) {
        require(read[level].time == best[level].time);
        require(read[level].driver == best[level].driver);
    }
    require(kavo::formatBestEver(again) == written);
    return 0;
}
