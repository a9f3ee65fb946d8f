// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/statistics_check.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/levels.h"
#include "core/statistics_file.h"
#include "insight/exact_time.h"

#include <iterator>
#include <optional>
#include <string>

namespace kavo {

namespace {

constexpr std::string_view kLevelWord = "Level";
constexpr std::size_t kTimeLength = 8;
constexpr std::size_t kLongestName = 23;  // characters that the text export has room for

constexpr const char* kWriteAnew =
    "let the game write the file anew, or choose the game's own stats.txt in Settings (F2)";

void append(Findings& all, Findings more)
{
    all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

/// A text that an editor has stored in two bytes a character has every second byte 0.
bool isInTwoByteCharacters(std::string_view text)
{
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF") ||
           text.substr(0, 200).find('\0') != std::string_view::npos;
}

Findings checkWords(std::string_view text, StatisticsUse use)
{
    Findings findings;
    for (const char* word : {"player", "level", "steppes"}) {
        const bool isWanted =
            use == StatisticsUse::SecondFile || (use == StatisticsUse::Player1 && std::string_view(word) != "steppes");
        if (!isWanted || containsIgnoringCase(text, word)) continue;
        findings.push_back(
            {.severity = Severity::Error,
             .text = std::string("\"Wrong file!\": the word ") + word + " does not occur in it",
             .expected = "a statistics file of the game, which speaks of its player and its levels" +
                         std::string(use == StatisticsUse::SecondFile ? " (one of them the steppes)" : ""),
             .advice = kWriteAnew});
    }
    return findings;
}

Findings checkLineEnds(std::string_view text)
{
    std::size_t crLf = 0;
    std::optional<TextLine> bare;
    for (const TextLine& line : linesOf(text)) {
        crLf += line.endsInCrLf ? 1 : 0;
        if (line.endsInLf && !bare) bare = line;
    }
    if (!bare) return {};
    return {findingAt(*bare, {.severity = crLf == 0 ? Severity::Error : Severity::Warning,
                              .text = crLf == 0 ? "its lines end with LF alone, so that no level is found"
                                                : "this line ends with LF alone, and runs on into the next one",
                              .expected = "CR LF at every line's end, as the game writes it",
                              .advice = "copy the file from the game's folder again without converting it "
                                        "(unix2dos puts the line ends back)"})};
}

/// A place where a level begins for the reader: it only looks for the word.
struct LevelPlace
{
    std::size_t byte = 0;
    TextLine line;
    bool isSecondOnLine = false;
};

std::vector<LevelPlace> levelPlaces(std::string_view text)
{
    std::vector<LevelPlace> places;
    for (std::size_t at = text.find(kLevelWord); at != std::string_view::npos && places.size() < kLevels;
         at = text.find(kLevelWord, at + 1)) {
        const TextLine line = lineAt(text, at);
        places.push_back({at, line, !places.empty() && places.back().line.number == line.number});
    }
    return places;
}

bool isTimeLine(std::string_view line)
{
    return exactTime(firstCharacters(trimBlanks(line), kTimeLength)).has_value();
}

/// The level's own number in its header; 0 when it has none.
int numberIn(std::string_view header)
{
    return integerOf(replaceAll(header, "Level ", ""));
}

/// The word in a place where no level begins: all that follows is then read one level too far.
Findings checkLevelPlace(std::string_view text, const LevelPlace& place, int level)
{
    const std::string shown = inQuotes(place.line.text);
    if (place.isSecondOnLine)
        return {findingAt(text, place.byte,
                          {.severity = Severity::Error,
                           .text = "the name of a level has the word \"Level\" in it once more (" + shown +
                                   "), which is taken for the beginning of level " + std::to_string(level),
                           .expected = "the word once, at the beginning of a level",
                           .advice = "write it in small letters in the level's name"})};
    if (isTimeLine(place.line.text))
        return {findingAt(text, place.byte,
                          {.severity = Severity::Error,
                           .text = "the name of a player has the word \"Level\" in it (" + shown +
                                   "), which is taken for the beginning of level " + std::to_string(level),
                           .expected = "the word only where a level begins",
                           .advice = "choose another name in the game; in this file write it in small letters"})};
    const int number = numberIn(text.substr(place.byte, place.line.byte + place.line.text.size() - place.byte));
    if (number == level || number == 0) return {};
    return {findingAt(text, place.byte,
                      {.severity = Severity::Error,
                       .text = "this is read as level " + std::to_string(level) + ", but calls itself level " +
                               std::to_string(number),
                       .expected = "the levels 1 to 54 one after the other",
                       .advice = kWriteAnew})};
}

Findings checkLevelPlaces(std::string_view text, const std::vector<LevelPlace>& places)
{
    for (std::size_t i = 0; i < places.size(); ++i) {
        // One is enough: the levels behind it are all out of step.
        Findings findings = checkLevelPlace(text, places[i], static_cast<int>(i) + 1);
        if (!findings.empty()) return findings;
    }
    if (places.size() == kLevels) return {};
    return {findingAt(text, text.size(),
                      {.severity = Severity::Error,
                       .text = "only " + std::to_string(places.size()) +
                               " levels begin in it (\"Invalid procedure call or argument\")",
                       .expected = "54 levels, each beginning with the word \"Level\"",
                       .advice = kWriteAnew})};
}

Finding endsTooEarly(std::string_view text, const LevelPlace& place, int level)
{
    return findingAt(
        text, place.byte,
        {.severity = Severity::Error,
         .text = "level " + std::to_string(level) + " is not ended (\"Invalid procedure call or argument\")",
         .expected = "a header and a line behind it, both ended with CR LF",
         .advice = kWriteAnew});
}

void checkLevel(Findings& findings, const LevelPlace& place, const std::string& name,
                const std::optional<BestTime>& best)
{
    if (countCharacters(name) > kLongestName)
        findings.push_back(findingAt(place.line, {.severity = Severity::Warning,
                                                  .text = "the name " + inQuotes(name) +
                                                          " is longer than 23 characters: "
                                                          "the text export ends there",
                                                  .expected = "at most 23 characters, the level's number included",
                                                  .advice = "shorten it in this file, or use another export"}));
    if (best && !exactTime(best->time))
        findings.push_back(findingAt(place.line, {.severity = Severity::Warning,
                                                  .text = inQuotes(best->time) + " is read as the level's time",
                                                  .expected = "MM:SS:HH behind the header, or no time at all",
                                                  .advice = kWriteAnew}));
}

/// Goes through the levels as a loading does.
Findings checkLevels(std::string_view text, const std::vector<LevelPlace>& places)
{
    Findings findings;
    StatisticsReader reader(text);
    for (std::size_t i = 0; i < places.size(); ++i) {
        try {
            const std::string name = reader.header();
            checkLevel(findings, places[i], name, reader.bestTime());
        } catch (const RunTimeError&) {
            findings.push_back(endsTooEarly(text, places[i], static_cast<int>(i) + 1));
            break;
        }
    }
    return findings;
}

}  // namespace

Findings checkStatistics(std::string_view text, StatisticsUse use)
{
    if (text.empty())
        return {{.severity = Severity::Error,
                 .text = "the file is empty",
                 .expected = "a statistics file of the game",
                 .advice = kWriteAnew}};
    if (isInTwoByteCharacters(text))
        return {{.severity = Severity::Error,
                 .text = "it is stored with two bytes for each character (UTF-16), so that nothing in it is found",
                 .expected = "one byte for each letter, as the game writes it",
                 .advice = kWriteAnew}};
    Findings findings = checkWords(text, use);
    if (!findings.empty()) return findings;
    findings = checkLineEnds(text);
    if (!findings.empty() && findings.front().severity == Severity::Error) return findings;
    const std::vector<LevelPlace> places = levelPlaces(text);
    append(findings, checkLevelPlaces(text, places));
    append(findings, checkLevels(text, places));
    append(findings, checkCodePage(text));
    return findings;
}

}  // namespace kavo
