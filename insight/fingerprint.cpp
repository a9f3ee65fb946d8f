// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/fingerprint.h"

#include <charconv>

namespace kavo {

namespace {

constexpr std::size_t kDigits = 16;
constexpr int kBase = 16;

}  // namespace

std::uint64_t fingerprint(std::string_view bytes)
{
    constexpr std::uint64_t kStart = 0xCBF29CE484222325U;
    constexpr std::uint64_t kFactor = 0x100000001B3U;
    std::uint64_t number = kStart;
    for (const char byte : bytes) number = (number ^ static_cast<unsigned char>(byte)) * kFactor;
    return number;
}

std::string hexadecimal(std::uint64_t number)
{
    std::string digits(kDigits, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number /= kBase)
        *digit = "0123456789abcdef"[number % kBase];
    return digits;
}

std::optional<std::uint64_t> parseHexadecimal(std::string_view digits)
{
    if (digits.size() != kDigits || digits.find_first_not_of("0123456789abcdef") != std::string_view::npos)
        return std::nullopt;
    std::uint64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number, kBase);
    return number;
}

}  // namespace kavo
