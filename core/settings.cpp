// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/settings.h"

#include "base/file_name.h"
#include "base/text.h"
#include "base/text_cursor.h"
#include "base/text_file.h"

namespace kavo {

Settings parseSettings(std::string_view text)
{
    TextCursor cursor(text);
    Settings settings;
    settings.statsPath = cursor.line();
    settings.compareMethod = integerOf(cursor.field());
    settings.otherPath = cursor.line();
    settings.category = cursor.line();
    if (!cursor.atEnd()) settings.fontSize = numberOf(cursor.line());
    return settings;
}

Settings parseSettingsLeniently(std::string_view text, Settings settings)
{
    TextCursor cursor(text);
    if (!cursor.atEnd()) settings.statsPath = cursor.line();
    if (!cursor.atEnd()) settings.compareMethod = integerOf(cursor.field());
    if (!cursor.atEnd()) settings.otherPath = cursor.line();
    if (!cursor.atEnd()) settings.category = cursor.line();
    return settings;
}

std::string formatSettings(const Settings& settings)
{
    std::string text = asLine(settings.statsPath) + asLine(printedNumber(settings.compareMethod)) +
                       asLine(settings.otherPath) + asLine(settings.category);
    if (settings.fontSize) text.append(asLine(printedNumber(*settings.fontSize)));
    return text;
}

std::string withFontSize(std::string_view text, double fontSize)
{
    // The last line goes whatever it holds: in a file of four lines that is the grade, not a size.
    TextCursor cursor(text);
    std::string result;
    while (!cursor.atEnd()) {
        const std::string line = asLine(cursor.line());
        result.append(cursor.atEnd() ? std::string_view{} : std::string_view(line));
    }
    return result.append(asLine(printedNumber(fontSize)));
}

std::filesystem::path settingsFile(const std::filesystem::path& userFolder)
{
    return locate(userFolder / "data.ini");
}

std::filesystem::path previousResultsFile(const std::filesystem::path& userFolder)
{
    return locate(userFolder / kPreviousResultsName);
}

CompareMethod methodOfPath(std::string_view path)
{
    if (trimBlanks(path) == kCompareWithTargets) return CompareMethod::Targets;
    const bool isKept = lastCharacters(path, kPreviousResultsName.size()) == kPreviousResultsName;
    return isKept ? CompareMethod::PreviousResults : CompareMethod::AnotherFile;
}

void saveSettings(const std::filesystem::path& userFolder, const Settings& settings)
{
    replaceFile(settingsFile(userFolder), formatSettings(settings));
}

void saveFontSize(const std::filesystem::path& userFolder, double fontSize)
{
    const auto path = settingsFile(userFolder);
    replaceFile(path, withFontSize(readFile(path), fontSize));
}

void keepFirstResults(const std::filesystem::path& userFolder, const std::filesystem::path& statsPath)
{
    const auto path = previousResultsFile(userFolder);
    if (!fileExists(path)) copyFile(statsPath, path);
}

Names parseNames(std::string_view text)
{
    TextCursor cursor(text);
    Names names;
    for (std::string* name : {&names.player1, &names.player2, &names.team}) {
        if (cursor.atEnd()) break;
        *name = cursor.line();
    }
    return names;
}

std::string formatNames(const Names& names)
{
    return asLine(names.player1) + asLine(names.player2) + asLine(names.team);
}

std::filesystem::path namesFile(const std::filesystem::path& userFolder)
{
    return locate(userFolder / "names.dat");
}

}  // namespace kavo
