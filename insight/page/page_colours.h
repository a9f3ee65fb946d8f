// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"
#include "core/results_state.h"

#include <string>

/// The user's colours on a page. A scheme is made for one window; a page is shown on light and on dark, so what
/// does not stand out there is made lighter or darker until it does.
namespace kavo {

/// How far apart two colours are for the eye: 1 (the same) to 21 (black on white).
[[nodiscard]] double contrast(Colour one, Colour other);

inline constexpr double kReadable = 4.5;   ///< contrast of any text
inline constexpr double kEasilyRead = 10;  ///< of most of the text

/// The colour itself where it stands out that much on the background, else the nearest one towards black or white
/// that does.
[[nodiscard]] Colour readableOn(Colour background, Colour colour, double least = kReadable);

struct PageColours
{
    Colour background = 0;
    Colour text = 0;
    Colour quiet = 0;   ///< of what is said by the way
    Colour accent = 0;  ///< headings, player 1
    Colour line = 0;    ///< between things; no text
    ByGrade<Colour> grades;
};

enum class PageShade { Light, Dark };

[[nodiscard]] PageColours pageColours(const ColourSet& scheme, PageShade shade);

/// A class of the style sheet, and a variable there: the colour of a grade.
[[nodiscard]] std::string gradeClass(TargetCategory grade);

/// The rules of the style sheet that depend on the user: dark where the reader's system asks for it, light on
/// paper.
[[nodiscard]] std::string colourRules(const ColourSet& scheme);

}  // namespace kavo
