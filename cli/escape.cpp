// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/escape.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>

namespace kavo {

namespace {

struct Rgb
{
    int red;
    int green;
    int blue;
};

/// As the consoles of old show them: red and orange differ in them.
constexpr std::array<Rgb, 16> kSixteen = {{{0, 0, 0},
                                           {170, 0, 0},
                                           {0, 170, 0},
                                           {170, 85, 0},
                                           {0, 0, 170},
                                           {170, 0, 170},
                                           {0, 170, 170},
                                           {170, 170, 170},
                                           {85, 85, 85},
                                           {255, 85, 85},
                                           {85, 255, 85},
                                           {255, 255, 85},
                                           {85, 85, 255},
                                           {255, 85, 255},
                                           {85, 255, 255},
                                           {255, 255, 255}}};

/// The palette of 256 begins with the sixteen, which users choose as they like; then come a cube of colours with six
/// steps a side, and greys.
constexpr std::array<int, 6> kSteps = {0, 95, 135, 175, 215, 255};
constexpr int kFirstOfCube = 16;
constexpr int kFirstGrey = 232;
constexpr int kGreys = 24;

constexpr Rgb greyOf(int index)
{
    const int light = 8 + 10 * index;
    return {light, light, light};
}

Rgb partsOf(Colour colour)
{
    const auto packed = static_cast<std::uint32_t>(colour);
    return {static_cast<int>(packed & 0xFFU), static_cast<int>((packed >> 8U) & 0xFFU),
            static_cast<int>((packed >> 16U) & 0xFFU)};
}

int distance(const Rgb& a, const Rgb& b)
{
    const auto square = [](int number) { return number * number; };
    return square(a.red - b.red) + square(a.green - b.green) + square(a.blue - b.blue);
}

int nearestOfSixteen(const Rgb& colour)
{
    const auto nearer = [&colour](const Rgb& a, const Rgb& b) { return distance(a, colour) < distance(b, colour); };
    return static_cast<int>(std::min_element(kSixteen.begin(), kSixteen.end(), nearer) - kSixteen.begin());
}

int nearestStep(int part)
{
    const auto nearer = [part](int a, int b) { return std::abs(a - part) < std::abs(b - part); };
    return static_cast<int>(std::min_element(kSteps.begin(), kSteps.end(), nearer) - kSteps.begin());
}

int nearestOfPalette(const Rgb& colour)
{
    const int red = nearestStep(colour.red);
    const int green = nearestStep(colour.green);
    const int blue = nearestStep(colour.blue);
    const auto side = static_cast<int>(kSteps.size());
    const auto step = [](int index) { return kSteps.at(static_cast<std::size_t>(index)); };
    const int ofCube = distance({step(red), step(green), step(blue)}, colour);
    const int average = (colour.red + colour.green + colour.blue) / 3;
    const int grey = std::clamp((average - 3) / 10, 0, kGreys - 1);
    return distance(greyOf(grey), colour) < ofCube ? kFirstGrey + grey
                                                   : kFirstOfCube + (red * side + green) * side + blue;
}

std::string ofSixteen(int index)
{
    constexpr int kDark = 30;
    constexpr int kBright = 90;
    constexpr int kDarkOnes = 8;
    return "\x1b[" + std::to_string(index < kDarkOnes ? kDark + index : kBright + index - kDarkOnes) + "m";
}

std::string escapeOf(const Rgb& colour, Colours colours)
{
    const auto text = [](int part) { return std::to_string(part); };
    switch (colours) {
    case Colours::None: return {};
    case Colours::Sixteen: return ofSixteen(nearestOfSixteen(colour));
    case Colours::Palette: return "\x1b[38;5;" + text(nearestOfPalette(colour)) + "m";
    case Colours::True:
        return "\x1b[38;2;" + text(colour.red) + ";" + text(colour.green) + ";" + text(colour.blue) + "m";
    }
    return {};
}

}  // namespace

std::string escapeFor(std::optional<Colour> colour, bool bold, Colours colours)
{
    if (colours == Colours::None) return {};
    return (bold ? "\x1b[1m" : "") + (colour ? escapeOf(partsOf(*colour), colours) : "");
}

}  // namespace kavo
