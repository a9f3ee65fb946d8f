// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/fingerprint.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

TEST(Fingerprint, IsTheSameOnEveryMachine)
{
    // Published values of the hash.
    EXPECT_EQ(fingerprint(""), 0xCBF29CE484222325U);
    EXPECT_EQ(fingerprint("a"), 0xAF63DC4C8601EC8CU);
    EXPECT_EQ(fingerprint("foobar"), 0x85944171F73967E8U);
    EXPECT_NE(fingerprint(std::string_view("\0", 1)), fingerprint(""));
}

TEST(Fingerprint, IsWrittenInSixteenDigits)
{
    EXPECT_EQ(hexadecimal(0), "0000000000000000");
    EXPECT_EQ(hexadecimal(0x0123456789ABCDEFU), "0123456789abcdef");
    EXPECT_EQ(parseHexadecimal("0123456789abcdef"), 0x0123456789ABCDEFU);
    EXPECT_EQ(parseHexadecimal("ffffffffffffffff"), 0xFFFFFFFFFFFFFFFFU);
    for (const char* text :
         {"", "0", "0123456789abcde", "0123456789abcdef0", "0123456789ABCDEF", "0x23456789abcdef", "-123456789abcdef"})
        EXPECT_EQ(parseHexadecimal(text), std::nullopt) << text;
}

}  // namespace
}  // namespace kavo
