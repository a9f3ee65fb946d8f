// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_factories.h"
#include "cli/grade_cell.h"
#include "cli/insight_json.h"
#include "cli/option_parser.h"
#include "cli/report_output.h"
#include "cli/user_history.h"
#include "insight/best_ever.h"

namespace kavo {

namespace {

std::string formatTable(const BestEver& best, const UserHistory& history, Colours colours)
{
    std::vector<PrintedRow> rows;
    for (int level = 1; level <= kLevels; ++level) {
        const BestEverLevel& row = best[level];
        rows.push_back({{.text = row.name},
                        {.text = row.time},
                        gradeCell(shownGrade(history.targets, level, row.time), history.colours),
                        {.text = row.driver},
                        {.text = row.since}});
    }
    rows.push_back(
        {{.text = "TOTAL TIME:", .bold = true}, {.text = shownTotal(timesOf(best)), .bold = true}, {}, {}, {}});
    return formatColumns(std::move(rows), colours);
}

class BestEverCommand final : public Command
{
public:
    std::vector<Option> options() override
    {
        return {
            argument(reportFileValue(), &m_file,
                     "a statistics file with the times, which is replaced; - is standard output"),
            flag("--json", m_json, "print them as one JSON object"),
        };
    }

    ExitStatus run(const CommandContext& context) override
    {
        if (m_json && m_file) throw UsageError("--json and FILE exclude each other");
        const UserHistory history = userHistory(context);
        if (history.store.states().empty()) {
            tellNothingRemembered(context.messages);
            return kEndedEarly;
        }
        const BestEver best = bestEverOf(history.store);
        if (m_file)
            writeBytes(context, *m_file, formatBestEver(best));
        else if (m_json)
            writeJson(context, formatBestEverJson(best, history.targets));
        else
            context.out.write(formatTable(best, history, context.terminal.colours));
        return kDone;
    }

private:
    std::optional<std::string> m_file;
    bool m_json = false;
};

}  // namespace

std::unique_ptr<Command> makeBestEverCommand()
{
    return std::make_unique<BestEverCommand>();
}

}  // namespace kavo
