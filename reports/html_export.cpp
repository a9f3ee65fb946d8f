// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/html_export.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/version.h"
#include "reports/report_file.h"

#include <array>
#include <utility>

namespace kavo {

namespace {

struct CellPlaceholder
{
    std::string_view name;
    Column column;
};

/// Of the level in the loop.
constexpr std::array<CellPlaceholder, 8> kLevelPlaceholders = {{{"%record1%", Column::Time1},
                                                                {"%record2%", Column::Time2},
                                                                {"%target1%", Column::Target1},
                                                                {"%target2%", Column::Target2},
                                                                {"%team_record%", Column::Team},
                                                                {"%team_target%", Column::Target},
                                                                {"%best_driver%", Column::Author},
                                                                {"%lev_name%", Column::Level}}};

/// Of the totals row.
constexpr std::array<CellPlaceholder, 6> kTotalPlaceholders = {{{"%tt1%", Column::Time1},
                                                                {"%tt2%", Column::Time2},
                                                                {"%tt1target%", Column::Target1},
                                                                {"%tt2target%", Column::Target2},
                                                                {"%ttt%", Column::Team},
                                                                {"%ttttarget%", Column::Target}}};

/// A side's mark and a percent sign follow.
constexpr ByGrade<std::string_view> kGradePlaceholders = {{"%wr", "%wc", "%pr", "%go", "%ok", "%be"}};

struct SideMark
{
    Side side;
    std::string_view mark;
    std::string_view namePlaceholder;
};

constexpr std::array<SideMark, 3> kSides = {
    {{Side::Player1, "1%", "%player1%"}, {Side::Player2, "2%", "%player2%"}, {Side::Team, "t%", "%team%"}}};

/// Most placeholders stand nowhere in a section: then nothing is copied.
std::string replaced(std::string text, std::string_view placeholder, std::string_view value)
{
    if (text.find(placeholder) == std::string::npos) return text;
    return replaceAll(text, placeholder, value);
}

std::string withDates(std::string text, const ReportDates& dates)
{
    text = replaced(std::move(text), "%date%", dates.date);
    text = replaced(std::move(text), "%date_time%", dates.dateTime);
    return replaced(std::move(text), "%time%", dates.time);
}

template <std::size_t Count>
std::string withCells(std::string text, const std::array<CellPlaceholder, Count>& placeholders,
                      const ResultsTable& table, int row)
{
    for (const auto& [name, column] : placeholders) text = replaced(std::move(text), name, table.text(row, column));
    return text;
}

std::string withCounts(std::string text, const ResultsState& state)
{
    const auto put = [&text](std::string_view start, std::string_view mark, int number) {
        text = replaced(std::move(text), std::string(start).append(mark), std::to_string(number));
    };
    for (const Grade& grade : grades())
        for (const SideMark& side : kSides)
            put(kGradePlaceholders[grade.category], side.mark, state.counter(side.side, grade.category));
    for (const SideMark& side : kSides) put("%vic", side.mark, state.victories(side.side));
    return text;
}

std::string withNames(std::string text, const ResultsState& state)
{
    for (const SideMark& side : kSides) text = replaced(std::move(text), side.namePlaceholder, state.name(side.side));
    return text;
}

std::string commentLine()
{
    return std::string("<!-- Maden by prog Kavo Timing v.")
        .append(kMajorMinor)
        .append(" by Nurel. Download here: ")
        .append(kDownloadAddress)
        .append(" -->");
}

}  // namespace

std::string substitute(std::string_view section, const Session& session, const ReportDates& dates, int row)
{
    // The order counts: a player called %team% gets the team's name.
    std::string text = withDates(std::string(section), dates);
    if (row != 0) text = withCells(std::move(text), kLevelPlaceholders, session.table, row);
    text = withCells(std::move(text), kTotalPlaceholders, session.table, kTotalsRow);
    text = withCounts(std::move(text), session.state);
    return withNames(std::move(text), session.state);
}

void writeHtmlReport(const Session& session, const TemplateSections& sections, const ReportDates& dates,
                     ReportLines& report)
{
    report.write(commentLine());
    report.write(substitute(sections.beginning, session, dates, 0));
    for (int level = 1; level <= kLevels; ++level) report.write(substitute(sections.loop, session, dates, level));
    report.write(substitute(sections.total, session, dates, 0));
    report.write(substitute(sections.ending, session, dates, 0));
}

void HtmlReports::write(const Session& session, const TemplateSections& sections, std::time_t now,
                        const std::filesystem::path& path)
{
    if (m_isOneOpen) throw RunTimeError(Failure::PathFileAccess, path);
    ReportFile file(path);
    m_isOneOpen = true;
    writeHtmlReport(session, sections, datesOf(now), file);
    file.close();
    m_isOneOpen = false;
}

void exportHtml(const Session& session, const TemplateSections& sections, std::time_t now,
                const std::filesystem::path& path)
{
    HtmlReports().write(session, sections, now, path);
}

}  // namespace kavo
