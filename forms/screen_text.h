#pragma once

#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

/// How the bytes of the files become text on the screen, and back.
namespace kavo {

/// Valid UTF-8 as it is; any other byte as its Windows-1252 character.
[[nodiscard]] QString toScreen(std::string_view bytes);
[[nodiscard]] QString pathToScreen(const std::filesystem::path& path);

/// What the user typed, as UTF-8.
[[nodiscard]] std::string fromScreen(const QString& text);

/// The same for a text that was offered to the user first: left as it was, it keeps its bytes.
[[nodiscard]] std::string fromScreen(const QString& text, std::string_view offered);

}  // namespace kavo
