// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/club_part_file.h"

#include "insight/fingerprint.h"

#include <charconv>
#include <vector>

namespace kavo {

namespace {

constexpr std::string_view kFirstWords = "kavo-timing club part";
constexpr std::string_view kVersion = "1";
constexpr char kEscape = '%';

bool isEscaped(char c)
{
    return c == kEscape || static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

/// A text that has neither TABs nor line ends: other bytes than letters of some kind as %0A.
std::string escaped(std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string result;
    for (const char c : text) {
        result.push_back(isEscaped(c) ? kEscape : c);
        if (!isEscaped(c)) continue;
        result.push_back(kDigits[static_cast<unsigned char>(c) / 16U]);
        result.push_back(kDigits[static_cast<unsigned char>(c) % 16U]);
    }
    return result;
}

[[noreturn]] void failAt(std::size_t line)
{
    throw ClubError("damaged at line " + std::to_string(line));
}

/// The lines of a part, field by field.
class PartReader final
{
public:
    explicit PartReader(std::string_view text) : m_rest(text) {}

    /// The fields of the next line, of which there must be so many; the first one is what the line is.
    std::vector<std::string_view> line(std::string_view kind, std::size_t fields)
    {
        ++m_line;
        const std::size_t end = m_rest.find('\n');
        if (end == std::string_view::npos) fail();
        std::vector<std::string_view> found = split(m_rest.substr(0, end));
        m_rest.remove_prefix(end + 1);
        if (found.size() != fields || found.front() != kind) fail();
        return found;
    }

    [[nodiscard]] bool isAt(std::string_view kind) const { return m_rest.starts_with(kind); }
    [[nodiscard]] bool atEnd() const { return m_rest.empty(); }
    [[nodiscard]] std::string_view rest() const { return m_rest; }
    [[noreturn]] void fail() const { failAt(m_line); }

    [[nodiscard]] std::string text(std::string_view field) const
    {
        std::string result;
        for (std::size_t at = 0; at < field.size(); ++at) {
            if (field[at] != kEscape) {
                result.push_back(field[at]);
                continue;
            }
            const auto byte = number<unsigned>(field.substr(at + 1, 2), 16);
            result.push_back(static_cast<char>(byte));
            at += 2;
        }
        if (escaped(result) != field) fail();
        return result;
    }

    [[nodiscard]] std::uint64_t hexadecimal(std::string_view field) const
    {
        const auto value = parseHexadecimal(field);
        if (!value) fail();
        return *value;
    }

    template <typename Number>
    [[nodiscard]] Number number(std::string_view field, int base = 10) const
    {
        Number value{};
        const char* end = field.data() + field.size();
        const auto [stopped, error] = std::from_chars(field.data(), end, value, base);
        if (error != std::errc{} || stopped != end) fail();
        return value;
    }

private:
    static std::vector<std::string_view> split(std::string_view line)
    {
        std::vector<std::string_view> fields;
        for (std::size_t tab = line.find('\t'); tab != std::string_view::npos; tab = line.find('\t')) {
            fields.push_back(line.substr(0, tab));
            line.remove_prefix(tab + 1);
        }
        fields.push_back(line);
        return fields;
    }

    std::string_view m_rest;
    std::size_t m_line = 0;
};

std::string levelLine(const ClubLevel& level)
{
    return "level\t" + escaped(level.time) + "\t" + std::string(gradeOf(level.grade).name) + "\t" +
           escaped(level.name) + "\n";
}

ClubLevel levelFrom(PartReader& reader)
{
    const auto fields = reader.line("level", 4);
    const auto grade = categoryNamed(fields[2]);
    if (!grade) reader.fail();
    ClubLevel level{reader.text(fields[3]), reader.text(fields[1]), *grade};
    if (level.time != kSkipped && !exactTime(level.time)) reader.fail();
    return level;
}

std::string playerLine(const ClubPlayer& player)
{
    std::string line = "player\t" + std::to_string(player.hundredths) + "\t" + escaped(player.name) + "\t" +
                       hexadecimal(player.fingerprint) + "\t" + escaped(player.file) + "\t" + escaped(player.total) +
                       "\t" + hexadecimal(player.won.to_ullong());
    for (const int count : player.grades.values) line.append("\t").append(std::to_string(count));
    return line.append("\n");
}

ClubPlayer playerFrom(PartReader& reader)
{
    constexpr std::size_t kGradesAt = 7;
    const auto fields = reader.line("player", kGradesAt + kCategories);
    ClubPlayer player;
    player.hundredths = reader.number<Hundredths>(fields[1]);
    player.name = reader.text(fields[2]);
    player.fingerprint = reader.hexadecimal(fields[3]);
    player.file = reader.text(fields[4]);
    player.total = reader.text(fields[5]);
    const std::uint64_t won = reader.hexadecimal(fields[6]);
    player.won = LevelSet(won);
    int levels = 0;
    for (const Grade& grade : grades()) {
        int& count = player.grades[grade.category];
        count = reader.number<std::uint16_t>(fields[kGradesAt + static_cast<std::size_t>(grade.category)]);
        levels += count;
    }
    if (player.won.to_ullong() != won || levels != kLevels) reader.fail();
    return player;
}

std::string endLine(const ClubPart& part, std::string_view before)
{
    return "end\t" + std::to_string(part.players.size()) + "\t" + hexadecimal(fingerprint(before)) + "\n";
}

}  // namespace

std::string formatClubPart(const ClubPart& part)
{
    std::string text = std::string(kFirstWords) + "\t" + std::string(kVersion) + "\n";
    text += "targets\t" + hexadecimal(part.targets) + "\n";
    for (const ClubLevel& level : part.levels) text += levelLine(level);
    for (const ClubPlayer& player : part.players) text += playerLine(player);
    return text += endLine(part, text);
}

ClubPart parseClubPart(std::string_view text)
{
    if (!text.starts_with(kFirstWords)) throw ClubError("not a part of a club's table");
    PartReader reader(text);
    if (reader.line(kFirstWords, 2)[1] != kVersion) throw ClubError("made by another version of the program");
    ClubPart part;
    part.targets = reader.hexadecimal(reader.line("targets", 2)[1]);
    for (ClubLevel& level : part.levels) level = levelFrom(reader);
    while (reader.isAt("player\t")) part.players.push_back(playerFrom(reader));
    const std::string_view before = text.substr(0, text.size() - reader.rest().size());
    if (reader.rest() != endLine(part, before)) throw ClubError("damaged, or not written to its end");
    // Whatever else has been made by hand: a part is what the program writes, and nothing else.
    if (!areInOrder(part.players) || formatClubPart(part) != text)
        throw ClubError("damaged: not as the program writes it");
    return part;
}

}  // namespace kavo
