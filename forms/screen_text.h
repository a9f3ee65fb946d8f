// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

/// How the bytes of the files become text on the screen, and back.
namespace kavo {

/// Characters that one line of text shows at most: more than the widest screen has room for, and than a path
/// can have. Toolkits take minutes for a line of a million.
inline constexpr std::size_t kLongestLine = 4096;

/// The same for a caption that its window makes room for: about as many as a screen is wide.
inline constexpr std::size_t kLongestCaption = 256;

/// Characters that a box with many lines shows at most.
inline constexpr std::size_t kLongestPage = 1'000'000;

/// Valid UTF-8 as it is; any other byte as its character in the code page in force (base/code_page.h). A text
/// longer than `longest` characters is cut there, and an ellipsis tells so: whoever writes it back keeps the bytes.
[[nodiscard]] QString toScreen(std::string_view bytes, std::size_t longest = kLongestLine);

/// The same for a box with many lines: each of them is cut, and the text behind kLongestPage characters.
[[nodiscard]] QString pageToScreen(std::string_view bytes);

/// The same, however long the text is: for boxes in which it is edited.
[[nodiscard]] QString wholeToScreen(std::string_view bytes);

/// A caption of a control that takes "&" for the mark of an access key: here it is only that. Cut to kLongestCaption.
[[nodiscard]] QString captionToScreen(std::string_view bytes);

[[nodiscard]] QString pathToScreen(const std::filesystem::path& path);

/// What the user typed, as UTF-8.
[[nodiscard]] std::string fromScreen(const QString& text);

/// The same for a text that was offered to the user first: left as it was, it keeps its bytes.
[[nodiscard]] std::string fromScreen(const QString& text, std::string_view offered);

/// Text of a tool tip with these lines, each shown as it is, markup included. Empty lines are left out.
[[nodiscard]] QString toolTipOf(const QStringList& lines);

}  // namespace kavo
