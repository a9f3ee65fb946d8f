// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "core/targets.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    kavo::ResultsState state;
    bool isWhole = true;
    try {
        kavo::parseTargets(kavo::fuzz::textOf(data, size), state);
    } catch (const kavo::RunTimeError&) {
        isWhole = false;  // too few fields: those read are stored, the last record's as they stand
    }
    for (int row = 1; row <= kavo::kTotalsRow; ++row) {
        kavo::fuzz::require(state.TargetOK[row].size() <= size);
        kavo::fuzz::require(!isWhole || state.TargetWR[row].find('.') == std::string::npos);
    }
    return 0;
}
