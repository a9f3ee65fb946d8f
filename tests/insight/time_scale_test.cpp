// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/time_scale.h"

#include "core/targets.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

ResultsState targets(std::string_view record)
{
    ResultsState state;
    parseTargets(test::targetsText(record), state);
    return state;
}

TEST(TimeScale, GoesFromOkToWorldRecord)
{
    EXPECT_EQ(timeScaleOf(targets("00:10:00,00:20:00,00:30:00,00:40:00,00:50:00"), 1),
              (TimeScale{5000, 4000, 3000, 2000, 1000}));
}

TEST(TimeScale, NeedsTimesAndALength)
{
    EXPECT_EQ(timeScaleOf(targets("00:10:00,00:20:00,,00:40:00,00:50:00"), 1), std::nullopt);
    EXPECT_EQ(timeScaleOf(targets("00:50:00,00:20:00,00:30:00,00:40:00,00:50:00"), 1), std::nullopt);
    EXPECT_EQ(timeScaleOf(ResultsState{}, 54), std::nullopt);
}

TEST(TimeScale, PlacesTimes)
{
    const TimeScale scale = {5000, 4000, 3000, 2000, 1000};
    EXPECT_DOUBLE_EQ(placeOn(scale, 5000), 0);
    EXPECT_DOUBLE_EQ(placeOn(scale, 2000), 0.75);
    EXPECT_DOUBLE_EQ(placeOn(scale, 1000), 1);
    EXPECT_DOUBLE_EQ(placeOn(scale, 9000), -1);
    EXPECT_DOUBLE_EQ(placeOn(scale, 600), 1.1);
}

}  // namespace
}  // namespace kavo
