// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kavo {

/// The colours that can be shown: none, the sixteen that terminals have always had, a palette of 256, or all.
enum class Colours { None, Sixteen, Palette, True };

/// What is known about standard output.
struct OutputFacts
{
    bool isTerminal = false;
    std::optional<std::size_t> columns = {};  ///< as a terminal itself says
    std::string term = {};                    ///< TERM
    std::string colorTerm = {};               ///< COLORTERM
    std::string noColor = {};                 ///< NO_COLOR
    std::string columnsWished = {};           ///< COLUMNS, for what is no terminal
};

/// Standard output, as far as texts for people depend on it.
struct Terminal
{
    bool isTerminal = false;
    Colours colours = Colours::None;  ///< to be used
    std::size_t columns = 0;
};

/// When there are colours: the values of --colour.
inline constexpr std::string_view kColourAuto = "auto";
inline constexpr std::string_view kColourAlways = "always";
inline constexpr std::string_view kColourNever = "never";

/// By itself (auto) there are colours on a terminal that has them, unless the user minds (NO_COLOR). Always means
/// also for a pipe, behind which may be a terminal: the colours that this one has, at least sixteen.
[[nodiscard]] Terminal terminalOf(const OutputFacts& facts, std::string_view colourWish);

}  // namespace kavo
