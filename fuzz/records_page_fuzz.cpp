// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "fuzz_input.h"
#include "updater/records_page.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view page = kavo::fuzz::textOf(data, size);
    // A time grows by at most its leading "00:"; a host gets a scheme and the page's path.
    const kavo::TargetRecords records = kavo::worldRecords(kavo::cutRecordTimes(page));
    kavo::fuzz::require(records[1].size() <= 4 * 7 + 3);
    try {
        static_cast<void>(kavo::joinTargets(records, page));
    } catch (const kavo::RunTimeError&) {
        // Too few lines.
    }
    kavo::fuzz::require(kavo::recordsPageAddress(page).size() <= size + 100);
    return 0;
}
