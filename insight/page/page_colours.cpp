// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/page_colours.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace kavo {

namespace {

constexpr int kSteps = 32;          // from a colour to black or white
constexpr double kLightFrom = 0.5;  // luminance of backgrounds that are light enough for a light page
constexpr double kDarkTo = 0.05;    // and dark enough for a dark one
constexpr Colour kWhite = rgb(255, 255, 255);
constexpr Colour kDark = rgb(20, 23, 28);

constexpr std::array<int, 3> channels(Colour colour)
{
    return {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF};
}

double luminance(Colour colour)
{
    constexpr std::array<double, 3> kShares = {0.2126, 0.7152, 0.0722};
    double sum = 0;
    for (std::size_t i = 0; i < kShares.size(); ++i) {
        const double value = channels(colour).at(i) / 255.0;
        sum += kShares.at(i) * (value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4));
    }
    return sum;
}

/// `part` of the way from one colour to another.
Colour between(Colour from, Colour to, double part)
{
    std::array<int, 3> mixed{};
    for (std::size_t i = 0; i < mixed.size(); ++i)
        mixed.at(i) = static_cast<int>(std::lround(channels(from).at(i) * (1 - part) + channels(to).at(i) * part));
    return rgb(mixed[0], mixed[1], mixed[2]);
}

Colour backgroundFor(const ColourSet& scheme, PageShade shade)
{
    const double light = luminance(scheme.ColBack);
    if (shade == PageShade::Light) return light >= kLightFrom ? between(scheme.ColBack, kWhite, 0) : kWhite;
    return light <= kDarkTo ? between(scheme.ColBack, kWhite, 0) : kDark;
}

std::string hexColour(Colour colour)
{
    const auto [red, green, blue] = channels(colour);
    std::array<char, 8> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), "#%02x%02x%02x", red, green, blue));
    return text.data();
}

std::string variables(const PageColours& colours)
{
    std::string text = ":root{";
    const auto add = [&text](const std::string& name, Colour colour) {
        text.append("--").append(name).append(":").append(hexColour(colour)).append(";");
    };
    add("back", colours.background);
    add("text", colours.text);
    add("quiet", colours.quiet);
    add("accent", colours.accent);
    add("line", colours.line);
    for (const Grade& grade : grades()) add(gradeClass(grade.category), colours.grades[grade.category]);
    return text + "}";
}

}  // namespace

double contrast(Colour one, Colour other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

Colour readableOn(Colour background, Colour colour, double least)
{
    const Colour end = contrast(kWhite, background) > contrast(0, background) ? kWhite : 0;
    for (int step = 0; step < kSteps; ++step) {
        const Colour candidate = between(colour, end, static_cast<double>(step) / kSteps);
        if (contrast(candidate, background) >= least) return candidate;
    }
    return end;
}

PageColours pageColours(const ColourSet& scheme, PageShade shade)
{
    PageColours colours;
    colours.background = backgroundFor(scheme, shade);
    colours.text = readableOn(colours.background, scheme.ColText, kEasilyRead);
    colours.quiet = readableOn(colours.background, between(colours.text, colours.background, 0.35));
    colours.accent = readableOn(colours.background, scheme.ColFrames);
    colours.line = between(colours.text, colours.background, 0.75);
    for (const Grade& grade : grades())
        colours.grades[grade.category] =
            grade.colour == nullptr ? colours.quiet : readableOn(colours.background, scheme.*grade.colour);
    return colours;
}

std::string gradeClass(TargetCategory grade)
{
    return "g" + std::to_string(static_cast<int>(grade));
}

std::string colourRules(const ColourSet& scheme)
{
    return variables(pageColours(scheme, PageShade::Light)) + "\n@media screen and (prefers-color-scheme:dark){" +
           variables(pageColours(scheme, PageShade::Dark)) + "}\n";
}

}  // namespace kavo
