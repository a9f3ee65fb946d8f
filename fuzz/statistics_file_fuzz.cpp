// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "core/levels.h"
#include "core/statistics_file.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = kavo::fuzz::textOf(data, size);
    if (kavo::isSecondStatisticsFile(text)) kavo::fuzz::require(kavo::isStatisticsFile(text));
    try {
        kavo::StatisticsReader reader(text);
        for (int level = 1; level <= kavo::kLevels; ++level) {
            kavo::fuzz::require(reader.header().size() <= size);
            const auto best = reader.bestTime();
            if (best) kavo::fuzz::require(best->time.size() + best->driver.size() <= size);
        }
    } catch (const kavo::RunTimeError&) {
        // Where the file ends too early.
    }
    return 0;
}
