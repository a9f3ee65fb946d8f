// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

/// What libFuzzer calls with each input. Declared here because nothing else does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace kavo::fuzz {

[[nodiscard]] inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// A rule that no input may break.
inline void require(bool holds)
{
    if (!holds) std::abort();
}

}  // namespace kavo::fuzz
