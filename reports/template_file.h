// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kavo {

/// A template of the HTML export, as an `.ett` file holds it.
struct TemplateSections
{
    std::string beginning;  ///< written once, first
    std::string loop;       ///< once per level
    std::string total;      ///< once, after the loop
    std::string ending;     ///< once, last

    bool operator==(const TemplateSections&) const = default;
};

/// The four sections with the separator lines between them.
[[nodiscard]] std::string formatTemplate(const TemplateSections& sections);

/// The sections after the text of a file was loaded behind what they hold already: nothing is cleared.
/// A text that ends too early leaves them as far as it was read, without a word.
[[nodiscard]] TemplateSections loadTemplate(TemplateSections sections, std::string_view text);

/// The same for a file. An empty path or one that names no file reads nothing; the last two characters
/// of every section go all the same.
[[nodiscard]] TemplateSections loadTemplateFile(TemplateSections sections, const std::filesystem::path& path);

}  // namespace kavo
