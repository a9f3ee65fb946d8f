// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kavo {

/// The candidates that a mistyped word may mean, the nearest alone: by the letters that have to be changed,
/// put in, left out or swapped, or as the beginning of a longer one. None when all are too far off.
[[nodiscard]] std::vector<std::string_view> nearest(std::string_view word,
                                                    const std::vector<std::string_view>& candidates);

/// ", did you mean show?", or `otherwise` when nothing is near.
[[nodiscard]] std::string didYouMean(std::string_view word, const std::vector<std::string_view>& candidates,
                                     std::string_view otherwise);

}  // namespace kavo
