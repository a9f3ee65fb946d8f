// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "core/bug_times.h"
#include "fuzz_input.h"

using kavo::fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = kavo::fuzz::textOf(data, size);
    static_cast<void>(kavo::isBugTimeEntry(text));
    try {
        const kavo::BugTimeEntries entries = kavo::parseBugTimes(text);
        require(kavo::formatBugTimes(entries).size() <= 3 * size + 64);
        static_cast<void>(kavo::parseBugTimesByLevel(text));
    } catch (const kavo::RunTimeError&) {
        // What a damaged file ends in.
    }
    return 0;
}
