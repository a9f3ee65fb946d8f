// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/report_json.h"

#include "base/shown_text.h"

#include <nlohmann/json.hpp>

namespace kavo {

namespace {

using Json = nlohmann::ordered_json;

Json headersOf(const ResultsTable& table)
{
    Json headers = Json::array();
    for (int column = 0; column < kColumns; ++column)
        headers.push_back(toUtf8(table.header(static_cast<Column>(column))));
    return headers;
}

Json rowOf(const ResultsTable& table, int row, Colour textColour)
{
    Json cells = Json::array();
    Json bold = Json::array();
    Json colours = Json::array();
    for (int column = 0; column < kColumns; ++column) {
        const Cell& cell = table.cell(row, static_cast<Column>(column));
        cells.push_back(toUtf8(cell.text));
        bold.push_back(cell.bold);
        colours.push_back(cell.colour.value_or(textColour));
    }
    return {{"cells", std::move(cells)}, {"bold", std::move(bold)}, {"colours", std::move(colours)}};
}

Json rowsOf(const Session& session)
{
    Json rows = Json::array();
    for (int row = 1; row <= session.table.rowCount(); ++row)
        rows.push_back(rowOf(session.table, row, session.colours.ColText));
    return rows;
}

Json gradesOf(const ResultsState& state, Side side)
{
    Json counts = Json::object();
    for (const Grade& grade : grades()) counts[std::string(grade.name)] = state.counter(side, grade.category);
    return counts;
}

}  // namespace

std::string formatJson(const LoadingReport& report)
{
    const Session& session = report.session;
    const ResultsState& state = session.state;
    Json messages = Json::array();
    for (const std::string& message : report.messages) messages.push_back(toUtf8(message));
    const Json json = {
        {"user", toUtf8(session.UserName)},
        {"caption", toUtf8(session.caption)},
        {"messages", std::move(messages)},
        {"error", report.result.error.empty() ? Json(nullptr) : Json(toUtf8(report.result.error))},
        {"headers", headersOf(session.table)},
        {"rows", rowsOf(session)},
        {"names",
         {{"player1", toUtf8(state.Player1Name)},
          {"player2", toUtf8(state.Player2Name)},
          {"team", toUtf8(state.TeamName)}}},
        {"grades",
         {{"player1", gradesOf(state, Side::Player1)},
          {"player2", gradesOf(state, Side::Player2)},
          {"team", gradesOf(state, Side::Team)}}},
        {"victories", {{"player1", state.Victories1}, {"player2", state.Victories2}}},
    };
    return json.dump(2) + "\n";
}

}  // namespace kavo
