// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace kavo {

/// A colour packed as red + 256 * green + 65536 * blue.
using Colour = std::int32_t;

[[nodiscard]] constexpr Colour rgb(int red, int green, int blue)
{
    return red + 256 * green + 65536 * blue;
}

/// The nine colours of a scheme, in the order of the lines of `colors.ini`.
struct ColourSet
{
    Colour ColBack = rgb(255, 255, 255);
    Colour ColFrames = rgb(0, 0, 128);
    Colour ColLabels = rgb(0, 0, 0);
    Colour ColText = rgb(0, 0, 0);
    Colour ColWR = rgb(255, 0, 0);
    Colour ColWC = rgb(255, 95, 5);
    Colour ColPro = rgb(150, 100, 255);
    Colour ColGood = rgb(25, 190, 30);
    Colour ColOK = rgb(100, 100, 100);

    bool operator==(const ColourSet&) const = default;
};

inline constexpr int kColours = 9;
inline constexpr int kWindowColours = 4;  ///< the first four paint windows, the others are the grades'

/// The lines of a colour file (0-based). The first kWindowColours are numbered by the windows themselves.
enum class ColourLine { Back, Frames, Labels, Text, WorldRecord, WorldClass, Professional, Good, OK };

/// The members of ColourSet by ColourLine.
inline constexpr std::array<Colour ColourSet::*, kColours> kColourLines = {
    &ColourSet::ColBack, &ColourSet::ColFrames, &ColourSet::ColLabels, &ColourSet::ColText, &ColourSet::ColWR,
    &ColourSet::ColWC,   &ColourSet::ColPro,    &ColourSet::ColGood,   &ColourSet::ColOK};

/// A colour file as read: colours that it does not hold have their defaults.
struct ColourFile
{
    ColourSet colours;
    int count = 0;         ///< how many colours the file held, at most nine
    std::size_t size = 0;  ///< of the file, in bytes
};

/// Reads up to nine numbers; stops at the first field that is none.
[[nodiscard]] ColourFile parseColours(std::string_view text);

/// Nine lines, each a number with a blank on both sides.
[[nodiscard]] std::string formatColours(const ColourSet& colours);

/// The user's `colors` folder, and the colour file in force in it.
[[nodiscard]] std::filesystem::path coloursFolder(const std::filesystem::path& userFolder);
[[nodiscard]] std::filesystem::path coloursFile(const std::filesystem::path& userFolder);

/// Makes the `colors` folder where it is missing. Throws RunTimeError: PathNotFound for a user without a folder of
/// their own, which is an error and no new user; PathFileAccess, DiskFull.
void makeColoursFolder(const std::filesystem::path& userFolder);

/// The colour file in force; an empty one when there is none.
[[nodiscard]] ColourFile readColourFile(const std::filesystem::path& userFolder);

/// The colours of the results table: a file shorter than ten bytes is no colour file.
[[nodiscard]] ColourSet readTableColours(const std::filesystem::path& userFolder);

/// The user's colours as the secondary windows take them; the defaults without a file.
[[nodiscard]] ColourSet readWindowColours(const std::filesystem::path& userFolder);

}  // namespace kavo
