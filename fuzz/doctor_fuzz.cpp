// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fuzz_input.h"
#include "insight/settings_check.h"
#include "insight/statistics_check.h"
#include "insight/targets_check.h"

#include <array>

namespace {

using kavo::Findings;
using kavo::StatisticsUse;
using Check = Findings (*)(std::string_view);

constexpr std::array<Check, 15> kChecks = {
    kavo::checkCodePage,
    kavo::checkTargets,
    kavo::checkFixedTargets,
    kavo::checkSettings,
    kavo::checkNames,
    kavo::checkLayout,
    kavo::checkBugTimes,
    kavo::checkColours,
    kavo::checkUsers,
    kavo::checkCurrentUser,
    kavo::checkAutoLogin,
    kavo::checkLinks,
    kavo::checkTemplate,
    [](std::string_view text) { return kavo::checkStatistics(text, StatisticsUse::Player1); },
    [](std::string_view text) { return kavo::checkStatistics(text, StatisticsUse::SecondFile); }};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = kavo::fuzz::textOf(data, size);
    for (const Check check : kChecks)
        for (const kavo::Finding& finding : check(text)) {
            kavo::fuzz::require(finding.byte <= size && finding.line <= size + 1);
            kavo::fuzz::require(!kavo::describe(finding).empty() && !finding.advice.empty());
        }
    return 0;
}
