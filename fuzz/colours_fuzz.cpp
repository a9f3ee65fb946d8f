// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "core/colour_set.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const kavo::ColourSet colours = kavo::parseColours(kavo::fuzz::textOf(data, size)).colours;
        const kavo::ColourFile again = kavo::parseColours(kavo::formatColours(colours));
        kavo::fuzz::require(again.colours == colours && again.count == kavo::kColours);
    } catch (const kavo::RunTimeError&) {
        // What a damaged file ends in.
    }
    return 0;
}
