// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kavo {

inline constexpr int kStoredColumns = 6;  ///< "Level" to "Difference"; the others are not stored

/// `view.dat`: place and size of the main window, all in twips (15 to a device-independent pixel).
struct WindowLayout
{
    double left = 0;
    double top = 0;
    double height = 0;  ///< stands before the width in the file
    double width = 0;
    std::array<double, kStoredColumns> columnWidths{};
};

inline constexpr int kPlaceValues = 4;  ///< those before the columns
inline constexpr int kLayoutValues = kPlaceValues + kStoredColumns;

/// The values of a layout file in file order, up to the first line that is no number; ten when complete.
[[nodiscard]] std::vector<double> parseLayoutValues(std::string_view text);

/// `layout` with the first values replaced by those given.
[[nodiscard]] WindowLayout withValues(WindowLayout layout, const std::vector<double>& values);

/// Ten lines; column widths are rounded down.
[[nodiscard]] std::string formatLayout(const WindowLayout& layout);

[[nodiscard]] std::filesystem::path layoutFile(const std::filesystem::path& userFolder);

}  // namespace kavo
