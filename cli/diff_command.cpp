// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_factories.h"
#include "cli/grade_cell.h"
#include "cli/insight_json.h"
#include "cli/report_output.h"
#include "cli/user_history.h"

namespace kavo {

namespace {

constexpr std::string_view kArrow = " → ";

/// "+1.17 s" for what has become faster, "-1.17 s" for the opposite.
std::string gainText(Hundredths gain)
{
    return (gain > 0 ? "+" : "") + secondsText(gain) + " s";
}

PrintedRow rowOf(const LevelChange& change, const ColourSet& scheme)
{
    PrintedCell before = gradeCell(change.gradeBefore, scheme);
    PrintedCell after = gradeCell(change.gradeAfter, scheme);
    if (change.gradeBefore == change.gradeAfter) before = {};
    return {{.text = "Level " + change.name},
            {.text = change.before},
            {.text = change.after, .bold = isImprovement(change)},
            {.text = gainText(change.gain)},
            std::move(before),
            std::move(after)};
}

std::string formatProgress(const Progress& progress, std::string_view from, std::string_view to,
                           const ColourSet& scheme, Colours colours)
{
    std::vector<PrintedRow> rows;
    for (const LevelChange& change : progress.changes) rows.push_back(rowOf(change, scheme));
    rows.push_back({{.text = "TOTAL TIME:", .bold = true},
                    {.text = progress.totalBefore},
                    {.text = progress.totalAfter, .bold = true},
                    {.text = gainText(progress.gain)},
                    {},
                    {}});
    std::string text(from);
    text.append(kArrow).append(to).append("\n");
    return text + formatColumns(std::move(rows), colours);
}

class DiffCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {
            argument(stateValue("FROM"), &m_from, "the earlier state; by default the last but one"),
            argument(stateValue("TO"), &m_to, "the later one; by default the latest"),
            flag("--json", m_json, "print everything as one JSON object"),
        };
    }

    ExitStatus run(const CommandContext& context) override
    {
        const UserHistory history = userHistory(context);
        const std::vector<RememberedState> states = history.store.states();
        if (states.size() == 1 && !m_from)
            throw CommandError("Only one state is remembered, " + states.front().name +
                               ": there is nothing to compare it with");
        const std::string from = stateMeant(states, m_from.value_or("latest~1"));
        const std::string to = stateMeant(states, m_to.value_or("latest"));
        const Progress progress =
            compareTimes(timesOfState(history.store, from), timesOfState(history.store, to), history.targets);
        if (m_json)
            writeJson(context, formatProgressJson(from, to, progress));
        else
            context.out.write(formatProgress(progress, from, to, history.colours, context.terminal.colours));
        return kDone;
    }

private:
    std::optional<std::string> m_from;
    std::optional<std::string> m_to;
    bool m_json = false;
};

}  // namespace

std::unique_ptr<Command> makeDiffCommand()
{
    return std::make_unique<DiffCommand>();
}

}  // namespace kavo
