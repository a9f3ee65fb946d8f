// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "core/settings.h"
#include "core/window_layout.h"
#include "fuzz_input.h"

namespace {

/// Reads a text and tells whether that went through to its end.
template <typename Read>
bool reads(Read read)
{
    try {
        read();
        return true;
    } catch (const kavo::RunTimeError&) {
        return false;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = kavo::fuzz::textOf(data, size);
    const bool isWhole = reads([&] { static_cast<void>(kavo::parseSettings(text)); });
    if (isWhole) {
        const std::string written = kavo::formatSettings(kavo::parseSettings(text));
        kavo::fuzz::require(reads([&] { static_cast<void>(kavo::parseSettings(written)); }));
    }
    kavo::fuzz::require(reads([&] { static_cast<void>(kavo::parseSettingsLeniently(text, {})); }));
    kavo::fuzz::require(reads([&] { static_cast<void>(kavo::withFontSize(text, 9)); }));
    kavo::fuzz::require(reads([&] { static_cast<void>(kavo::formatNames(kavo::parseNames(text))); }));
    reads([&] { static_cast<void>(kavo::formatLayout(kavo::withValues({}, kavo::parseLayoutValues(text)))); });
    return 0;
}
