// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"

namespace kavo::test {

/// How a person sees colours: with all three kinds of cones, or without one of them.
enum class Vision { Normal, Protanopia, Deuteranopia, Tritanopia };

/// How clearly a text stands out from its background: 1 (not at all) to 21 (black on white), as web
/// pages are judged.
[[nodiscard]] double contrast(Colour text, Colour background);

/// A colour in the Lab space of 1976.
struct Lab
{
    double lightness = 0;
    double a = 0;  ///< green to red
    double b = 0;  ///< blue to yellow
};

/// What a person sees of a colour on an sRGB screen.
[[nodiscard]] Lab seen(Colour colour, Vision vision);

/// The colour difference CIEDE2000: about 1 is hardly noticed side by side, 10 is seen at a glance.
[[nodiscard]] double difference(const Lab& first, const Lab& second);

}  // namespace kavo::test
