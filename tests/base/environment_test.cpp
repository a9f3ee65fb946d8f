// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/environment.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

constexpr const char* kName = "KAVO_OF_THIS_TEST";

TEST(Environment, VariableIsReadAsItStands)
{
    const test::EnvironmentValue variable(kName, " a value ");
    EXPECT_EQ(environmentValue(kName), " a value ");
}

TEST(Environment, EmptyVariableCountsAsNotSet)
{
    const test::EnvironmentValue variable(kName, "");
    EXPECT_EQ(environmentValue(kName), std::nullopt);
}

TEST(Environment, VariableThatIsNotSetIsNone)
{
    const test::EnvironmentValue variable(kName, nullptr);
    EXPECT_EQ(environmentValue(kName), std::nullopt);
}

}  // namespace
}  // namespace kavo
