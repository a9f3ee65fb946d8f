// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kavo {

/// A number that two different texts hardly ever share (64-bit FNV-1a), the same on every machine. Texts
/// with the same number are still to be compared.
[[nodiscard]] std::uint64_t fingerprint(std::string_view bytes);

/// Sixteen lower-case hexadecimal digits, and back.
[[nodiscard]] std::string hexadecimal(std::uint64_t number);
[[nodiscard]] std::optional<std::uint64_t> parseHexadecimal(std::string_view digits);

}  // namespace kavo
