// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "cli/command_factories.h"
#include "cli/grade_cell.h"
#include "cli/insight_json.h"
#include "cli/option_parser.h"
#include "cli/report_output.h"
#include "core/colour_set.h"
#include "core/targets.h"
#include "core/users.h"
#include "insight/club_files.h"
#include "insight/club_part_file.h"
#include "insight/page/club_page.h"

#include <algorithm>

namespace kavo {

namespace {

std::vector<PrintedCell> countCells(const GradeCounts& counts, const ColourSet& scheme)
{
    std::vector<PrintedCell> cells;
    for (const Grade& grade : grades()) {
        PrintedCell cell = gradeCell(grade.category, scheme);
        cell.text = std::to_string(counts[grade.category]);
        cells.push_back(std::move(cell));
    }
    return cells;
}

PrintedRow playersHeader(const ColourSet& scheme)
{
    PrintedRow row = {{.text = "Player", .bold = true}, {.text = "Total", .bold = true}};
    for (const Grade& grade : grades()) row.push_back(gradeCell(grade.category, scheme));
    row.push_back({.text = "Levels won", .bold = true});
    return row;
}

PrintedRow playerRow(std::string_view name, std::string_view total, const GradeCounts& counts, std::string won,
                     const ColourSet& scheme)
{
    PrintedRow row = {{.text = std::string(name)}, {.text = std::string(total)}};
    for (PrintedCell& cell : countCells(counts, scheme)) row.push_back(std::move(cell));
    row.push_back({.text = std::move(won)});
    return row;
}

std::string formatPlayers(const ClubPart& part, const ColourSet& scheme, Colours colours)
{
    std::vector<PrintedRow> rows;
    rows.reserve(part.players.size() + 2);
    rows.push_back(playersHeader(scheme));
    for (const ClubPlayer& player : part.players)
        rows.push_back(playerRow(player.name, player.total, player.grades, std::to_string(player.won.count()), scheme));
    const ClubTeam team = teamOf(part);
    rows.push_back(playerRow("Team", team.total, team.grades, "", scheme));
    rows.back().front().bold = true;
    return formatColumns(std::move(rows), colours);
}

std::string joinedNames(const std::vector<std::string_view>& names)
{
    constexpr std::size_t kMost = 5;  // of a tie; the JSON names them all
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), kMost); ++i) text.append(i > 0 ? ", " : "").append(names[i]);
    if (names.size() > kMost) text += " and " + std::to_string(names.size() - kMost) + " more";
    return text;
}

std::string formatLevels(const ClubPart& part, const ColourSet& scheme, Colours colours)
{
    std::vector<PrintedRow> rows;
    for (int level = 1; level <= kLevels; ++level) {
        const ClubLevel& best = part.levels.at(static_cast<std::size_t>(level) - 1);
        rows.push_back({{.text = best.name},
                        {.text = best.time},
                        gradeCell(best.grade, scheme),
                        {.text = joinedNames(winnersOf(part, level))}});
    }
    return formatColumns(std::move(rows), colours);
}

/// The colours of whoever looks at the table, if that can be told.
ColourSet schemeOf(const CommandContext& context)
{
    const auto programFolder = context.programFolder();
    const auto nick = context.user ? context.user : readCurrentUserIfThere(programFolder);
    return nick ? readTableColours(userFolder(programFolder, *nick)) : ColourSet{};
}

ClubPart mergedParts(const std::vector<std::string>& files)
{
    std::optional<ClubPart> whole;
    for (const std::string& file : files) {
        const auto path = fileNamed(file);
        try {
            ClubPart part = parseClubPart(readFile(path));
            whole = whole ? joined(*std::move(whole), std::move(part)) : std::move(part);
        } catch (const ClubError& error) {
            throw CommandError(textOf(path) + ": " + error.what());
        }
    }
    return *std::move(whole);
}

class ClubCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        const Value part = {.name = "FILE", .kind = ValueKind::File};
        return {
            argument({.name = "PLACE", .kind = ValueKind::File}, &m_places,
                     "statistics files, and folders of them: one file is one player"),
            option("--merge", part, &m_merged, "parts to join, in any order, in place of reading statistics files"),
            option("--partial", part, &m_partial,
                   "write a part for --merge in place of printing; - is standard output"),
            option("--html", {.name = "FILE", .kind = ValueKind::File}, &m_page,
                   "write a web page in place of printing; - is standard output")
                .excluding("--partial"),
            flag("--json", m_json, "print everything as one JSON object").excluding("--partial").excluding("--html"),
        };
    }

    ExitStatus run(const CommandContext& context) override
    {
        if (m_places.empty() == m_merged.empty())
            throw UsageError(m_places.empty() ? "PLACE or --merge is required; for help: kavo-timing-cli club --help"
                                              : "PLACE and --merge exclude each other");
        ClubReading reading = m_merged.empty() ? readPlaces(context) : ClubReading{mergedParts(m_merged), {}};
        for (const UnreadableFile& file : reading.unreadable) context.messages.tell(file.inFull + " is left out");
        if (m_partial)
            writeBytes(context, *m_partial, formatClubPart(reading.part));
        else if (m_page)
            writeBytes(context, *m_page, formatClubPage(reading.part, schemeOf(context), context.now()));
        else
            print(context, reading);
        return reading.unreadable.empty() ? kDone : kEndedEarly;
    }

private:
    [[nodiscard]] ClubReading readPlaces(const CommandContext& context) const
    {
        std::vector<std::filesystem::path> places;
        for (const std::string& place : m_places) places.push_back(locate(pathOf(place)));
        ResultsState targets;
        if (!LoadTargets(context.programFolder(), targets)) {
            const RunTimeError missing(Failure::FileNotFound, targetsFile(context.programFolder()));
            context.messages.tell(missing.inFull() + ": every level is graded Beginner");
        }
        return readClub(clubFiles(places), targets);
    }

    void print(const CommandContext& context, const ClubReading& reading) const
    {
        if (m_json) {
            writeJson(context, formatClubJson(reading));
            return;
        }
        if (reading.part.players.empty()) {
            context.messages.tell("No players: there is no statistics file of the game");
            return;
        }
        const ColourSet scheme = context.terminal.colours == Colours::None ? ColourSet{} : schemeOf(context);
        context.out.write(formatPlayers(reading.part, scheme, context.terminal.colours) + "\n" +
                          formatLevels(reading.part, scheme, context.terminal.colours));
    }

    std::vector<std::string> m_places;
    std::vector<std::string> m_merged;
    std::optional<std::string> m_partial;
    std::optional<std::string> m_page;
    bool m_json = false;
};

}  // namespace

std::unique_ptr<Command> makeClubCommand()
{
    return std::make_unique<ClubCommand>();
}

}  // namespace kavo
