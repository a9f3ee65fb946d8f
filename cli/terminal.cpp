// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/terminal.h"

#include <charconv>

namespace kavo {

namespace {

bool contains(std::string_view text, std::string_view word)
{
    return text.find(word) != std::string_view::npos;
}

/// Terminals from before there were colours: vt100 and its kin, and any that is said to have none.
bool isMonochrome(std::string_view term)
{
    const bool isVt = term.size() > 2 && term.starts_with("vt") && term[2] >= '0' && term[2] <= '9';
    return term.empty() || term == "dumb" || isVt || term.ends_with("-m") || term.ends_with("-mono");
}

Colours coloursOf(const OutputFacts& facts)
{
    if (isMonochrome(facts.term)) return Colours::None;
    if (facts.colorTerm == "truecolor" || facts.colorTerm == "24bit") return Colours::True;
    if (contains(facts.term, "direct") || contains(facts.term, "truecolor")) return Colours::True;
    return contains(facts.term, "256color") ? Colours::Palette : Colours::Sixteen;
}

Colours coloursFor(const OutputFacts& facts, std::string_view wish)
{
    const Colours possible = coloursOf(facts);
    if (wish == kColourNever) return Colours::None;
    if (wish == kColourAlways) return possible == Colours::None ? Colours::Sixteen : possible;
    return facts.isTerminal && facts.noColor.empty() ? possible : Colours::None;
}

std::size_t columnsOf(const OutputFacts& facts)
{
    constexpr std::size_t kUsual = 80;
    if (facts.columns.value_or(0) > 0) return *facts.columns;
    const std::string& wished = facts.columnsWished;
    std::size_t columns = 0;
    const auto [end, error] = std::from_chars(wished.data(), wished.data() + wished.size(), columns);
    const bool isNumber = error == std::errc{} && end == wished.data() + wished.size();
    return isNumber && columns > 0 ? columns : kUsual;
}

}  // namespace

Terminal terminalOf(const OutputFacts& facts, std::string_view colourWish)
{
    return {.isTerminal = facts.isTerminal, .colours = coloursFor(facts, colourWish), .columns = columnsOf(facts)};
}

}  // namespace kavo
