// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cmath>

namespace kavo {

inline constexpr double kTwipsPerPixel = 15;  ///< of a device-independent pixel

[[nodiscard]] inline double toTwips(double pixels)
{
    return pixels * kTwipsPerPixel;
}

[[nodiscard]] inline int toPixels(double twips)
{
    constexpr double kFarthest = 100000;  // beyond any screen; keeps odd numbers of a file in range
    return static_cast<int>(std::lround(std::fmin(std::fmax(twips / kTwipsPerPixel, -kFarthest), kFarthest)));
}

}  // namespace kavo
