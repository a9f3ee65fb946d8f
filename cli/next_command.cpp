// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_factories.h"
#include "cli/grade_cell.h"
#include "cli/insight_json.h"
#include "cli/loaded_results.h"
#include "cli/option_parser.h"
#include "cli/printable.h"
#include "cli/report_output.h"
#include "insight/next_grades.h"

#include <algorithm>
#include <limits>

namespace kavo {

namespace {

constexpr int kDefaultLimit = 10;

std::vector<std::string_view> gradesWithTargets()
{
    std::vector<std::string_view> names;
    for (const Grade& grade : grades())
        if (grade.targets != nullptr) names.insert(names.begin(), grade.name);
    return names;
}

/// How far the record is, which is no news where the record itself is the goal.
std::string recordText(const Improvement& improvement)
{
    if (!improvement.recordGap || improvement.next.grade == TargetCategory::WorldRecord) return {};
    return secondsText(*improvement.recordGap) + " s to the record";
}

std::string formatForTerminal(const std::vector<Improvement>& improvements, const ColourSet& scheme, Colours colours)
{
    std::vector<PrintedRow> rows;
    rows.reserve(improvements.size());
    for (const Improvement& improvement : improvements) {
        rows.push_back({{.text = "Level " + improvement.name},
                        {.text = improvement.time},
                        gradeCell(improvement.grade, scheme),
                        {.text = secondsText(improvement.next.gap) + " s to"},
                        gradeCell(improvement.next.grade, scheme),
                        {.text = recordText(improvement)}});
    }
    return formatColumns(std::move(rows), colours);
}

std::string formatLines(const std::vector<Improvement>& improvements)
{
    std::string text;
    for (const Improvement& improvement : improvements) text.append(printable(describe(improvement))).append("\n");
    return text;
}

class NextCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {
            option("--limit", {.name = "N", .kind = ValueKind::Number}, &m_limit, "so many at most; 0 is all of them"),
            option("--grade", {.name = "NAME", .kind = ValueKind::Choice, .choices = gradesWithTargets()}, &m_grade,
                   "what is missing to this grade, in place of the next one"),
            option("--player", {.name = "PLAYER", .kind = ValueKind::Choice, .choices = {"1", "2"}}, &m_player,
                   "whose improvements; by default those of player 1"),
            flag("--json", m_json, "print them as one JSON object"),
        };
    }

    ExitStatus run(const CommandContext& context) override
    {
        if (m_limit < 0) throw UsageError("a limit below 0");
        const LoadedResults loaded = loadResults(context);
        tellMessages(loaded, context.messages);
        if (loaded.status() != kDone) return loaded.status();
        const Side player = m_player == "2" ? Side::Player2 : Side::Player1;
        const auto wanted = m_grade ? categoryNamed(*m_grade) : std::nullopt;
        print(context, loaded.session, player, improvementsOf(loaded.session, player, wanted));
        return kDone;
    }

private:
    void print(const CommandContext& context, const Session& session, Side player,
               std::vector<Improvement> improvements) const
    {
        const std::size_t limit =
            m_limit == 0 ? std::numeric_limits<std::size_t>::max() : static_cast<std::size_t>(m_limit);
        if (m_json) {
            writeJson(context, formatImprovementsJson(session.state.name(player), improvements, limit));
            return;
        }
        if (improvements.empty()) context.messages.tell("Nothing to improve for " + session.state.name(player));
        improvements.resize(std::min(improvements.size(), limit));
        context.out.write(context.terminal.isTerminal
                              ? formatForTerminal(improvements, session.colours, context.terminal.colours)
                              : formatLines(improvements));
    }

    int m_limit = kDefaultLimit;
    std::optional<std::string> m_grade;
    std::optional<std::string> m_player;
    bool m_json = false;
};

}  // namespace

std::unique_ptr<Command> makeNextCommand()
{
    return std::make_unique<NextCommand>();
}

}  // namespace kavo
