// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Colour schemes: named colour files in the user's `colors` folder, beside the file in force.
namespace kavo {

/// The colours to edit: those in force, or the defaults. A file of the older kind, with the four window
/// colours only, gets the default grade colours.
[[nodiscard]] ColourSet readColoursToEdit(const std::filesystem::path& userFolder);

/// Rewrites a colour file of the older kind with all nine colours; does nothing to any other.
void upgradeColours(const std::filesystem::path& userFolder);

/// Rewrites the colour file in force.
void saveColours(const std::filesystem::path& userFolder, const ColourSet& colours);

/// Names of the schemes in the order of the alphabet, without the ".ini". Empty without a folder.
[[nodiscard]] std::vector<std::string> listSchemes(const std::filesystem::path& userFolder);

/// The same of a folder that schemes come from.
[[nodiscard]] std::vector<std::string> schemesIn(const std::filesystem::path& folder);

/// Copies a scheme of `folder` byte for byte into the user's `colors` folder, which is made when it is missing.
/// Returns false, and changes nothing, when the user has one of that name. Throws RunTimeError: PathNotFound for a
/// user without a folder, else as reading and replacing files do.
[[nodiscard]] bool installScheme(const std::filesystem::path& folder, std::string_view name,
                                 const std::filesystem::path& userFolder);

/// Writes a scheme, over one of that name; nothing when the user has no `colors` folder. Throws
/// RunTimeError(PathNotFound) on a name that would lead out of the folder.
void saveScheme(const std::filesystem::path& userFolder, std::string_view name, const ColourSet& colours);

/// Makes a scheme the colours in force; those before it become the scheme "colors_prev". Throws
/// RunTimeError(FileNotFound), and changes nothing, when there is no such scheme.
void setScheme(const std::filesystem::path& userFolder, std::string_view name);

}  // namespace kavo
