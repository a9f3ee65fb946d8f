// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/colour_set.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_cursor.h"
#include "base/text_file.h"

namespace kavo {

namespace {

constexpr std::size_t kShortestFile = 10;  // bytes; anything shorter is a leftover, not a scheme

}  // namespace

ColourFile parseColours(std::string_view text)
{
    ColourFile file;
    file.size = text.size();
    TextCursor cursor(text);
    for (const auto member : kColourLines) {
        if (cursor.atEnd()) break;
        const std::string_view field = cursor.field();
        if (!isNumeric(field)) break;
        file.colours.*member = integerOf(field);
        ++file.count;
    }
    return file;
}

std::string formatColours(const ColourSet& colours)
{
    std::string text;
    for (const auto member : kColourLines) text.append(asLine(printedNumber(colours.*member)));
    return text;
}

std::filesystem::path coloursFolder(const std::filesystem::path& userFolder)
{
    return locate(userFolder / "colors");
}

std::filesystem::path coloursFile(const std::filesystem::path& userFolder)
{
    return locate(userFolder / "colors" / "colors.ini");
}

void makeColoursFolder(const std::filesystem::path& userFolder)
{
    if (folderExists(coloursFolder(userFolder))) return;
    if (!folderExists(userFolder)) throw RunTimeError(Failure::PathNotFound, userFolder);
    std::error_code error;
    std::filesystem::create_directory(coloursFolder(userFolder), error);
    if (error) throw RunTimeError(error, coloursFolder(userFolder));
}

ColourFile readColourFile(const std::filesystem::path& userFolder)
{
    const auto text = readFileIfThere(coloursFile(userFolder));
    return text ? parseColours(*text) : ColourFile{};
}

ColourSet readTableColours(const std::filesystem::path& userFolder)
{
    const ColourFile file = readColourFile(userFolder);
    return file.size >= kShortestFile ? file.colours : ColourSet{};
}

ColourSet readWindowColours(const std::filesystem::path& userFolder)
{
    return readColourFile(userFolder).colours;
}

}  // namespace kavo
