// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// The layout of the main window and the names of the players: what is written is read again as it was.

#include "core/settings.h"
#include "core/window_layout.h"
#include "fuzz_input.h"

#include <cmath>

using kavo::fuzz::require;

namespace {

void checkLayout(std::string_view text)
{
    const std::vector<double> values = kavo::parseLayoutValues(text);
    require(values.size() <= kavo::kLayoutValues);
    for (const double value : values) require(std::isfinite(value));
    const std::string written = kavo::formatLayout(kavo::withValues({}, values));
    const std::vector<double> again = kavo::parseLayoutValues(written);
    require(again.size() == kavo::kLayoutValues);
    require(kavo::formatLayout(kavo::withValues({}, again)) == written);
}

void checkNames(std::string_view text)
{
    const kavo::Names names = kavo::parseNames(text);
    const kavo::Names again = kavo::parseNames(kavo::formatNames(names));
    require(again.player1 == names.player1 && again.player2 == names.player2 && again.team == names.team);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = kavo::fuzz::textOf(data, size);
    checkLayout(text);
    checkNames(text);
    return 0;
}
