// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/colour_vision.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace kavo::test {

namespace {

/// Red, green and blue, or other three parts of a colour.
using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

constexpr Matrix kUnchanged = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

/// Simulations of missing cones on linear light: Machado, Oliveira and Fernandes, 2009, severity 1.
constexpr Matrix kProtanopia = {
    {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
constexpr Matrix kDeuteranopia = {
    {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
constexpr Matrix kTritanopia = {
    {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};

/// Linear sRGB to XYZ, its white at 1 in each part.
constexpr Matrix kToXyz = {{{0.4124564 / 0.95047, 0.3575761 / 0.95047, 0.1804375 / 0.95047},
                            {0.2126729, 0.7151522, 0.0721750},
                            {0.0193339 / 1.08883, 0.1191920 / 1.08883, 0.9503041 / 1.08883}}};

constexpr double kDegree = std::numbers::pi / 180;

Triple product(const Matrix& matrix, const Triple& value)
{
    Triple result{};
    for (std::size_t row = 0; row < matrix.size(); ++row)
        for (std::size_t column = 0; column < value.size(); ++column)
            result.at(row) += matrix.at(row).at(column) * value.at(column);
    return result;
}

const Matrix& simulation(Vision vision)
{
    switch (vision) {
    case Vision::Protanopia: return kProtanopia;
    case Vision::Deuteranopia: return kDeuteranopia;
    case Vision::Tritanopia: return kTritanopia;
    case Vision::Normal: break;
    }
    return kUnchanged;
}

double linear(int part)
{
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

Triple linearLight(Colour colour)
{
    return {linear(colour & 0xFF), linear((colour >> 8) & 0xFF), linear((colour >> 16) & 0xFF)};
}

double luminance(Colour colour)
{
    const Triple light = linearLight(colour);
    return 0.2126 * light[0] + 0.7152 * light[1] + 0.0722 * light[2];
}

/// The cube root, with a straight beginning for the darkest colours.
double labCurve(double share)
{
    return share > 216.0 / 24389 ? std::cbrt(share) : (24389.0 / 27 * share + 16) / 116;
}

/// Direction of a colour in the plane of a and b: 0 to 360 degrees.
double hue(double a, double b)
{
    const double angle = std::atan2(b, a) / kDegree;
    return angle < 0 ? angle + 360 : angle;
}

/// From the first direction to the second on the shorter way: -180 to 180.
double turn(double from, double to)
{
    const double angle = to - from;
    if (angle > 180) return angle - 360;
    return angle < -180 ? angle + 360 : angle;
}

double cosine(double degrees)
{
    return std::cos(degrees * kDegree);
}

/// How grey a colour of this chroma is taken for: near 1 for pale ones, near 0 for vivid ones.
double vividness(double chroma)
{
    const double power = std::pow(chroma, 7);
    return std::sqrt(power / (power + std::pow(25.0, 7)));
}

}  // namespace

double contrast(Colour text, Colour background)
{
    const auto [darker, lighter] = std::minmax({luminance(text), luminance(background)});
    return (lighter + 0.05) / (darker + 0.05);
}

Lab seen(Colour colour, Vision vision)
{
    Triple light = product(simulation(vision), linearLight(colour));
    for (double& part : light) part = std::clamp(part, 0.0, 1.0);
    const Triple xyz = product(kToXyz, light);
    const double x = labCurve(xyz[0]);
    const double y = labCurve(xyz[1]);
    const double z = labCurve(xyz[2]);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double difference(const Lab& first, const Lab& second)
{
    const double meanPlainChroma = (std::hypot(first.a, first.b) + std::hypot(second.a, second.b)) / 2;
    const double stretch = 1 + 0.5 * (1 - vividness(meanPlainChroma));
    const double chroma1 = std::hypot(first.a * stretch, first.b);
    const double chroma2 = std::hypot(second.a * stretch, second.b);
    const double hue1 = hue(first.a * stretch, first.b);
    const double between = chroma1 * chroma2 == 0 ? 0 : turn(hue1, hue(second.a * stretch, second.b));

    const double lightness = (first.lightness + second.lightness) / 2 - 50;
    const double chroma = (chroma1 + chroma2) / 2;
    const double middle = hue1 + between / 2;
    const double ripple = 1 - 0.17 * cosine(middle - 30) + 0.24 * cosine(2 * middle) + 0.32 * cosine(3 * middle + 6) -
                          0.20 * cosine(4 * middle - 63);
    const double fromBlue = turn(275, middle < 0 ? middle + 360 : middle) / 25;
    const double blueTurn = -std::sin(60 * std::exp(-fromBlue * fromBlue) * kDegree) * 2 * vividness(chroma);

    const double byLightness = (second.lightness - first.lightness) /
                               (1 + 0.015 * lightness * lightness / std::sqrt(20 + lightness * lightness));
    const double byChroma = (chroma2 - chroma1) / (1 + 0.045 * chroma);
    const double byHue =
        2 * std::sqrt(chroma1 * chroma2) * std::sin(between / 2 * kDegree) / (1 + 0.015 * chroma * ripple);
    return std::sqrt(byLightness * byLightness + byChroma * byChroma + byHue * byHue + blueTurn * byChroma * byHue);
}

}  // namespace kavo::test
