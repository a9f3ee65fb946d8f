// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The columns of a terminal that texts take: two for a character of Chinese or an emoji, none for an accent that
/// stands above the letter before it. All texts here are printable UTF-8.
namespace kavo {

[[nodiscard]] std::size_t displayWidth(std::string_view text);

/// The text in at most `width` columns: its beginning and an ellipsis where it is wider.
[[nodiscard]] std::string cutEnd(std::string_view text, std::size_t width);

/// The same with the ellipsis in the middle: for texts that differ at their ends.
[[nodiscard]] std::string cutMiddle(std::string_view text, std::size_t width);

}  // namespace kavo
